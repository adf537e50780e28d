#include "shell/resources.h"

#include "platform/Application.h"

Ref<FolderItem> Resource(const std::string& fileName) {
    const Ref<FolderItem> folder = Application::ExecutableFile()->Parent()->Parent();
    return folder ? folder->Child("Resources")->Child(fileName) : nullptr;
}
