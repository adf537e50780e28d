#pragma once

#include <string>

#include "platform/FolderItem.h"

/// A file of the folder Resources, which lies beside the executable's own folder; nil when there can be none.
Ref<FolderItem> Resource(const std::string& fileName);
