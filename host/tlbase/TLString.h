#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace TMObjects {

// The framework's wide string. Indexes and lengths count wide characters.
class TLString {
public:
    TLString() = default;
    TLString(const char* s);
    TLString(const wchar_t* s);
    TLString(const std::string& s);  // UTF-8
    TLString(const std::wstring& s) : mText(s) {}
    TLString(std::wstring&& s) : mText(std::move(s)) {}
    TLString(const TLString&) = default;
    TLString(TLString&&) noexcept = default;
    TLString& operator=(const TLString&) = default;
    TLString& operator=(TLString&&) noexcept = default;

    // test
    bool isEmpty() const { return mText.empty(); }
    bool IsEmpty() const { return mText.empty(); }
    int GetLength() const { return int(mText.size()); }
    int length() const { return int(mText.size()); }
    bool Contains(const TLString& s) const { return mText.find(s.mText) != std::wstring::npos; }
    bool startsWith(const TLString& s) const {
        return mText.compare(0, s.mText.size(), s.mText) == 0;
    }
    bool endsWith(const TLString& s) const;

    // compare: 0 when equal
    int CompareNoCase(const char* s) const;
    int CompareNoCase(const TLString& s) const;
    int compareTo(const TLString& s) const;

    // search: -1 when absent
    int Find(const TLString& s, int start = 0) const;
    int Find(wchar_t c, int start = 0) const;
    int ReverseFind(wchar_t c) const;
    int ReverseFind(const TLString& s) const;
    int indexOf(const TLString& s, int start = 0) const { return Find(s, start); }

    // cut
    TLString Left(int count) const;
    TLString Right(int count) const;
    TLString Mid(int first) const;
    TLString Mid(int first, int count) const;
    TLString substring(int begin, int end) const;
    TLString trim() const;
    std::vector<TLString> split(const TLString& separator) const;
    std::vector<TLString> split(wchar_t separator) const;

    // change
    int Replace(const TLString& from, const TLString& to);
    TLString ToLower() const;
    TLString ToUpper() const;
    TLString operator+(const TLString& s) const { return TLString(mText + s.mText); }
    TLString& operator+=(const TLString& s) {
        mText += s.mText;
        return *this;
    }
    TLString& Format(const char* format, ...);
    TLString& Format(const wchar_t* format, ...);

    // convert
    double ToDouble() const;               // 0 when the text is no number
    int ToInt() const;                     // 0 when the text is no number
    static TLString Number(double value);  // shortest text that reads back to the same double
    static TLString Number(int value);
    std::string toStdString() const;  // UTF-8
    const std::wstring& toStdWString() const { return mText; }
    const wchar_t* wstr() const { return mText.c_str(); }

    wchar_t operator[](int i) const { return mText[std::size_t(i)]; }
    bool operator<(const TLString& o) const { return mText < o.mText; }

private:
    std::wstring mText;
};

inline bool operator==(const TLString& a, const TLString& b) {
    return a.toStdWString() == b.toStdWString();
}
inline bool operator!=(const TLString& a, const TLString& b) {
    return !(a == b);
}
inline TLString operator+(const char* a, const TLString& b) {
    return TLString(a) + b;
}
std::ostream& operator<<(std::ostream& os, const TLString& s);

// Translates a user text. The host has no catalogue of its own, so the source text comes back.
TLString Trans(const TLString& text);

}  // namespace TMObjects

template <>
struct std::hash<TMObjects::TLString> {
    std::size_t operator()(const TMObjects::TLString& s) const noexcept {
        return std::hash<std::wstring>()(s.toStdWString());
    }
};
