#pragma once

#include <filesystem>
#include <string>
#include <vector>

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
    void InhibitScreenSaver() override;
    void ReleaseScreenSaver() override;
    void DelayScreenSaver() override;
    std::filesystem::path PreferencesFolder() override { return preferencesFolder; }

  private:
    std::filesystem::path temporaryFolder_;
};
