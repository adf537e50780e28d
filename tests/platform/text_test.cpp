#include "platform/Text.h"

#include <gtest/gtest.h>
#include <locale.h>

#include <cmath>
#include <limits>
#include <string>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kLargest = std::numeric_limits<double>::max();

/// A locale that holds until the end of a test.
struct ScopedLocale {
    explicit ScopedLocale(const char* name) : before(setlocale(LC_ALL, nullptr)), exists(setlocale(LC_ALL, name)) {}
    ~ScopedLocale() { setlocale(LC_ALL, before.c_str()); }

    const std::string before;
    const bool exists;
};

TEST(ValTest, ReadsTheNumberAtTheBeginning) {
    EXPECT_EQ(Val("058"), 58);
    EXPECT_EQ(Val(" \t12abc"), 12);
    EXPECT_EQ(Val("+5"), 5);
    EXPECT_EQ(Val("-.5"), -0.5);
    EXPECT_EQ(Val("5."), 5);
    EXPECT_EQ(Val("1.2.3"), 1.2);
    EXPECT_EQ(Val("1,5"), 1);
    EXPECT_EQ(Val("1E-2x"), 0.01);
    EXPECT_EQ(Val("1e"), 1);
    EXPECT_EQ(Val("-1e999"), -kInfinity);
    for (const char* text : {"", "abc", ".", "-", "+-5", "e5", "inf", "-Infinity", "nan", "0x10", "½", "1e-999"}) {
        EXPECT_EQ(Val(text), 0) << text;
    }
}

TEST(ValTest, ReadsHexadecimalDigits) {
    EXPECT_EQ(Val("&hFF"), 255);
    EXPECT_EQ(Val("&H1a2B3cxyz"), 0x1A2B3C);
    EXPECT_EQ(Val("&hFFFFFFFFFF"), 0xFFFFFFFFFFp0);
    for (const char* text : {"&", "&h", "&h-1", "&hx1", "-&hFF"})
        EXPECT_EQ(Val(text), 0) << text;
}

TEST(StrTest, GivesTextThatReadsBackTheSame) {
    EXPECT_EQ(Str(Int32{-42}), "-42");
    EXPECT_EQ(Str(0.016666666666666), "0.016666666666666");
    EXPECT_EQ(Str(100000.0), "100000");
    for (const double number : {0.1, 1.0 / 3, -123456.789, 1e15, 5e-324, kLargest}) {
        EXPECT_EQ(Val(Str(number)), number);
    }
}

TEST(FormatTest, PadsGroupsAndRounds) {
    const ScopedLocale plain("C");
    EXPECT_EQ(Format(5, "00"), "05");
    EXPECT_EQ(Format(-5, "00"), "-05");
    EXPECT_EQ(Format(0, "#"), "");
    EXPECT_EQ(Format(2.5, "0"), "3");
    EXPECT_EQ(Format(-2.5, "0"), "-3");
    EXPECT_EQ(Format(-0.4, "0"), "0");
    EXPECT_EQ(Format(0.25, "0.0"), "0.3");
    EXPECT_EQ(Format(0, "###,##0.0"), "0.0");
    EXPECT_EQ(Format(1234.56, "###,##0.0"), "1,234.6");
    EXPECT_EQ(Format(999999.96, "###,##0.0"), "1,000,000.0");
    EXPECT_EQ(Format(-123456, "###,##0"), "-123,456");
}

TEST(FormatTest, TakesEveryNumber) {
    const ScopedLocale plain("C");
    EXPECT_EQ(Format(9007199254740994.0, "0.0"), "9007199254740994.0");
    EXPECT_EQ(Format(kLargest, "0.00").size(), 309u + 3u);
    EXPECT_EQ(Format(kInfinity, "###,##0.0"), "inf");
    EXPECT_EQ(Format(-kInfinity, "00"), "-inf");
    EXPECT_EQ(Format(std::nan(""), "00"), "nan");
}

TEST(LocaleTest, OnlyFormatFollowsIt) {
    const ScopedLocale german("de_DE.UTF-8");
    if (!german.exists) GTEST_SKIP() << "no German locale on this machine";
    EXPECT_EQ(Format(1234.56, "###,##0.0"), "1.234,6");
    EXPECT_EQ(Val("2.5"), 2.5);
    EXPECT_EQ(Str(2.5), "2.5");
}

TEST(PositionTest, CountsCharacters) {
    const std::string text = "aé€😀z";
    EXPECT_EQ(Len(text), 5);
    EXPECT_EQ(InStr(text, "z"), 5);
    EXPECT_EQ(InStr(4, text, "😀"), 4);
    EXPECT_EQ(InStr(5, text, "😀"), 0);
    EXPECT_EQ(Mid(text, 2, 3), "é€😀");
}

TEST(PositionTest, CountsEveryMalformedByte) {
    for (const char* text : {"\xFF\xFE", "\x80z", "\xE2\x82", "\xC0\xAF"})
        EXPECT_EQ(Len(text), 2);
    EXPECT_EQ(Len("\xED\xA0\x80"), 3);
    EXPECT_EQ(Len("\xF5\x80\x80\x80"), 4);
    EXPECT_EQ(Mid("\xC3z", 2), "z");
}

TEST(PositionTest, MayLieOutsideTheText) {
    EXPECT_EQ(InStr(0, "abc", "a"), 1);
    EXPECT_EQ(InStr(4, "abc", "c"), 0);
    EXPECT_EQ(InStr(99, "abc", ""), 0);
    EXPECT_EQ(Mid("abc", 2, 99), "bc");
    EXPECT_EQ(Mid("abc", 99), "");
    EXPECT_EQ(Mid("abc", 2, -1), "");
    EXPECT_EQ(Mid("abc", std::numeric_limits<Int32>::min(), std::numeric_limits<Int32>::max()), "abc");
}

TEST(TextTest, CutsAtSeparators) {
    EXPECT_EQ(NthField("font size=\"14\"", "\"", 2), "14");
    EXPECT_EQ(NthField("a--b--", "--", 3), "");
    EXPECT_EQ(NthField("a,,c", ",", 4), "");
    EXPECT_EQ(NthField("abc", "", 2), "");
}

TEST(TextTest, MakesText) {
    EXPECT_EQ(Replace("a.b.c", ".", "--"), "a--b.c");
    EXPECT_EQ(Hex(0xFF00AB), "FF00AB");
    EXPECT_EQ(Hex(-1), "FFFFFFFF");
    EXPECT_EQ(Chr(0xE9) + Chr(0x20AC) + Chr(0x1F600), "é€😀");
    EXPECT_EQ(Chr(0xD800) + Chr(0x110000) + Chr(-1), "");
}

}  // namespace
