#include "platform/linux/PreferencesFolder.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <system_error>

namespace fs = std::filesystem;

namespace {

/// The absolute path in an environment variable; empty when it holds none.
fs::path PathFromEnvironment(const char* variable) {
    const char* const value = std::getenv(variable);
    fs::path path = value ? value : "";
    return path.is_absolute() ? path : fs::path();
}

fs::path HomeFolder() {
    fs::path home = PathFromEnvironment("HOME");
    if (!home.empty()) return home;
    const passwd* const user = getpwuid(getuid());
    return user ? user->pw_dir : "";
}

fs::path ConfiguredFolder() {
    fs::path folder = PathFromEnvironment("XDG_CONFIG_HOME");
    if (!folder.empty()) return folder;
    const fs::path home = HomeFolder();
    return home.empty() ? home : home / ".config";
}

bool IsFolder(const fs::path& path) {
    std::error_code ignored;
    return fs::is_directory(path, ignored);
}

void MakeWithParents(const fs::path& folder) {
    fs::path made;
    for (const fs::path& part : folder) {
        made /= part;
        mkdir(made.c_str(), S_IRWXU);
    }
}

}  // namespace

fs::path UserPreferencesFolder() {
    fs::path folder = ConfiguredFolder();
    if (!IsFolder(folder)) MakeWithParents(folder);
    return IsFolder(folder) ? folder : fs::path();
}
