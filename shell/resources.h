#pragma once

#include <string>

#include "platform/FolderItem.h"
#include "platform/Picture.h"
#include "platform/Ref.h"

/// A file of the folder Resources, which lies beside the executable's own folder; nil when there can be none.
Ref<FolderItem> Resource(const std::string& fileName);

// The program's images, one file each in its folder Resources. Each is loaded at its first use and kept until the
// process ends; nil when it can't be had, and then tried again at the next use. Main thread only.

/// The status icons, with their masks applied.
Ref<Picture> Run_Icon();
Ref<Picture> Pause_Icon();
Ref<Picture> Alert_Icon();

/// Grey pictures: black is opaque.
Ref<Picture> Run_Mask();
Ref<Picture> Pause_Mask();
Ref<Picture> Alert_Mask();

/// Draws `mask` into the picture's own mask, which is created if it has none; a nil mask draws nothing.
void ApplyMask(const Ref<Picture>& picture, const Ref<Picture>& mask);

/// The program's icon and the badge of its toolkit; whoever draws them applies the masks.
Ref<Picture> AboutIcon();
Ref<Picture> AboutMask();
Ref<Picture> MwRbHzMd();
Ref<Picture> MwRbHzMdMask();
