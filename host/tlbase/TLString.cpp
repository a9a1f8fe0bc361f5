#include "tlbase/TLString.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cwctype>
#include <ostream>

namespace TMObjects {

namespace {

std::wstring fromUtf8(const std::string& s) {
    std::wstring out;
    out.reserve(s.size());
    for (std::size_t i = 0; i < s.size();) {
        unsigned char c = static_cast<unsigned char>(s[i]);
        char32_t cp;
        int extra;
        if (c < 0x80) {
            cp = c;
            extra = 0;
        } else if ((c & 0xE0) == 0xC0) {
            cp = c & 0x1F;
            extra = 1;
        } else if ((c & 0xF0) == 0xE0) {
            cp = c & 0x0F;
            extra = 2;
        } else if ((c & 0xF8) == 0xF0) {
            cp = c & 0x07;
            extra = 3;
        } else {
            out.push_back(L'\uFFFD');
            ++i;
            continue;
        }
        bool ok = true;
        for (int k = 1; k <= extra; ++k) {
            if (i + k >= s.size() || (static_cast<unsigned char>(s[i + k]) & 0xC0) != 0x80) {
                ok = false;
                break;
            }
            cp = (cp << 6) | (static_cast<unsigned char>(s[i + k]) & 0x3F);
        }
        if (!ok) {
            out.push_back(L'\uFFFD');
            ++i;
            continue;
        }
        out.push_back(static_cast<wchar_t>(cp));
        i += std::size_t(extra) + 1;
    }
    return out;
}

std::string toUtf8(const std::wstring& s) {
    std::string out;
    out.reserve(s.size());
    for (wchar_t wc : s) {
        auto cp = static_cast<char32_t>(wc);
        if (cp < 0x80) {
            out.push_back(char(cp));
        } else if (cp < 0x800) {
            out.push_back(char(0xC0 | (cp >> 6)));
            out.push_back(char(0x80 | (cp & 0x3F)));
        } else if (cp < 0x10000) {
            out.push_back(char(0xE0 | (cp >> 12)));
            out.push_back(char(0x80 | ((cp >> 6) & 0x3F)));
            out.push_back(char(0x80 | (cp & 0x3F)));
        } else {
            out.push_back(char(0xF0 | (cp >> 18)));
            out.push_back(char(0x80 | ((cp >> 12) & 0x3F)));
            out.push_back(char(0x80 | ((cp >> 6) & 0x3F)));
            out.push_back(char(0x80 | (cp & 0x3F)));
        }
    }
    return out;
}

int clampIndex(int i, int size) {
    return i < 0 ? 0 : (i > size ? size : i);
}

std::wstring lower(const std::wstring& s) {
    std::wstring out(s);
    std::transform(out.begin(), out.end(), out.begin(),
                   [](wchar_t c) { return wchar_t(std::towlower(wint_t(c))); });
    return out;
}

}  // namespace

TLString::TLString(const char* s) : mText(s ? fromUtf8(s) : std::wstring()) {}
TLString::TLString(const wchar_t* s) : mText(s ? s : L"") {}
TLString::TLString(const std::string& s) : mText(fromUtf8(s)) {}

bool TLString::endsWith(const TLString& s) const {
    return mText.size() >= s.mText.size() &&
           mText.compare(mText.size() - s.mText.size(), s.mText.size(), s.mText) == 0;
}

int TLString::CompareNoCase(const char* s) const {
    return CompareNoCase(TLString(s));
}

int TLString::CompareNoCase(const TLString& s) const {
    int c = lower(mText).compare(lower(s.mText));
    return c < 0 ? -1 : (c > 0 ? 1 : 0);
}

int TLString::compareTo(const TLString& s) const {
    int c = mText.compare(s.mText);
    return c < 0 ? -1 : (c > 0 ? 1 : 0);
}

int TLString::Find(const TLString& s, int start) const {
    if (start < 0 || start > length()) return -1;
    auto pos = mText.find(s.mText, std::size_t(start));
    return pos == std::wstring::npos ? -1 : int(pos);
}

int TLString::Find(wchar_t c, int start) const {
    if (start < 0 || start > length()) return -1;
    auto pos = mText.find(c, std::size_t(start));
    return pos == std::wstring::npos ? -1 : int(pos);
}

int TLString::ReverseFind(wchar_t c) const {
    auto pos = mText.rfind(c);
    return pos == std::wstring::npos ? -1 : int(pos);
}

int TLString::ReverseFind(const TLString& s) const {
    auto pos = mText.rfind(s.mText);
    return pos == std::wstring::npos ? -1 : int(pos);
}

TLString TLString::Left(int count) const {
    return TLString(mText.substr(0, std::size_t(clampIndex(count, length()))));
}

TLString TLString::Right(int count) const {
    int n = clampIndex(count, length());
    return TLString(mText.substr(std::size_t(length() - n)));
}

TLString TLString::Mid(int first) const {
    return TLString(mText.substr(std::size_t(clampIndex(first, length()))));
}

TLString TLString::Mid(int first, int count) const {
    int f = clampIndex(first, length());
    int n = clampIndex(count, length() - f);
    return TLString(mText.substr(std::size_t(f), std::size_t(n)));
}

TLString TLString::substring(int begin, int end) const {
    int b = clampIndex(begin, length());
    int e = clampIndex(end, length());
    return e <= b ? TLString() : TLString(mText.substr(std::size_t(b), std::size_t(e - b)));
}

TLString TLString::trim() const {
    auto isBlank = [](wchar_t c) { return std::iswspace(wint_t(c)) != 0; };
    auto b = std::find_if_not(mText.begin(), mText.end(), isBlank);
    auto e = std::find_if_not(mText.rbegin(), mText.rend(), isBlank).base();
    return b < e ? TLString(std::wstring(b, e)) : TLString();
}

std::vector<TLString> TLString::split(const TLString& separator) const {
    std::vector<TLString> parts;
    if (separator.isEmpty()) {
        parts.push_back(*this);
        return parts;
    }
    std::size_t from = 0;
    for (;;) {
        auto pos = mText.find(separator.mText, from);
        if (pos == std::wstring::npos) {
            parts.emplace_back(mText.substr(from));
            return parts;
        }
        parts.emplace_back(mText.substr(from, pos - from));
        from = pos + separator.mText.size();
    }
}

std::vector<TLString> TLString::split(wchar_t separator) const {
    return split(TLString(std::wstring(1, separator)));
}

int TLString::Replace(const TLString& from, const TLString& to) {
    if (from.isEmpty()) return 0;
    int count = 0;
    std::size_t pos = 0;
    while ((pos = mText.find(from.mText, pos)) != std::wstring::npos) {
        mText.replace(pos, from.mText.size(), to.mText);
        pos += to.mText.size();
        ++count;
    }
    return count;
}

TLString TLString::ToLower() const {
    return TLString(lower(mText));
}

TLString TLString::ToUpper() const {
    std::wstring out(mText);
    std::transform(out.begin(), out.end(), out.begin(),
                   [](wchar_t c) { return wchar_t(std::towupper(wint_t(c))); });
    return TLString(out);
}

TLString& TLString::Format(const char* format, ...) {
    va_list args;
    va_start(args, format);
    va_list copy;
    va_copy(copy, args);
    int n = std::vsnprintf(nullptr, 0, format, copy);
    va_end(copy);
    std::string buffer(n > 0 ? std::size_t(n) : 0, '\0');
    if (n > 0) std::vsnprintf(buffer.data(), buffer.size() + 1, format, args);
    va_end(args);
    mText = fromUtf8(buffer);
    return *this;
}

TLString& TLString::Format(const wchar_t* format, ...) {
    std::vector<wchar_t> buffer(256);
    for (;;) {
        va_list args;
        va_start(args, format);
        int n = std::vswprintf(buffer.data(), buffer.size(), format, args);
        va_end(args);
        if (n >= 0 && std::size_t(n) < buffer.size()) {
            mText.assign(buffer.data(), std::size_t(n));
            return *this;
        }
        if (buffer.size() > (1u << 20)) {
            mText.clear();
            return *this;
        }
        buffer.resize(buffer.size() * 4);
    }
}

namespace {

// The ASCII text of the leading number after blanks and an optional '+': the C++ parsers take
// no leading '+' and no blanks, and never follow the C locale, so "1.5" reads the same under a
// German locale as under C.
std::string numberPrefix(const std::wstring& text) {
    std::string ascii;
    std::size_t i = 0;
    while (i < text.size() && std::iswspace(wint_t(text[i]))) ++i;
    if (i < text.size() && text[i] == L'+') ++i;
    for (; i < text.size() && text[i] < 0x80; ++i) ascii.push_back(char(text[i]));
    return ascii;
}

}  // namespace

double TLString::ToDouble() const {
    const std::string ascii = numberPrefix(mText);
    double value = 0.0;
    auto [end, error] = std::from_chars(ascii.data(), ascii.data() + ascii.size(), value);
    (void)end;
    return error == std::errc() ? value : 0.0;
}

int TLString::ToInt() const {
    const std::string ascii = numberPrefix(mText);
    int value = 0;
    auto [end, error] = std::from_chars(ascii.data(), ascii.data() + ascii.size(), value);
    (void)end;
    return error == std::errc() ? value : 0;
}

TLString TLString::Number(double value) {
    // The fewest significant digits that read back to the same double: plain decimals for
    // everyday magnitudes, the exponent form where plain digits would run long ("1e+21",
    // "1e-07"). to_chars does not depend on the C locale, so the decimal point stays a point.
    char buffer[64];
    const double magnitude = std::fabs(value);
    const bool plain = value == 0.0 || (magnitude >= 1e-5 && magnitude < 1e17);
    const auto result =
        std::to_chars(buffer, buffer + sizeof buffer, value,
                      plain ? std::chars_format::fixed : std::chars_format::scientific);
    return TLString(std::string(buffer, result.ptr));
}

TLString TLString::Number(int value) {
    return TLString(std::to_string(value));
}

std::string TLString::toStdString() const {
    return toUtf8(mText);
}

std::ostream& operator<<(std::ostream& os, const TLString& s) {
    return os << s.toStdString();
}

TLString Trans(const TLString& text) {
    return text;
}

}  // namespace TMObjects
