#pragma once

#include <vector>

#include "platform/Ref.h"
#include "platform/Values.h"

/// The commands that the toolkit itself carries out on the text field that has the focus.
enum class EditCommands { None, Undo, Cut, Copy, Paste, Clear, SelectAll };

/// A menu or an entry of one. The program sets these values; the window reads them after each enabling pass.
class MenuItem {
  public:
    virtual ~MenuItem() = default;

    Property<std::string> Name;
    /// The caption. The character behind "&" is the access key; "-" makes a separator.
    Property<std::string> Text;
    /// Whether each enabling pass enables the item by itself, as long as something takes its command.
    Property<bool> AutoEnable = true;
    /// "Cmd+" and a key, where Cmd is Ctrl; empty for none.
    Property<std::string> KeyboardShortcut;
    /// What the item does where no handler takes its command.
    Property<EditCommands> EditCommand = EditCommands::None;

    void Enable() { enabled_ = true; }
    void Disable() { enabled_ = false; }
    bool Enabled() const { return enabled_; }

    void Append(const Ref<MenuItem>& item) { children_.push_back(item); }
    const std::vector<Ref<MenuItem>>& Children() const { return children_; }

    /// The entry of that name at any depth; nil if there is none.
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

// Linux has no application menu, so these three stay where the program puts them.
class PrefsMenuItem : public MenuItem {};
class AppleMenuItem : public MenuItem {};
/// Closes all windows by itself; it needs no handler.
class QuitMenuItem : public MenuItem {};

/// The bar: its children are the menus.
class MenuBar : public MenuItem {};
