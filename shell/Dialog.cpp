#include "shell/Dialog.h"

#include "platform/Text.h"

StaticText& Dialog::AddLabel(const std::string& name, const std::string& text, Int32 left, Int32 top, Int32 width,
                             Int32 height, Int32 tabIndex) {
    auto& label = AddControl<StaticText>(name, left, top, width, height, tabIndex);
    label.Text(text);
    return label;
}

EditField& Dialog::AddField(const std::string& name, const std::string& text, Int32 left, Int32 top, Int32 width,
                            Int32 tabIndex) {
    constexpr Int32 kHeight = 22;
    auto& field = AddControl<EditField>(name, left, top, width, kHeight, tabIndex);
    field.Text(text);
    field.Alignment(TextAlignment::Centre);
    field.TextColor(RGB(0, 0, 0));
    field.BackColor(RGB(255, 255, 255));
    return field;
}

PushButton& Dialog::AddButton(const std::string& name, const std::string& caption, Int32 left, Int32 top, Int32 width,
                              Int32 height, Int32 tabIndex, const std::function<void()>& action) {
    auto& button = AddControl<PushButton>(name, left, top, width, height, tabIndex);
    button.Caption(caption);
    button.Action = action;
    return button;
}

KeyVerdict JudgeKey(EditField& field, const std::string& key, Int32 highest) {
    if (key < " " || key > "~") return KeyVerdict::ToField;
    if (key < "0" || key > "9") return KeyVerdict::Swallowed;
    const std::string saved = field.Text();
    field.SelText("");
    const double value = Val(field.Text() + key);
    if (value >= 0 && value <= highest) return KeyVerdict::ToField;
    field.Text(saved);
    return KeyVerdict::Refused;
}
