#include "core/winMain.h"

namespace {

template <class Item = MenuItem>
Ref<Item> Entry(const winMain& window, const std::string& name) {
    return std::dynamic_pointer_cast<Item>(window.MenuBar()->Child(name).Shared());
}

}  // namespace

Ref<MenuItem> winMain::HelpMenu() const { return Entry(*this, "HelpMenu"); }
Ref<AppleMenuItem> winMain::HelpAbout() const { return Entry<AppleMenuItem>(*this, "HelpAbout"); }
Ref<MenuItem> winMain::UntitledSeparator0() const { return Entry(*this, "UntitledSeparator0"); }
Ref<MenuItem> winMain::HelpVisitWebsite() const { return Entry(*this, "HelpVisitWebsite"); }
Ref<MenuItem> winMain::HelpDonate() const { return Entry(*this, "HelpDonate"); }
Ref<MenuItem> winMain::UntitledSeparator() const { return Entry(*this, "UntitledSeparator"); }
Ref<MenuItem> winMain::HelpHelp() const { return Entry(*this, "HelpHelp"); }
Ref<MenuItem> winMain::ViewMenu() const { return Entry(*this, "ViewMenu"); }
Ref<MenuItem> winMain::ViewToggleFullscreen() const { return Entry(*this, "ViewToggleFullscreen"); }
Ref<MenuItem> winMain::TimerMenu() const { return Entry(*this, "TimerMenu"); }
Ref<MenuItem> winMain::TimerStart() const { return Entry(*this, "TimerStart"); }
Ref<MenuItem> winMain::TimerSet() const { return Entry(*this, "TimerSet"); }
Ref<MenuItem> winMain::EditMenu() const { return Entry(*this, "EditMenu"); }
Ref<MenuItem> winMain::EditSelectAll() const { return Entry(*this, "EditSelectAll"); }
Ref<MenuItem> winMain::UntitledMenu0() const { return Entry(*this, "UntitledMenu0"); }
Ref<MenuItem> winMain::EditClear() const { return Entry(*this, "EditClear"); }
Ref<MenuItem> winMain::EditPaste() const { return Entry(*this, "EditPaste"); }
Ref<MenuItem> winMain::EditCopy() const { return Entry(*this, "EditCopy"); }
Ref<MenuItem> winMain::EditCut() const { return Entry(*this, "EditCut"); }
Ref<MenuItem> winMain::UntitledMenu1() const { return Entry(*this, "UntitledMenu1"); }
Ref<MenuItem> winMain::EditUndo() const { return Entry(*this, "EditUndo"); }
Ref<MenuItem> winMain::FileMenu() const { return Entry(*this, "FileMenu"); }
Ref<QuitMenuItem> winMain::FileQuit() const { return Entry<QuitMenuItem>(*this, "FileQuit"); }
Ref<MenuItem> winMain::FileCreateMovie() const { return Entry(*this, "FileCreateMovie"); }
Ref<PrefsMenuItem> winMain::FilePreferences() const { return Entry<PrefsMenuItem>(*this, "FilePreferences"); }
