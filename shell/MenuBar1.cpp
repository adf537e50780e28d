#include "shell/MenuBar1.h"

namespace {

template <class Item = MenuItem>
MenuItem& Add(MenuItem& parent, const std::string& name, bool autoEnable, const std::string& text,
              const std::string& shortcut = "") {
    const auto item = MakeRef<Item>();
    item->Name(name);
    item->AutoEnable(autoEnable);
    item->Text(text);
    item->KeyboardShortcut(shortcut);
    parent.Append(item);
    return *item;
}

void AddSeparator(MenuItem& menu, const std::string& name) { Add(menu, name, true, "-"); }

}  // namespace

Ref<MenuBar1> MenuBar1::Instance() {
    static const auto bar = MakeRef<MenuBar1>();
    return bar;
}

MenuBar1::MenuBar1() {
    Untitled0();
    Untitled1();
    Untitled2();
    Untitled3();
    Untitled4();
}

void MenuBar1::Untitled0() {
    MenuItem& menu = Add(*this, "FileMenu", true, "&File");
    Add<PrefsMenuItem>(menu, "FilePreferences", false, "&Preferences...", "Cmd+,");
    Add(menu, "FileCreateMovie", false, "Create &Movie...", "Cmd+M");
    Add<QuitMenuItem>(menu, "FileQuit", true, "&Quit", "Cmd+Q");
}

void MenuBar1::Untitled1() {
    MenuItem& menu = Add(*this, "EditMenu", true, "&Edit");
    Add(menu, "EditUndo", true, "&Undo", "Cmd+Z").EditCommand(EditCommands::Undo);
    AddSeparator(menu, "UntitledMenu1");
    Add(menu, "EditCut", true, "Cu&t", "Cmd+X").EditCommand(EditCommands::Cut);
    Add(menu, "EditCopy", true, "&Copy", "Cmd+C").EditCommand(EditCommands::Copy);
    Add(menu, "EditPaste", true, "&Paste", "Cmd+V").EditCommand(EditCommands::Paste);
    Add(menu, "EditClear", true, "&Delete").EditCommand(EditCommands::Clear);
    AddSeparator(menu, "UntitledMenu0");
    Add(menu, "EditSelectAll", true, "Select &All", "Cmd+A").EditCommand(EditCommands::SelectAll);
}

void MenuBar1::Untitled2() {
    MenuItem& menu = Add(*this, "TimerMenu", true, "&Timer");
    Add(menu, "TimerSet", false, "S&et...", "Cmd+T");
    Add(menu, "TimerStart", true, "&Start", "Cmd+R");
}

void MenuBar1::Untitled3() {
    MenuItem& menu = Add(*this, "ViewMenu", true, "&View");
    Add(menu, "ViewToggleFullscreen", true, "Toggle &Fullscreen", "Cmd+F");
}

void MenuBar1::Untitled4() {
    MenuItem& menu = Add(*this, "HelpMenu", true, "&Help");
    Add(menu, "HelpHelp", true, "&Help...");
    AddSeparator(menu, "UntitledSeparator");
    Add(menu, "HelpDonate", true, "&Donate...");
    Add(menu, "HelpVisitWebsite", true, "&Visit Website...");
    AddSeparator(menu, "UntitledSeparator0");
    Add<AppleMenuItem>(menu, "HelpAbout", true, "&About Dwindledial...");
}
