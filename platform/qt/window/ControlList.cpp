#include "platform/qt/window/ControlList.h"

#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <algorithm>

#include "platform/Controls.h"
#include "platform/Keyboard.h"
#include "platform/Text.h"
#include "platform/Thread.h"
#include "platform/qt/controls/RectControlPeer.h"

namespace {

void Follow(RectControl& control, QSize growth) {
    QRect place = control.peer().place;
    if (control.LockRight()) place.setRight(place.right() + growth.width());
    if (control.LockRight() && !control.LockLeft()) place.setLeft(place.left() + growth.width());
    if (control.LockBottom()) place.setBottom(place.bottom() + growth.height());
    if (control.LockBottom() && !control.LockTop()) place.setTop(place.top() + growth.height());
    control.peer().Place(place);
}

}  // namespace

void ControlList::Add(const std::string& name, std::unique_ptr<Control> control) {
    if (auto* seen = dynamic_cast<RectControl*>(control.get())) {
        seen->peer().widget->setObjectName(QString::fromStdString(name));
        seen->peer().widget->setParent(&content_);
    }
    controls_.emplace_back(name, std::move(control));
}

Control* ControlList::Find(const std::string& name) const {
    const auto found = std::ranges::find(controls_, name, &std::pair<std::string, std::unique_ptr<Control>>::first);
    return found == controls_.end() ? nullptr : found->second.get();
}

std::vector<RectControl*> ControlList::RectControls() const {
    std::vector<RectControl*> found;
    for (const auto& [name, control] : controls_) {
        if (auto* seen = dynamic_cast<RectControl*>(control.get())) found.push_back(seen);
    }
    return found;
}

void ControlList::EndWorkers() const {
    for (const auto& [name, control] : controls_) {
        if (auto* thread = dynamic_cast<Thread*>(control.get())) thread->End();
    }
}

// The controls of a group come in the group's place, in an order of their own.
void ControlList::SetTabOrder() const {
    const auto place = [](const RectControl* control) {
        const auto* group = dynamic_cast<GroupBox*>(control->Parent());
        return group ? std::pair(group->TabIndex(), control->TabIndex()) : std::pair(control->TabIndex(), -1);
    };
    std::vector<RectControl*> order = RectControls();
    std::ranges::stable_sort(order, {}, place);
    for (std::size_t i = 1; i < order.size(); ++i)
        QWidget::setTabOrder(order[i - 1]->peer().widget, order[i]->peer().widget);
}

void ControlList::FocusFirstField() const {
    for (RectControl* control : RectControls()) {
        if (!dynamic_cast<EditField*>(control)) continue;
        auto& field = WidgetOf<QLineEdit>(*control);
        field.setFocus();
        field.selectAll();
        return;
    }
}

bool ControlList::PressButton(const std::string& key) const {
    const bool isEscape = key == Chr(Keyboard::kEscape);
    if (!isEscape && key != Chr(Keyboard::kReturn) && key != Chr(Keyboard::kEnter)) return false;
    const QWidget* focused = content_.window()->focusWidget();
    auto* chosen = focused && !isEscape ? dynamic_cast<PushButton*>(ControlOf(*focused)) : nullptr;
    for (RectControl* control : RectControls()) {
        auto* button = dynamic_cast<PushButton*>(control);
        if (!chosen && button && (isEscape ? button->Cancel() : button->Default())) chosen = button;
    }
    if (chosen) WidgetOf<QPushButton>(*chosen).click();
    return chosen != nullptr;
}

void ControlList::FollowEdges(QSize before, QSize after) const {
    for (RectControl* control : RectControls())
        Follow(*control, after - before);
}
