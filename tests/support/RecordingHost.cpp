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

void RecordingHost::Beep() {
    ++beeps;
    calls.emplace_back("Beep");
}

void RecordingHost::MsgBox(const std::string& text) {
    messages.push_back(text);
    calls.push_back("MsgBox " + text);
}

void RecordingHost::ShowURL(const std::string& url) {
    urls.push_back(url);
    calls.push_back("ShowURL " + url);
}

std::filesystem::path RecordingHost::SaveFile(const std::string& filter, const std::string& defaultName) {
    calls.push_back("SaveFile " + filter + ", " + defaultName);
    return fileToSave;
}

void RecordingHost::Launch(const std::filesystem::path& file) { calls.push_back("Launch " + file.string()); }

void RecordingHost::InhibitScreenSaver() {
    ++inhibits;
    calls.emplace_back("InhibitScreenSaver");
}

void RecordingHost::ReleaseScreenSaver() {
    ++releases;
    calls.emplace_back("ReleaseScreenSaver");
}

void RecordingHost::DelayScreenSaver() {
    ++delays;
    calls.emplace_back("DelayScreenSaver");
}

bool RecordingHost::SelectCompressionSettings(const Ref<Picture>&, CompressionSettings& settings) {
    calls.emplace_back("SelectCompressionSettings");
    proposedCompression = settings;
    if (isCompressionConfirmed) settings = chosenCompression.value_or(settings);
    return isCompressionConfirmed;
}
