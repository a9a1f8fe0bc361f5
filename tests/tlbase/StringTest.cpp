#include <gtest/gtest.h>

#include <cfloat>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "tlbase/TLString.h"

using TMObjects::TLString;

namespace {

std::vector<std::string> texts(const std::vector<TLString>& parts) {
    std::vector<std::string> out;
    for (const auto& part : parts) out.push_back(part.toStdString());
    return out;
}

// The significant digits of a number's text: no sign, point, exponent, nor leading and trailing
// zeros.
int significantDigits(const std::string& text) {
    std::string digits;
    for (char c : text.substr(0, text.find('e')))
        if (c >= '0' && c <= '9') digits += c;
    const auto first = digits.find_first_not_of('0');
    if (first == std::string::npos) return 1;
    return int(digits.find_last_not_of('0') - first + 1);
}

// The fewest significant digits with which the double reads back.
int fewestDigits(double v) {
    char buffer[64];
    for (int precision = 1; precision < 17; ++precision) {
        std::snprintf(buffer, sizeof buffer, "%.*e", precision - 1, v);
        if (std::strtod(buffer, nullptr) == v) return precision;
    }
    return 17;
}

}  // namespace

TEST(TLString, Utf8RoundTripCountsWideCharacters) {
    const std::string utf8 = "Grüße, 東京 🌍";
    const TLString s(utf8);
    EXPECT_EQ(s.length(), 11);
    EXPECT_EQ(s[2], L'ü');
    EXPECT_EQ(s[10], L'\U0001F30D');
    EXPECT_EQ(s.toStdString(), utf8);
    EXPECT_EQ(TLString(s.toStdWString()), s);
    EXPECT_EQ(TLString(L"Grüße").toStdString(), "Grüße");
    // A broken sequence becomes the replacement character; nothing after it is lost.
    EXPECT_EQ(TLString("a\xC3(b").toStdWString(), L"a\uFFFD(b");
    EXPECT_EQ(TLString(static_cast<const char*>(nullptr)).length(), 0);
}

TEST(TLString, CompareAndSearch) {
    EXPECT_EQ(TLString("Hello").CompareNoCase("hELLO"), 0);
    EXPECT_EQ(TLString("e").CompareNoCase(TLString("E")), 0);
    EXPECT_EQ(TLString("abc").CompareNoCase("ABD"), -1);
    EXPECT_EQ(TLString("b").CompareNoCase("A"), 1);
    EXPECT_EQ(TLString("a").compareTo("B"), 1);  // case counts here
    EXPECT_TRUE(TLString("abc") != TLString("ABC"));

    const TLString s("one,two,one");
    EXPECT_EQ(s.Find("one"), 0);
    EXPECT_EQ(s.Find("one", 1), 8);
    EXPECT_EQ(s.Find(L','), 3);
    EXPECT_EQ(s.Find("one", 11), -1);
    EXPECT_EQ(s.Find("one", 12), -1);
    EXPECT_EQ(s.Find("one", -1), -1);
    EXPECT_EQ(s.ReverseFind(L','), 7);
    EXPECT_EQ(s.ReverseFind("one"), 8);
    EXPECT_EQ(s.indexOf("two"), 4);
    EXPECT_EQ(s.Find("three"), -1);
    EXPECT_TRUE(s.Contains("two"));
    EXPECT_TRUE(s.startsWith("one,"));
    EXPECT_FALSE(s.startsWith("one,two,one,"));
    EXPECT_TRUE(s.endsWith(",one"));
    EXPECT_FALSE(TLString("ne").endsWith("one"));
}

TEST(TLString, CuttingClampsIndexesInsteadOfFailing) {
    const TLString s("abcdef");
    EXPECT_EQ(s.Left(2), TLString("ab"));
    EXPECT_EQ(s.Left(-1), TLString(""));
    EXPECT_EQ(s.Left(99), s);
    EXPECT_EQ(s.Right(2), TLString("ef"));
    EXPECT_EQ(s.Right(99), s);
    EXPECT_EQ(s.Mid(4), TLString("ef"));
    EXPECT_EQ(s.Mid(-3), s);
    EXPECT_EQ(s.Mid(99), TLString(""));
    EXPECT_EQ(s.Mid(2, 2), TLString("cd"));
    EXPECT_EQ(s.Mid(4, 99), TLString("ef"));
    EXPECT_EQ(s.Mid(2, -1), TLString(""));
    EXPECT_EQ(s.substring(1, 3), TLString("bc"));
    EXPECT_EQ(s.substring(-5, 2), TLString("ab"));
    EXPECT_EQ(s.substring(4, 99), TLString("ef"));
    EXPECT_EQ(s.substring(3, 1), TLString(""));

    EXPECT_EQ(TLString(" \t x y \r\n").trim(), TLString("x y"));
    EXPECT_EQ(TLString(" \t ").trim(), TLString(""));
    EXPECT_EQ(TLString("x").trim(), TLString("x"));

    EXPECT_EQ(texts(TLString("a,,b,").split(L',')), (std::vector<std::string>{"a", "", "b", ""}));
    EXPECT_EQ(texts(TLString("1::2::3").split(TLString("::"))),
              (std::vector<std::string>{"1", "2", "3"}));
    EXPECT_EQ(texts(TLString("").split(L',')), (std::vector<std::string>{""}));
    EXPECT_EQ(texts(TLString("a,b").split(TLString(""))), (std::vector<std::string>{"a,b"}));
}

