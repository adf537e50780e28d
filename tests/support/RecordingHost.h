#pragma once

#include <QtCore/QTemporaryDir>

#include "platform/Color.h"
#include "platform/EditableMovie.h"
#include "platform/Host.h"
#include "platform/MovieLibrary.h"

/// A host that does nothing but write down what it was asked for.
class RecordingHost final : public Host {
    QTemporaryDir temporaryFolder_;

  public:
    /// Makes a new one the host in use.
    static RecordingHost& InstallNew() {
        auto* const host = new RecordingHost;
        Install(std::unique_ptr<Host>(host));
        return *host;
    }

    /// What the clock shows.
    double microseconds = 0;
    /// A new empty folder, removed together with the host; or any path that a test puts here.
    std::filesystem::path preferencesFolder = temporaryFolder_.path().toStdString();
    /// The answer to each question for a file to save to; empty stands for a cancel.
    std::filesystem::path fileToSave;
    /// What the user does in the compression dialog: whether it is confirmed, and with what instead of the proposal.
    bool isCompressionConfirmed = true;
    std::optional<CompressionSettings> chosenCompression;
    /// What that dialog proposed the last time.
    CompressionSettings proposedCompression;
    MoviePlan plan;

    /// What the user picks when asked for a colour; nothing stands for a cancel.
    std::optional<Color> pickedColor;
    /// Runs while the user picks.
    std::function<void()> picking;

    /// The latest announcement.
    std::string announcement;
    std::vector<std::string> messages;
    /// All other operations in their order: the name, for a text followed by a blank and the text.
    std::vector<std::string> calls;

    double Microseconds() override { return microseconds; }
    void Beep() override { calls.emplace_back("Beep"); }
    void Announce(const std::string& text, const std::function<void()>&) override { announcement = text; }
    void MsgBox(const std::string& text) override { messages.push_back(text); }
    bool SelectColor(Color& color, const std::string& prompt) override {
        calls.push_back("SelectColor " + prompt);
        if (picking) picking();
        color = pickedColor.value_or(color);
        return pickedColor.has_value();
    }
    void DragText(const std::string& text, const Ref<Picture>&, int, int) override {
        calls.push_back("DragText " + text);
    }
    void ShowURL(const std::string& url) override { calls.push_back("ShowURL " + url); }
    std::filesystem::path SaveFile(const std::string& filter, const std::filesystem::path& proposal) override {
        calls.push_back("SaveFile " + filter + ", " + proposal.string());
        return fileToSave;
    }
    void Launch(const std::filesystem::path& file) override { calls.push_back("Launch " + file.string()); }
    void InhibitScreenSaver(const std::string&) override { calls.emplace_back("InhibitScreenSaver"); }
    void ReleaseScreenSaver() override { calls.emplace_back("ReleaseScreenSaver"); }
    void DelayScreenSaver() override { calls.emplace_back("DelayScreenSaver"); }
    std::filesystem::path PreferencesFolder() override { return preferencesFolder; }
    bool SelectCompressionSettings(const Ref<Picture>&, const MoviePlan& proposedPlan,
                                   CompressionSettings& settings) override {
        calls.emplace_back("SelectCompressionSettings");
        plan = proposedPlan;
        proposedCompression = settings;
        if (isCompressionConfirmed) settings = chosenCompression.value_or(settings);
        return isCompressionConfirmed;
    }
};
