#include "platform/FolderItem.h"

#include <limits.h>
#include <sys/stat.h>

#include <cerrno>
#include <sstream>

#include "platform/EditableMovie.h"
#include "platform/Host.h"
#include "platform/MovieLibrary.h"
#include "platform/Text.h"

namespace fs = std::filesystem;

namespace {

/// Returns whether the path leads to a plain file. Opening anything else, such as a pipe, may block for ever.
bool IsPlainFile(const fs::path& path) {
    std::error_code ignored;
    return fs::is_regular_file(path, ignored);
}

std::string InWords(int error) { return std::generic_category().message(error); }

/// Returns nil with the reason why a file wasn't opened: errno's message, or that it isn't a plain file.
template <class Stream>
Ref<Stream> Unopened(const fs::path& path, const char* failure) {
    std::string reason = InWords(errno);
    std::error_code ignored;
    if (fs::exists(path, ignored) && !IsPlainFile(path)) reason = "it isn't a plain file";
    return Ref<Stream>::Nil("The file " + path.string() + failure + reason + ".");
}

/// Makes a folder and its missing parents, accessible to the user only. Returns 0 or, on failure, an errno.
int MakeFolder(const fs::path& folder) {
    int error = EEXIST;
    fs::path made;
    for (const fs::path& part : folder) {
        made /= part;
        const bool isMade = mkdir(made.c_str(), S_IRWXU) == 0;
        if (!isMade && error == EEXIST) error = errno;
    }
    std::error_code ignored;
    return fs::is_directory(folder, ignored) ? 0 : error;
}

/// The folder in which the latest movie was created; empty before the first movie.
fs::path movieFolder;

}  // namespace

std::string FileType::ToString() const {
    std::string patterns;
    for (Int32 i = 1; !NthField(Extensions(), ";", i).empty(); ++i)
        patterns += (i == 1 ? "*" : " *") + NthField(Extensions(), ";", i);
    return Name() + " (" + patterns + ")";
}

std::string TextInputStream::ReadAll() {
    std::ostringstream contents;
    contents << file_.rdbuf();
    return std::move(contents).str();
}

Ref<FolderItem> FolderItem::Parent() const {
    const fs::path parent = path_.parent_path();
    if (parent.empty() || parent == path_) return nullptr;
    return MakeRef<FolderItem>(parent);
}

Ref<FolderItem> FolderItem::Child(const std::string& name) const {
    const bool isReserved = name.empty() || name == "." || name == "..";
    const bool isStorable = name.size() <= NAME_MAX && name.find_first_of("/\0", 0, 2) == name.npos;
    if (isReserved || !isStorable) return nullptr;
    return MakeRef<FolderItem>(path_ / name);
}

bool FolderItem::Exists() const {
    std::error_code ignored;
    return fs::exists(path_, ignored);
}

void FolderItem::Delete() {
    std::error_code ignored;
    fs::remove(path_, ignored);
}

Ref<TextInputStream> FolderItem::OpenAsTextFile() const {
    std::ifstream file;
    if (IsPlainFile(path_)) file.open(path_, std::ios::binary);
    if (!file.is_open()) return Unopened<TextInputStream>(path_, " can't be read: ");
    return MakeRef<TextInputStream>(std::move(file));
}

Ref<TextOutputStream> FolderItem::CreateTextFile() {
    std::ofstream file;
    if (!Exists() || IsPlainFile(path_)) file.open(path_, std::ios::binary | std::ios::trunc);
    if (!file.is_open()) return Unopened<TextOutputStream>(path_, " can't be written: ");
    return MakeRef<TextOutputStream>(std::move(file));
}

Ref<EditableMovie> FolderItem::CreateMovie() {
    std::shared_ptr<MovieWriter> writer = MovieLibrary::Installed().Create(path_);
    if (!writer) return nullptr;
    movieFolder = path_.parent_path();
    return MakeRef<EditableMovie>(std::move(writer));
}

void FolderItem::Launch(bool) const { Host::Current().Launch(path_); }

Ref<FolderItem> GetSaveFolderItem(const std::string& filter, const std::string& defaultName) {
    fs::path file = Host::Current().SaveFile(filter, movieFolder / defaultName);
    if (file.empty()) return nullptr;
    return MakeRef<FolderItem>(std::move(file));
}

Ref<FolderItem> SpecialFolder::Preferences() {
    fs::path folder = Host::Current().PreferencesFolder();
    if (folder.empty()) return Ref<FolderItem>::Nil("There is no home folder, and so none for settings.");
    const int error = MakeFolder(folder);
    if (error == 0) return MakeRef<FolderItem>(std::move(folder));
    return Ref<FolderItem>::Nil("The folder " + folder.string() + " can't be made: " + InWords(error) + ".");
}
