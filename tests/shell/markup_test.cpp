#include "shell/InformationWindow.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(MarkupTest, EachTagAppliesToAllThatFollows) {
    const TextStyle plain{false, false, 12}, bold{true, false, 12}, italic{false, true, 12}, both{true, true, 12},
        large{false, false, 14}, none{false, false, 0};
    const std::pair<const char*, StyledText> rows[] = {
        {"<b><font size=\"14\">Title</font></b>\rText", {{"Title", {true, false, 14}}, {"\rText", plain}}},
        {"a<i>b<b>c</i>d</b>e", {{"a", plain}, {"b", italic}, {"c", both}, {"d", bold}, {"e", plain}}},
        {"<b>a<b>b</b>c</b>d", {{"ab", bold}, {"cd", plain}}},
        {"<font size=\"14\">a<font size=\"10\">b</font>c</font>d",
         {{"a", large}, {"b", {false, false, 10}}, {"cd", large}}},
        {"a</font>b", {{"a", plain}, {"b", none}}},
        {"<font size=10>b", {{"b", none}}},
        {"<font name=\"9.9pt\" size=\"14\">a", {{"a", {false, false, 9}}}},
        {"a<u>b</u>c<>d<B>e<bold>f< b>g<b one two>h", {{"abcdefg", plain}, {"h", bold}}},
        {"1 < 2, 3 > 2", {{"1  2", plain}}},
        {"a > b <i>é€😀</i>", {{"a > b ", plain}, {"é€😀", italic}}},
        // A tag that is never closed is text.
        {"> <b>a<i", {{"> ", plain}, {"a<i", bold}}},
    };
    for (const auto& [markup, runs] : rows)
        EXPECT_EQ(ParseMarkup(markup, 12), runs) << markup;
}

}  // namespace
