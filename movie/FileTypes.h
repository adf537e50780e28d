#pragma once

#include "platform/FolderItem.h"
#include "platform/Ref.h"

/// The types of the files that the program writes.
namespace FileTypes {

/// Makes them; called once, before any window exists.
void _Initialize();

/// A movie. Nil before _Initialize.
Ref<FileType> Quicktime();

}  // namespace FileTypes
