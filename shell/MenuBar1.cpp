#include "shell/MenuBar1.h"

namespace {

template <class Item>
Ref<Item> MakeItem(const std::string& name, bool autoEnable, const std::string& text, const std::string& shortcut) {
    auto item = MakeRef<Item>();
    item->Name(name);
    item->AutoEnable(autoEnable);
    item->Text(text);
    item->KeyboardShortcut(shortcut);
    return item;
}

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
    AddMenu("FileMenu", "&File");
    AddItem<PrefsMenuItem>("FileMenu", "FilePreferences", false, "&Preferences...", "Cmd+,");
    AddItem("FileMenu", "FileCreateMovie", false, "Create &Movie...", "Cmd+M");
    AddItem<QuitMenuItem>("FileMenu", "FileQuit", true, "&Quit", "Cmd+Q");
}

void MenuBar1::Untitled1() {
    AddMenu("EditMenu", "&Edit");
    AddEditItem("EditUndo", EditCommands::Undo, "&Undo", "Cmd+Z");
    AddSeparator("EditMenu", "UntitledMenu1");
    AddEditItem("EditCut", EditCommands::Cut, "Cu&t", "Cmd+X");
    AddEditItem("EditCopy", EditCommands::Copy, "&Copy", "Cmd+C");
    AddEditItem("EditPaste", EditCommands::Paste, "&Paste", "Cmd+V");
    AddEditItem("EditClear", EditCommands::Clear, "&Delete");
    AddSeparator("EditMenu", "UntitledMenu0");
    AddEditItem("EditSelectAll", EditCommands::SelectAll, "Select &All", "Cmd+A");
}

void MenuBar1::Untitled2() {
    AddMenu("TimerMenu", "&Timer");
    AddItem("TimerMenu", "TimerSet", false, "S&et...", "Cmd+T");
    AddItem("TimerMenu", "TimerStart", true, "&Start", "Cmd+R");
}

void MenuBar1::Untitled3() {
    AddMenu("ViewMenu", "&View");
    AddItem("ViewMenu", "ViewToggleFullscreen", true, "Toggle &Fullscreen", "Cmd+F");
}

void MenuBar1::Untitled4() {
    AddMenu("HelpMenu", "&Help");
    AddItem("HelpMenu", "HelpHelp", true, "&Help...");
    AddSeparator("HelpMenu", "UntitledSeparator");
    AddItem("HelpMenu", "HelpDonate", true, "&Donate...");
    AddItem("HelpMenu", "HelpVisitWebsite", true, "&Visit Website...");
    AddSeparator("HelpMenu", "UntitledSeparator0");
    AddItem<AppleMenuItem>("HelpMenu", "HelpAbout", true, "&About Dwindledial...");
}

void MenuBar1::AddMenu(const std::string& name, const std::string& text) {
    Append(MakeItem<MenuItem>(name, true, text, ""));
}

template <class Item>
void MenuBar1::AddItem(const std::string& menu, const std::string& name, bool autoEnable, const std::string& text,
                       const std::string& shortcut) {
    Child(menu)->Append(MakeItem<Item>(name, autoEnable, text, shortcut));
}

void MenuBar1::AddEditItem(const std::string& name, EditCommands command, const std::string& text,
                           const std::string& shortcut) {
    AddItem("EditMenu", name, true, text, shortcut);
    Child(name)->EditCommand(command);
}

void MenuBar1::AddSeparator(const std::string& menu, const std::string& name) { AddItem(menu, name, true, "-"); }
