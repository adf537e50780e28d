#pragma once

#include <QtWidgets/QWidget>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/Control.h"

/// The controls of one window, which it owns, and what they do together: the order of the Tab key, the keys that press
/// buttons, the edges that follow the window's.
class ControlList {
  public:
    /// `content` is the area of the window that they lie in.
    explicit ControlList(QWidget& content) : content_(content) {}

    void Add(const std::string& name, std::unique_ptr<Control> control);
    /// Nil when there is none of that name.
    Control* Find(const std::string& name) const;
    /// All that are seen, as they were added.
    std::vector<RectControl*> RectControls() const;

    /// Ends the window's threads, each at its next yield.
    void EndWorkers() const;
    void SetTabOrder() const;
    void FocusFirstField() const;
    /// Presses the cancel button for Escape, for Return and Enter the focused or the default one. False: there is none.
    bool PressButton(const std::string& key) const;
    void FollowEdges(QSize before, QSize after) const;

  private:
    QWidget& content_;
    std::vector<std::pair<std::string, std::unique_ptr<Control>>> controls_;
};
