#pragma once

#include "platform/FolderItem.h"
#include "platform/Ref.h"

/// The types of the files that the program writes.
namespace FileTypes {

inline Ref<FileType> pQuicktime;

/// Creates the file types. Must be called once, before any window exists.
inline void _Initialize() {
    pQuicktime = MakeRef<FileType>();
    pQuicktime->Name("video/quicktime");
    pQuicktime->Extensions(".moov;.mov;.qt;.mqv");
    pQuicktime->MacType("MooV");
    pQuicktime->MacCreator("TVOD");
}

/// Returns the type of QuickTime movies; nil before _Initialize.
inline Ref<FileType> Quicktime() { return pQuicktime; }

}  // namespace FileTypes
