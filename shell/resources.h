#pragma once

#include <string>

#include "platform/FolderItem.h"
#include "platform/Picture.h"
#include "platform/Ref.h"

/// The file of that name in the folder Resources, which lies beside the executable's folder, whether it
/// exists or not. Nil when the executable has no parent's parent.
Ref<FolderItem> Resource(const std::string& fileName);

// The program's images, one file each in the folder Resources. Each is loaded at its first use and kept until
// the process ends. It is nil when it can't be loaded, and the next use tries again. Main thread only.

/// The status icons, with their masks applied.
Ref<Picture> Run_Icon();
Ref<Picture> Pause_Icon();
Ref<Picture> Alert_Icon();

/// The masks of the status icons: grey pictures in which black is opaque.
Ref<Picture> Run_Mask();
Ref<Picture> Pause_Mask();
Ref<Picture> Alert_Mask();

/// Draws `mask` into the picture's own mask, which is created if there is none. A nil mask draws nothing.
void ApplyMask(const Ref<Picture>& picture, const Ref<Picture>& mask);

/// The program's icon and the badge of its toolkit, with their masks, which the drawing code applies.
Ref<Picture> AboutIcon();
Ref<Picture> AboutMask();
Ref<Picture> MwRbHzMd();
Ref<Picture> MwRbHzMdMask();
