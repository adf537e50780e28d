#include "platform/qt/window/ControlList.h"

#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <algorithm>

#include "platform/Controls.h"
#include "platform/Keyboard.h"
#include "platform/Text.h"
#include "platform/Thread.h"
#include "platform/qt/controls/RectControlPeer.h"
#include "platform/qt/drawing/Styles.h"

void ControlList::Add(const std::string& name, std::unique_ptr<Control> control) {
    if (auto* seen = dynamic_cast<RectControl*>(control.get())) {
        seen->peer().widget->setObjectName(ToQString(name));
        seen->peer().widget->setParent(&content_);
    }
    controls_.emplace_back(name, std::move(control));
}

Control* ControlList::Find(const std::string& name) const {
    const auto found = std::ranges::find(controls_, name, &Entry::first);
    return found == controls_.end() ? nullptr : found->second.get();
}

void ControlList::EndWorkers() const {
    for (Thread* thread : All<Thread>())
        thread->End();
}

// In the tab order, the controls of a group follow the group, sorted by their own tab indices.
void ControlList::SetTabOrder() const {
    const auto place = [](const RectControl* control) {
        const auto* group = dynamic_cast<GroupBox*>(control->Parent());
        return group ? std::pair(group->TabIndex(), control->TabIndex()) : std::pair(control->TabIndex(), -1);
    };
    std::vector<RectControl*> order = All<RectControl>();
    std::ranges::stable_sort(order, {}, place);
    for (std::size_t i = 1; i < order.size(); ++i)
        QWidget::setTabOrder(order[i - 1]->peer().widget, order[i]->peer().widget);
}

void ControlList::FocusFirstField() const {
    const std::vector<EditField*> fields = All<EditField>();
    if (fields.empty()) return;
    auto& first = WidgetOf<QLineEdit>(*fields.front());
    first.setFocus();
    first.selectAll();
}

bool ControlList::PressButton(const std::string& key) const {
    const bool isEscape = key == Chr(Keyboard::kEscape);
    if (!isEscape && key != Chr(Keyboard::kReturn) && key != Chr(Keyboard::kEnter)) return false;
    const QWidget* focused = content_.window()->focusWidget();
    auto* chosen = focused && !isEscape ? dynamic_cast<PushButton*>(ControlOf(*focused)) : nullptr;
    for (PushButton* button : All<PushButton>()) {
        if (!chosen && (isEscape ? button->Cancel() : button->Default())) chosen = button;
    }
    if (chosen) WidgetOf<QPushButton>(*chosen).click();
    return chosen != nullptr;
}

void ControlList::FollowEdges(QSize before, QSize after) const {
    const int right = after.width() - before.width();
    const int down = after.height() - before.height();
    for (RectControl* control : All<RectControl>()) {
        QRect place = control->peer().place;
        if (control->LockRight()) place.setRight(place.right() + right);
        if (control->LockRight() && !control->LockLeft()) place.setLeft(place.left() + right);
        if (control->LockBottom()) place.setBottom(place.bottom() + down);
        if (control->LockBottom() && !control->LockTop()) place.setTop(place.top() + down);
        control->peer().Place(place);
    }
}
