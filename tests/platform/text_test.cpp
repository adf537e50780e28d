#include "platform/Text.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "platform/Variant.h"

namespace {

constexpr double kLargest = std::numeric_limits<double>::max();

TEST(TextTest, ValReadsTheNumberAtTheBeginning) {
    EXPECT_EQ(Val(" \t+12abc"), 12);
    EXPECT_EQ(Val("-.5.2"), -0.5);
    EXPECT_EQ(Val("1E-2x"), 0.01);
    EXPECT_EQ(Str(Val("-1e999")), "-inf");
    EXPECT_EQ(Val("&H1a2B3cxyz"), 0x1A2B3C);
    for (const char* text : {"", "abc", ".", "+-5", "e5", "inf", "nan", "½", "1e-999", "&h", "&h-1", "0x10"})
        EXPECT_EQ(Val(text), 0) << text;
}

TEST(TextTest, StrGivesTextThatReadsBackTheSame) {
    EXPECT_EQ(Str(100000.0), "100000");
    EXPECT_EQ(Str(1e-5), "0.00001");
    for (const double number : {0.016666666666666, -123456.789, 5e-324, kLargest})
        EXPECT_EQ(Val(Str(number)), number);
}

TEST(TextTest, FormatPadsGroupsAndRoundsAnyNumber) {
    EXPECT_EQ(Format(-5, "00"), "-05");
    EXPECT_EQ(Format(0, "#"), "");
    EXPECT_EQ(Format(-0.4, "0"), "0");
    EXPECT_EQ(Format(0.25, "0.0"), "0.3");
    EXPECT_EQ(Format(999999.96, "###,##0.0"), "1,000,000.0");
    EXPECT_EQ(Format(Val("1e999"), "###,##0.0"), "inf");
    EXPECT_EQ(Format(kLargest, "0.00").size(), 309u + 3u);
}

TEST(TextTest, PiecesAreCutAndMade) {
    EXPECT_EQ(NthField("a--b--", "--", 2) + NthField("a--b--", "--", 3), "b");
    EXPECT_EQ(Replace("a.b.c", ".", "--"), "a--b.c");
}

TEST(VariantTest, OnlySixDigitsAreAColor) {
    EXPECT_EQ(Variant("#fFa001").ColorValue(), Color{0xFFA001});
    for (const char* text : {"#", "#FFFFFFF", "##FFFFF", "-12345", "0xFFFF", "#GGGGGG"})
        EXPECT_EQ(Variant(text).ColorValue(), Color{}) << text;
}

}  // namespace
