#include "shell/digit_filter.h"

#include "platform/Controls.h"
#include "platform/Text.h"

namespace {

bool IsPrintable(const std::string& key) { return key >= " " && key <= "~"; }
bool IsDigit(const std::string& key) { return key >= "0" && key <= "9"; }

}  // namespace

KeyVerdict JudgeKey(EditField& field, const std::string& key, Int32 highest) {
    if (!IsPrintable(key)) return KeyVerdict::ToField;
    if (!IsDigit(key)) return KeyVerdict::Swallowed;
    const std::string saved = field.Text();
    field.SelText("");
    const double value = Val(field.Text() + key);
    if (value >= 0 && value <= highest) return KeyVerdict::ToField;
    field.Text(saved);
    return KeyVerdict::Refused;
}
