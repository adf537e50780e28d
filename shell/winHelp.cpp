#include "shell/winHelp.h"

#include "shell/user_guide.h"

void winHelp::Layout() {
    Title("Help");
    MinSize(64, 64);
    Width(400);
    Height(400);
    MaximizeButton(false);
}

// The field extends one pixel beyond each edge of the window, which hides the field's border.
void winHelp::_CreateControls0() {
    auto& guide = AddTextView("EditField1", -1, -1, 402, 402, 0);
    guide.TextColor(RGB(0, 0, 0));
    guide.BackColor(RGB(255, 255, 255));
    guide.Text(kHelpText);
    guide.Open = [this] { EditField1_Open(); };
}

void winHelp::EditField1_Open() {
    ChooseFont<StyledTextField>("EditField1");
    auto& guide = Find<StyledTextField>("EditField1");
    guide.StyledText(ParseMarkup(guide.Text(), guide.TextSize()));
}
