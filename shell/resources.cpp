#include "shell/resources.h"

#include "platform/Application.h"
#include "platform/Graphics.h"

namespace {

Ref<Picture> LoadOnce(Ref<Picture>& slot, const std::string& fileName, Ref<Picture> (*mask)() = nullptr) {
    if (slot) return slot;
    if (const Ref<FolderItem> file = Resource(fileName)) slot = file->OpenAsPicture();
    if (slot && mask) ApplyMask(slot, mask());
    return slot;
}

Ref<Picture> run_icon, pause_icon, alert_icon, run_mask, pause_mask, alert_mask, about_icon, about_mask, badge,
    badge_mask;

}  // namespace

Ref<FolderItem> Resource(const std::string& fileName) {
    const Ref<FolderItem> folder = Application::ExecutableFile()->Parent()->Parent();
    return folder ? folder->Child("Resources")->Child(fileName) : nullptr;
}

void ApplyMask(const Ref<Picture>& picture, const Ref<Picture>& mask) {
    picture->Mask(true)->Graphics()->DrawPicture(mask, 0, 0);
}

Ref<Picture> Run_Icon() { return LoadOnce(run_icon, "Run_Icon.bmp", Run_Mask); }
Ref<Picture> Pause_Icon() { return LoadOnce(pause_icon, "Pause_Icon.bmp", Pause_Mask); }
Ref<Picture> Alert_Icon() { return LoadOnce(alert_icon, "Alert_Icon.bmp", Alert_Mask); }

Ref<Picture> Run_Mask() { return LoadOnce(run_mask, "Run_Mask.bmp"); }
Ref<Picture> Pause_Mask() { return LoadOnce(pause_mask, "Pause_Mask.bmp"); }
Ref<Picture> Alert_Mask() { return LoadOnce(alert_mask, "Alert_Mask.bmp"); }

Ref<Picture> AboutIcon() { return LoadOnce(about_icon, "AboutIcon.pict"); }
Ref<Picture> AboutMask() { return LoadOnce(about_mask, "AboutMask.pict"); }
Ref<Picture> MwRbHzMd() { return LoadOnce(badge, "MwRbHzMd.bmp"); }
Ref<Picture> MwRbHzMdMask() { return LoadOnce(badge_mask, "MwRbHzMdMask.bmp"); }
