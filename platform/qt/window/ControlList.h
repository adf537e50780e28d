#pragma once

#include <QtWidgets/QWidget>
#include <utility>
#include <vector>

#include "platform/Control.h"

/// Owns a window's controls and manages their tab order, their layout and the keys that press buttons.
class ControlList {
  public:
    /// `content` is the area of the window that contains the controls.
    explicit ControlList(QWidget& content) : content_(content) {}

    void Add(const std::string& name, std::unique_ptr<Control> control);
    /// Returns the control with that name; nil if there is none.
    Control* Find(const std::string& name) const;
    /// Returns the controls of class C, in the order in which they were added.
    template <class C>
    std::vector<C*> All() const {
        std::vector<C*> found;
        for (const auto& [name, control] : controls_) {
            if (auto* match = dynamic_cast<C*>(control.get())) found.push_back(match);
        }
        return found;
    }

    /// Ends the window's workers, each at its next yield, and waits for them.
    void EndWorkers() const;
    void SetTabOrder() const;
    void FocusFirstField() const;
    /// Presses the cancel button for Escape, and the focused or else the default button for Return and Enter.
    /// Returns false if there is no such button or `key` is another key.
    bool PressButton(const std::string& key) const;
    void FollowEdges(QSize before, QSize after) const;

  private:
    using Entry = std::pair<std::string, std::unique_ptr<Control>>;

    QWidget& content_;
    std::vector<Entry> controls_;
};
