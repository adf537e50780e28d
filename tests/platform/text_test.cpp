#include "platform/Text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <locale>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(ValTest, ReadsTheNumberAtTheBeginning) {
    const std::vector<std::pair<std::string, double>> cases = {
        {"", 0},
        {"abc", 0},
        {"12", 12},
        {"058", 58},
        {" \t12abc", 12},
        {"+5", 5},
        {"-.5", -0.5},
        {"5.", 5},
        {".", 0},
        {"-", 0},
        {"+-5", 0},
        {"1.2.3", 1.2},
        {"1,5", 1},
        {"29.97", 29.97},
        {"1e3", 1000},
        {"1E-2x", .01},
        {"1e", 1},
        {"1e+", 1},
        {"e5", 0},
        {"1 2", 1},
        {"inf", 0},
        {"-Infinity", 0},
        {"nan", 0},
        {"0x10", 0},
        {"1e-999", 0},
        {"1e999", kInfinity},
        {"-1e999", -kInfinity},
        {std::string("1\0002", 3), 1},
        {"\xC2\xBD", 0},
    };
    for (const auto& [text, number] : cases)
        EXPECT_EQ(Val(text), number) << text;
}

TEST(ValTest, ReadsHexadecimalDigits) {
    EXPECT_EQ(Val("&hFF"), 255);
    EXPECT_EQ(Val("&H1a2B3cxyz"), 0x1A2B3C);
    EXPECT_EQ(Val("&hFFFFFFFFFF"), 0xFFFFFFFFFFp0);
    EXPECT_EQ(Val("&h"), 0);
    EXPECT_EQ(Val("&h-1"), 0);
    EXPECT_EQ(Val("&hx1"), 0);
    EXPECT_EQ(Val("&h1p4"), 1);
    EXPECT_EQ(Val("&"), 0);
}

TEST(StrTest, GivesTextThatReadsBackTheSame) {
    EXPECT_EQ(Str(Int32{-42}), "-42");
    EXPECT_EQ(Str(25.0), "25");
    EXPECT_EQ(Str(29.97), "29.97");
    EXPECT_EQ(Str(0.016666666666666), "0.016666666666666");
    EXPECT_EQ(Str(100000.0), "100000");
    for (const double number : {0.1, 1.0 / 3, -123456.789, 1e15, 5e-324, std::numeric_limits<double>::max()}) {
        EXPECT_EQ(Val(Str(number)), number);
    }
}

TEST(FormatTest, FollowsTheMask) {
    const std::vector<std::tuple<double, std::string, std::string>> cases = {
        {5, "00", "05"},
        {60, "00", "60"},
        {123, "00", "123"},
        {0, "00", "00"},
        {-5, "00", "-05"},
        {0, "0", "0"},
        {0, "#", ""},
        {100, "0", "100"},
        {2.5, "0", "3"},
        {-2.5, "0", "-3"},
        {3.5, "0", "4"},
        {-0.4, "0", "0"},
        {99.95, "0", "100"},
        {0.25, "0.0", "0.3"},
        {0.5, "#.00", ".50"},
        {9.96, "0.0", "10.0"},
        {0, "###,##0.0", "0.0"},
        {1234.56, "###,##0.0", "1,234.6"},
        {999999.96, "###,##0.0", "1,000,000.0"},
        {-123456, "###,##0", "-123,456"},
        {123, "#,##0", "123"},
        {7, "0,000", "0,007"},
        {9007199254740993.0, "0.0", "9007199254740992.0"},
    };
    for (const auto& [number, mask, text] : cases)
        EXPECT_EQ(Format(number, mask), text) << number << " as " << mask;
}

TEST(FormatTest, TakesTheLargestNumbersAndWhatIsNone) {
    EXPECT_EQ(Format(std::numeric_limits<double>::max(), "0.00").size(), 309u + 3u);
    EXPECT_EQ(Format(1e22, "###,##0"), "10,000,000,000,000,000,000,000");
    EXPECT_EQ(Format(kInfinity, "###,##0.0"), "inf");
    EXPECT_EQ(Format(-kInfinity, "00"), "-inf");
    EXPECT_EQ(Format(std::nan(""), "00"), "nan");
}