TEST(TLString, ReplaceAndCase) {
    TLString s("aaa");
    EXPECT_EQ(s.Replace("a", "aa"), 3);  // replacements are not scanned again
    EXPECT_EQ(s, TLString("aaaaaa"));
    EXPECT_EQ(s.Replace("", "x"), 0);
    TLString path("C:\\data\\roads.shp");
    EXPECT_EQ(path.Replace("\\", "/"), 2);
    EXPECT_EQ(path, TLString("C:/data/roads.shp"));
    EXPECT_EQ(TLString("MixEd").ToLower(), TLString("mixed"));
    EXPECT_EQ(TLString("MixEd").ToUpper(), TLString("MIXED"));
    TLString joined = TLString("a") + "b";
    joined += TLString("c");
    EXPECT_EQ(joined, TLString("abc"));
    EXPECT_EQ("x" + TLString("y"), TLString("xy"));
}

TEST(TLString, FormatBothOverloads) {
    TLString s;
    EXPECT_EQ(s.Format("%d-%s-%.2f", 5, "ü", 1.5), TLString("5-ü-1.50"));
    EXPECT_EQ(s.length(), 8);
    EXPECT_EQ(s.Format(L"%ls=%d", L"東京", 42), TLString("東京=42"));
    EXPECT_EQ(s.Format("%s", ""), TLString(""));
    // Longer than any first guess of the buffer.
    const std::wstring wide(1000, L'w');
    EXPECT_EQ(s.Format(L"[%ls]", wide.c_str()).length(), 1002);
    const std::string narrow(5000, 'n');
    EXPECT_EQ(s.Format("%s!", narrow.c_str()).length(), 5001);
}

TEST(TLString, NumbersFromTextAndJunk) {
    EXPECT_EQ(TLString("3.25").ToDouble(), 3.25);
    EXPECT_EQ(TLString("  -1.5e3").ToDouble(), -1500);
    EXPECT_EQ(TLString("abc").ToDouble(), 0);
    EXPECT_EQ(TLString("").ToDouble(), 0);
    EXPECT_EQ(TLString("-").ToDouble(), 0);
    EXPECT_EQ(TLString("1e999").ToDouble(), 0);      // out of range
    EXPECT_EQ(TLString(" +2.5 m").ToDouble(), 2.5);  // the leading number, sign and blanks allowed
    EXPECT_EQ(TLString("12abc").ToInt(), 12);
    EXPECT_EQ(TLString("42").ToInt(), 42);
    EXPECT_EQ(TLString(" -7").ToInt(), -7);
    EXPECT_EQ(TLString("7.9").ToInt(), 7);
    EXPECT_EQ(TLString("x1").ToInt(), 0);
    EXPECT_EQ(TLString("").ToInt(), 0);
    EXPECT_EQ(TLString("99999999999").ToInt(), 0);  // out of range
}

TEST(TLString, NumberIsTheShortestTextThatReadsBack) {
    EXPECT_EQ(TLString::Number(100.0), TLString("100"));
    EXPECT_EQ(TLString::Number(0.1), TLString("0.1"));
    EXPECT_EQ(TLString::Number(0.1 + 0.2), TLString("0.30000000000000004"));
    EXPECT_EQ(TLString::Number(-2.5), TLString("-2.5"));
    EXPECT_EQ(TLString::Number(0.0), TLString("0"));
    EXPECT_EQ(TLString::Number(123456789012.0), TLString("123456789012"));
    EXPECT_EQ(TLString::Number(0.00001), TLString("0.00001"));
    EXPECT_EQ(TLString::Number(1e-7), TLString("1e-07"));
    EXPECT_EQ(TLString::Number(1e21), TLString("1e+21"));
    EXPECT_EQ(TLString::Number(7), TLString("7"));
    for (double v : {1.0 / 3.0, -2.0 / 7.0, 512345.678, 1e-300, 5e-324, DBL_MAX, -DBL_MIN,
                     4503599627370497.0, 1e16 + 2, 3e-5}) {
        const std::string text = TLString::Number(v).toStdString();
        EXPECT_EQ(std::strtod(text.c_str(), nullptr), v) << text;
        EXPECT_EQ(significantDigits(text), fewestDigits(v)) << text;
    }
}
