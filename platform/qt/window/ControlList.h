#pragma once

#include <QtWidgets/QWidget>
#include <utility>
#include <vector>

#include "platform/Control.h"

/// Owns the controls of one window, and does what concerns several of them: the tab order, the keys that
/// press buttons, the edges that follow those of the window.
class ControlList {
  public:
    /// `content` is the area of the window that they lie in.
    explicit ControlList(QWidget& content) : content_(content) {}

    void Add(const std::string& name, std::unique_ptr<Control> control);
    /// The control of that name; nil if there is none.
    Control* Find(const std::string& name) const;
    /// The controls of class C, in the order in which they were added.
    template <class C>
    std::vector<C*> All() const {
        std::vector<C*> found;
        for (const auto& [name, control] : controls_) {
            if (auto* match = dynamic_cast<C*>(control.get())) found.push_back(match);
        }
        return found;
    }

    /// Ends the window's threads, each at its next yield.
    void EndWorkers() const;
    void SetTabOrder() const;
    void FocusFirstField() const;
    /// Escape presses the cancel button, Return and Enter the focused button or else the default one. False
    /// when there is no such button, or for another key.
    bool PressButton(const std::string& key) const;
    void FollowEdges(QSize before, QSize after) const;

  private:
    using Entry = std::pair<std::string, std::unique_ptr<Control>>;

    QWidget& content_;
    std::vector<Entry> controls_;
};
