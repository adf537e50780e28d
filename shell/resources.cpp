#include "shell/resources.h"

#include "platform/Application.h"
#include "platform/Graphics.h"

namespace {

using Slot = Ref<Picture>;

Ref<Picture> Plain(Slot& slot, const std::string& fileName) {
    if (!slot) {
        const Ref<FolderItem> file = Resource(fileName);
        if (file) slot = file->OpenAsPicture();
    }
    return slot;
}

Ref<Picture> Masked(Slot& slot, const std::string& fileName, Ref<Picture> (*mask)()) {
    if (slot) return slot;
    if (Plain(slot, fileName)) ApplyMask(slot, mask());
    return slot;
}

Slot run_icon, pause_icon, alert_icon, run_mask, pause_mask, alert_mask, about_icon, about_mask, badge, badge_mask;

}  // namespace

Ref<FolderItem> Resource(const std::string& fileName) {
    const Ref<FolderItem> folder = Application::ExecutableFile()->Parent()->Parent();
    return folder ? folder->Child("Resources")->Child(fileName) : nullptr;
}

void ApplyMask(const Ref<Picture>& picture, const Ref<Picture>& mask) {
    picture->Mask(true)->Graphics()->DrawPicture(mask, 0, 0, kOwnSize, kOwnSize, 0, 0, kOwnSize, kOwnSize);
}

Ref<Picture> Run_Icon() { return Masked(run_icon, "Run_Icon.bmp", Run_Mask); }
Ref<Picture> Pause_Icon() { return Masked(pause_icon, "Pause_Icon.bmp", Pause_Mask); }
Ref<Picture> Alert_Icon() { return Masked(alert_icon, "Alert_Icon.bmp", Alert_Mask); }

Ref<Picture> Run_Mask() { return Plain(run_mask, "Run_Mask.bmp"); }
Ref<Picture> Pause_Mask() { return Plain(pause_mask, "Pause_Mask.bmp"); }
Ref<Picture> Alert_Mask() { return Plain(alert_mask, "Alert_Mask.bmp"); }

Ref<Picture> AboutIcon() { return Plain(about_icon, "AboutIcon.pict"); }
Ref<Picture> AboutMask() { return Plain(about_mask, "AboutMask.pict"); }
Ref<Picture> MwRbHzMd() { return Plain(badge, "MwRbHzMd.bmp"); }
Ref<Picture> MwRbHzMdMask() { return Plain(badge_mask, "MwRbHzMdMask.bmp"); }
