#include "shell/markup.h"

#include <gtest/gtest.h>

#include <string>

namespace {

/// The runs as text: each in brackets, before it a letter for bold and one for italic, behind it the size if it
/// isn't 12.
std::string Styled(std::string_view markup) {
    std::string result;
    for (const auto& [text, style] : ParseMarkup(markup, 12)) {
        result += (style.isBold ? "b[" : "[");
        if (style.isItalic) result.insert(result.size() - 1, "i");
        result += text + "]" + (style.size == 12 ? "" : std::to_string(style.size));
    }
    return result;
}

TEST(MarkupTest, EachTagAppliesToAllThatFollows) {
    const std::pair<const char*, const char*> rows[] = {
        {"<b><font size=\"14\">Title</font></b>\rText", "b[Title]14[\rText]"},
        {"a<i>b<b>c</i>d</b>e", "[a]i[b]bi[c]b[d][e]"},
        {"<b>a<b>b</b>c</b>d", "b[ab][cd]"},
        {"<b>a<b>b", "b[ab]"},
        {"<font size=\"14\">a<font size=\"10\">b</font>c</font>d", "[a]14[b]10[cd]14"},
        {"a</font>b", "[a][b]0"},
        {"<font>a<font size=10>b</font>c", "[abc]0"},
        {"<font name=\"9.9pt\" size=\"14\">a", "[a]9"},
        {"<font size=\"x\">a<font size=\"-3\">b", "[a]0[b]-3"},
        {"<font size=\"1e99\">a", "[a]2147483647"},
        {"a<u>b</u>c<>d<B>e<bold>f< b>g", "[abcdefg]"},
        {"<b one two>a<i\rx>b</b x>c", "b[ab][c]"},
        {"1 < 2, 3 > 2<b>!", "[1  2]b[!]"},
        {"<<b>>a", "[>a]"},
        {"a > b <i>é€😀</i>", "[a > b ]i[é€😀]"},
        {"a<b>", "[a]"},
        {"<b></b><i></i>", ""},
        {"", ""},
    };
    for (const auto& [markup, styled] : rows)
        EXPECT_EQ(Styled(markup), styled) << markup;
}

TEST(MarkupTest, ATagThatIsNeverClosedIsTheEnd) {
    EXPECT_EQ(Styled("<"), "[<]");
    EXPECT_EQ(Styled("> <b>a<i"), "[> ]b[a<i]");
    EXPECT_EQ(Styled("<i>a</i>b<font size=\"14\"<b"), "i[a][b<font size=\"14\"<b]");
}

}  // namespace
