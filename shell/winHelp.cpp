#include "shell/winHelp.h"

#include "platform/StyledTextField.h"
#include "platform/targets.h"
#include "shell/Dialog.h"
#include "shell/markup.h"
#include "shell/user_guide.h"

winHelp& winHelp::Instance() { return ImplicitInstance<winHelp>("winHelp.winHelp"); }

void winHelp::Layout() {
    Title("Help");
    MinSize(64, 64);
    Width(400);
    Height(400);
    MaximizeButton(false);
}

void winHelp::CreateControls() { _CreateControls0(); }

// One pixel larger than the window on each side, which leaves the field's border outside.
void winHelp::_CreateControls0() {
    auto& guide = AddControl<StyledTextField>("EditField1", -1, -1, 402, 402, 0);
    guide.LockLeft(true);
    guide.LockTop(true);
    guide.LockRight(true);
    guide.LockBottom(true);
    guide.TextSize(12);
    guide.TextColor(RGB(0, 0, 0));
    guide.BackColor(RGB(255, 255, 255));
    guide.Text(kHelpText);
    guide.Open = [this] { EditField1_Open(); };
}

void winHelp::EditField1_Open() {
    auto& guide = Find<StyledTextField>("EditField1");
    if constexpr (targets::kGenevaFont) guide.TextFont("Geneva");
    guide.StyledText(ParseMarkup(guide.Text(), guide.TextSize()));
}

bool winHelp::Event_KeyDown(const std::string& key) { return CloseOnEscape(*this, key); }
