#include "shell/InformationWindow.h"

#include "platform/Keyboard.h"
#include "platform/Text.h"

namespace {

/// Writes runs in the style that the tags so far have made.
class Writer {
  public:
    explicit Writer(Int32 baseSize) { style_.size = baseSize; }

    void Write(std::string_view text) {
        if (text.empty()) return;
        if (runs_.empty() || runs_.back().style != style_) runs_.push_back({"", style_});
        runs_.back().text += text;
    }

    /// `tag` comes without its brackets.
    void Obey(const std::string& tag) {
        const std::string key = NthField(tag, " ", 1);
        if (key == "b" || key == "/b") {
            style_.isBold = key == "b";
        } else if (key == "i" || key == "/i") {
            style_.isItalic = key == "i";
        } else if (key == "font") {
            rememberedSize_ = style_.size;
            style_.size = ToInt32(Val(NthField(tag, "\"", 2)));
        } else if (key == "/font") {
            style_.size = rememberedSize_;
        }
    }

    const StyledText& Runs() const { return runs_; }

  private:
    TextStyle style_;
    Int32 rememberedSize_ = 0;
    StyledText runs_;
};

}  // namespace

bool InformationWindow::Event_KeyDown(const std::string& key) {
    if (key != Chr(Keyboard::kEscape)) return false;
    Close();
    return true;
}

StyledTextField& InformationWindow::AddReader(const std::string& name, Int32 left, Int32 top, Int32 width, Int32 height,
                                              Int32 tabIndex) {
    auto& reader = AddControl<StyledTextField>(name, left, top, width, height, tabIndex);
    reader.LockLeft(true);
    reader.LockTop(true);
    reader.LockRight(true);
    reader.LockBottom(true);
    reader.TextSize(12);
    return reader;
}

StyledText ParseMarkup(std::string_view markup, Int32 baseSize) {
    constexpr std::size_t kNone = std::string_view::npos;
    Writer writer(baseSize);
    while (true) {
        const std::size_t open = markup.find('<');
        const std::size_t close = markup.find('>', open);
        if (open == kNone || close == kNone) break;
        writer.Write(markup.substr(0, open));
        writer.Obey(std::string(markup.substr(open + 1, close - open - 1)));
        markup.remove_prefix(close + 1);
    }
    writer.Write(markup);
    return writer.Runs();
}
