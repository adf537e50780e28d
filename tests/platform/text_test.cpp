#include "platform/Text.h"

#include <gtest/gtest.h>
#include <locale.h>

static std::string decimalSeparator = ".", groupSeparator;

// In place of the C library's, since a machine may have no other locale than "C".
lconv* localeconv() noexcept {
    static lconv separators;
    separators.decimal_point = decimalSeparator.data();
    separators.thousands_sep = groupSeparator.data();
    return &separators;
}

namespace {

TEST(TextTest, ValReadsTheNumberAtTheBeginningAndStrWritesIt) {
    EXPECT_EQ(Val(" \t+12abc"), 12);
    EXPECT_EQ(Val("-.5.2"), -0.5);
    EXPECT_EQ(Val("1E-2x"), 0.01);
    EXPECT_EQ(Val("&H1a2B3cxyz"), 0x1A2B3C);
    for (const char* text : {"", ".", "+-5", "e5", "inf", "nan", "½", "1e-999", "&h-1", "0x10"})
        EXPECT_EQ(Val(text), 0) << text;
    EXPECT_EQ(Str(100000.0) + Str(1e-5) + Str(Val("-1e999")), "1000000.00001-inf");
    for (const double number : {0.016666666666666, -123456.789, 5e-324, std::numeric_limits<double>::max()})
        EXPECT_EQ(Val(Str(number)), number);
}

TEST(TextTest, SeparatorsAreThoseOfTheLocale) {
    for (const auto& [decimal, group, formatted] :
         {std::tuple(".", "", "-1,234,567.9"), {",", ".", "-1.234.567,9"}, {"٫", "٬", "-1٬234٬567٫9"}}) {
        decimalSeparator = decimal;
        groupSeparator = group;
        EXPECT_EQ(Format(-1234567.85, "###,##0.0"), formatted);
        EXPECT_EQ(Val(std::string("5") + decimal + "e3"), decimalSeparator == "." ? 5000 : 5);
        const std::pair<const char*, double> rows[] = {{"0,5 a second", 0.5}, {"-,25e1", -2.5}, {"0.5", 0.5},
                                                       {"1.234,5", 1.234},    {"1,", 1},        {"&hf,f", 15}};
        for (const auto& [text, number] : rows)
            EXPECT_EQ(Val(Replace(text, ",", decimal)), number) << text;
    }
}

}  // namespace