TEST(LocaleTest, OnlyFormatFollowsIt) {
    const char* const german = std::setlocale(LC_ALL, "de_DE.UTF-8");
    if (!german) GTEST_SKIP() << "no German locale on this machine";
    const std::string formatted = Format(1234.56, "###,##0.0");
    const double value = Val("2.5");
    const std::string text = Str(2.5);
    std::setlocale(LC_ALL, "C");
    EXPECT_EQ(formatted, "1.234,6");
    EXPECT_EQ(value, 2.5);
    EXPECT_EQ(text, "2.5");
}

TEST(TextTest, PositionsCountCharacters) {
    const std::string text = "aé€😀z";
    EXPECT_EQ(Len(text), 5);
    EXPECT_EQ(InStr(text, "z"), 5);
    EXPECT_EQ(InStr(4, text, "😀"), 4);
    EXPECT_EQ(InStr(5, text, "😀"), 0);
    EXPECT_EQ(Mid(text, 2, 3), "é€😀");
    EXPECT_EQ(Mid(text, 3), "€😀z");
}

TEST(TextTest, EveryMalformedByteCountsAsOne) {
    EXPECT_EQ(Len("\xFF\xFE"), 2);
    EXPECT_EQ(Len("\x80z"), 2);
    EXPECT_EQ(Len("\xE2\x82"), 2);
    EXPECT_EQ(Len("\xC0\xAF"), 2);
    EXPECT_EQ(Len("\xED\xA0\x80"), 3);
    EXPECT_EQ(Len("\xF5\x80\x80\x80"), 4);
    EXPECT_EQ(Mid("\xC3z", 2), "z");
}

TEST(TextTest, PositionsOutsideTheText) {
    EXPECT_EQ(InStr(0, "abc", "a"), 1);
    EXPECT_EQ(InStr(4, "abc", "c"), 0);
    EXPECT_EQ(InStr(99, "abc", ""), 0);
    EXPECT_EQ(InStr("abc", "abcd"), 0);
    EXPECT_EQ(Mid("abc", 2, 99), "bc");
    EXPECT_EQ(Mid("abc", 4, 1), "");
    EXPECT_EQ(Mid("abc", 99), "");
    EXPECT_EQ(Mid("abc", 2, -1), "");
    const Int32 least = std::numeric_limits<Int32>::min();
    EXPECT_EQ(Mid("abc", least, std::numeric_limits<Int32>::max()), "abc");
}

TEST(TextTest, NthField) {
    EXPECT_EQ(NthField("font size=\"14\"", "\"", 2), "14");
    EXPECT_EQ(NthField("a,,c", ",", 2), "");
    EXPECT_EQ(NthField("a,,c", ",", 3), "c");
    EXPECT_EQ(NthField("a,,c", ",", 4), "");
    EXPECT_EQ(NthField("abc", " ", 1), "abc");
    EXPECT_EQ(NthField("abc", "", 1), "abc");
    EXPECT_EQ(NthField("abc", "", 2), "");
    EXPECT_EQ(NthField("abc", " ", 0), "");
}

TEST(TextTest, ReplaceHexChr) {
    EXPECT_EQ(Replace("a.b.c", ".", "--"), "a--b.c");
    EXPECT_EQ(Replace("abc", "", "x"), "abc");
    EXPECT_EQ(Hex(0), "0");
    EXPECT_EQ(Hex(0xFF00AB), "FF00AB");
    EXPECT_EQ(Hex(-1), "FFFFFFFF");
    EXPECT_EQ(Chr(13), "\r");
    EXPECT_EQ(Chr(0xE9), "é");
    EXPECT_EQ(Chr(0x20AC), "€");
    EXPECT_EQ(Chr(0x1F600), "😀");
    EXPECT_EQ(Chr(0xD800), "");
    EXPECT_EQ(Chr(-1), "");
}

}  // namespace
