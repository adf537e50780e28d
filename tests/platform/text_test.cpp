#include "platform/Text.h"

#include <gtest/gtest.h>

#include <limits>

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

}  // namespace
