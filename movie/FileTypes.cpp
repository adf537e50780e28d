#include "movie/FileTypes.h"

namespace {

Ref<FileType> pQuicktime;

}  // namespace

void FileTypes::_Initialize() {
    pQuicktime = MakeRef<FileType>();
    pQuicktime->Name("video/quicktime");
    pQuicktime->Extensions(".moov;.mov;.qt;.mqv");
    pQuicktime->MacType("MooV");
    pQuicktime->MacCreator("TVOD");
}

Ref<FileType> FileTypes::Quicktime() { return pQuicktime; }
