#include "tests/support/RecordingHost.h"

#include <stdlib.h>

#include <memory>
#include <system_error>
#include <utility>

namespace fs = std::filesystem;

RecordingHost::RecordingHost() {
    std::string name = fs::temp_directory_path() / "dwindledial-test-XXXXXX";
    if (!mkdtemp(name.data())) throw std::system_error(errno, std::generic_category(), name);
    temporaryFolder_ = preferencesFolder = name;
}

RecordingHost::~RecordingHost() {
    std::error_code ignored;
    fs::remove_all(temporaryFolder_, ignored);
}

RecordingHost& RecordingHost::InstallNew() {
    auto host = std::make_unique<RecordingHost>();
    RecordingHost& installed = *host;
    Install(std::move(host));
    return installed;
}
