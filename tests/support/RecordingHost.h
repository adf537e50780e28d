#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/CompressionSettings.h"
#include "platform/Host.h"

/// A host that does nothing but write down what it was asked for.
class RecordingHost : public Host {
  public:
    RecordingHost();
    ~RecordingHost() override;
    RecordingHost(const RecordingHost&) = delete;
    RecordingHost& operator=(const RecordingHost&) = delete;

    /// Makes a new one the host in use, which owns it.
    static RecordingHost& InstallNew();

    /// What the clock shows.
    double microseconds = 0;
    /// A new empty folder, removed together with the host; or any path that a test puts here.
    std::filesystem::path preferencesFolder;

    /// The answer to each question for a file to save to; empty stands for a cancel.
    std::filesystem::path fileToSave;

    /// What the user does in the compression dialog: whether it is confirmed, and with what instead of the proposal.
    bool isCompressionConfirmed = true;
    std::optional<CompressionSettings> chosenCompression;
    /// What that dialog proposed the last time.
    CompressionSettings proposedCompression;

    std::vector<std::string> messages;
    std::vector<std::string> urls;
    int beeps = 0;
    int inhibits = 0;
    int releases = 0;
    int delays = 0;
    /// All of these in their order: the operation's name, for a text followed by a blank and the text.
    std::vector<std::string> calls;

    double Microseconds() override { return microseconds; }
    void Beep() override;
    void MsgBox(const std::string& text) override;
    void ShowURL(const std::string& url) override;
    std::filesystem::path SaveFile(const std::string& filter, const std::string& defaultName) override;
    void Launch(const std::filesystem::path& file) override;
    void InhibitScreenSaver() override;
    void ReleaseScreenSaver() override;
    void DelayScreenSaver() override;
    std::filesystem::path PreferencesFolder() override { return preferencesFolder; }
    bool SelectCompressionSettings(const Ref<Picture>& testImage, CompressionSettings& settings) override;

  private:
    std::filesystem::path temporaryFolder_;
};
