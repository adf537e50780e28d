#pragma once

#include <vector>

#include "platform/Ref.h"
#include "platform/Values.h"

/// The editing commands that the toolkit itself carries out in the focused text field.
enum class EditCommands { None, Undo, Cut, Copy, Paste, Clear, SelectAll };

/// A menu or a menu item. Before a menu opens or a command runs, an enabling pass sets which items are
/// enabled. Changes of an item's Text show after the next pass.
class MenuItem {
  public:
    virtual ~MenuItem() = default;

    Property<std::string> Name;
    /// The caption. The character after "&" is the access key; the caption "-" makes a separator.
    Property<std::string> Text;
    /// Whether an enabling pass enables the item by itself if its command has a handler or a default action.
    Property<bool> AutoEnable = true;
    /// The shortcut: "Cmd+" and a key, where "Cmd" stands for Ctrl; empty for none.
    Property<std::string> KeyboardShortcut;
    /// The editing command that the item carries out if the window has no handler for the item.
    Property<EditCommands> EditCommand = EditCommands::None;

    void Enable() { enabled_ = true; }
    void Disable() { enabled_ = false; }
    bool Enabled() const { return enabled_; }

    void Append(const Ref<MenuItem>& item) { children_.push_back(item); }
    const std::vector<Ref<MenuItem>>& Children() const { return children_; }

    /// Returns the item called `name` at any depth; nil if there is none.
    Ref<MenuItem> Child(const std::string& name) const {
        for (const Ref<MenuItem>& child : children_) {
            if (child->Name() == name) return child;
            if (Ref<MenuItem> deeper = child->Child(name)) return deeper;
        }
        return nullptr;
    }

  private:
    bool enabled_ = false;
    std::vector<Ref<MenuItem>> children_;
};

// Linux has no application menu, so these three kinds of items stay in the menu that they are added to.
class PrefsMenuItem : public MenuItem {};
class AppleMenuItem : public MenuItem {};
/// Closes all windows unless the window has a handler for the item.
class QuitMenuItem : public MenuItem {};

/// A menu bar. Its children are the menus.
class MenuBar : public MenuItem {};
