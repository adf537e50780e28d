#include "shell/InformationWindow.h"

#include <utility>

#include "platform/Keyboard.h"
#include "platform/Text.h"

namespace {

/// Applies a tag, given without its brackets, to `style`. `sizeBefore` is the size before the latest <font>.
void ApplyTag(const std::string& tag, TextStyle& style, Int32& sizeBefore) {
    const std::string key = NthField(tag, " ", 1);
    if (key == "b" || key == "/b") {
        style.isBold = key == "b";
    } else if (key == "i" || key == "/i") {
        style.isItalic = key == "i";
    } else if (key == "font") {
        sizeBefore = std::exchange(style.size, ToInt32(Val(NthField(tag, "\"", 2))));
    } else if (key == "/font") {
        style.size = sizeBefore;
    }
}

void Append(StyledText& runs, std::string_view text, const TextStyle& style) {
    if (text.empty()) return;
    if (runs.empty() || runs.back().style != style) runs.push_back({"", style});
    runs.back().text += text;
}

}  // namespace

bool InformationWindow::Event_KeyDown(const std::string& key) {
    if (key != Chr(Keyboard::kEscape)) return false;
    Close();
    return true;
}

StyledTextField& InformationWindow::AddTextView(const std::string& name, Int32 left, Int32 top, Int32 width,
                                                Int32 height, Int32 tabIndex) {
    auto& textView = AddControl<StyledTextField>(name, left, top, width, height, tabIndex);
    textView.LockLeft(true);
    textView.LockTop(true);
    textView.LockRight(true);
    textView.LockBottom(true);
    textView.TextSize(12);
    return textView;
}

StyledText ParseMarkup(std::string_view markup, Int32 baseSize) {
    constexpr std::size_t kNone = std::string_view::npos;
    StyledText runs;
    TextStyle style{false, false, baseSize};
    Int32 sizeBefore = 0;
    while (true) {
        const std::size_t open = markup.find('<');
        const std::size_t close = markup.find('>', open);
        if (open == kNone || close == kNone) break;
        Append(runs, markup.substr(0, open), style);
        ApplyTag(std::string(markup.substr(open + 1, close - open - 1)), style, sizeBefore);
        markup.remove_prefix(close + 1);
    }
    Append(runs, markup, style);
    return runs;
}
