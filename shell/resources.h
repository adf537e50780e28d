#pragma once

#include <string>

#include "platform/FolderItem.h"
#include "platform/Picture.h"
#include "platform/Ref.h"

/// Returns the named file, which need not exist, in the folder Resources beside the executable's folder. Nil
/// if the executable's folder has no parent.
Ref<FolderItem> Resource(const std::string& fileName);

// The program's images, each a file in the folder Resources, loaded at first use and kept until the process
// ends. If loading fails, the function returns nil and the next call tries again. Main thread only.

/// The status icons, with their masks applied.
Ref<Picture> Run_Icon();
Ref<Picture> Pause_Icon();
Ref<Picture> Alert_Icon();

/// The masks of the status icons: greyscale pictures in which black stands for opaque.
Ref<Picture> Run_Mask();
Ref<Picture> Pause_Mask();
Ref<Picture> Alert_Mask();

/// Draws `mask` on the picture's own mask, which is created if it doesn't exist. A nil `mask` draws nothing.
void ApplyMask(const Ref<Picture>& picture, const Ref<Picture>& mask);

/// The program's icon and the toolkit's badge. The caller applies their masks.
Ref<Picture> AboutIcon();
Ref<Picture> AboutMask();
Ref<Picture> MwRbHzMd();
Ref<Picture> MwRbHzMdMask();
