#include "settings/Preferences.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/FolderItem.h"
#include "platform/Host.h"
#include "platform/targets.h"

namespace {

struct Element {
    std::string_view opening;
    std::string_view closing;
};
constexpr Element kKey{"<key>", "</key>"};
constexpr Element kString{"<string>", "</string>"};

constexpr std::string_view kHeader =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple Computer//DTD PLIST 1.0//EN\" "
    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n"
    "<dict>";
constexpr std::string_view kFooter =
    "</dict>\n"
    "</plist>\n";

constexpr const char* kNoNameToRead = "Can't read preferences because no filename has been set";
constexpr const char* kNoFileCode = "????";

// The consequence for the user, appended to an error message, if the folder or the file can't be used.
constexpr const char* kNotKept = "The colours will not be kept.";
constexpr const char* kReplaced =
    "The clock has its default colours. At its end the program will try to replace the file.";

/// An index of a tag's positions in a text. It speeds up malformed files, which are rescanned from the start.
class TagPositions {
  public:
    TagPositions(std::string_view text, std::string_view tag) {
        for (auto at = text.find(tag); at != std::string_view::npos; at = text.find(tag, at + 1))
            positions_.push_back(at + 1);
    }

    /// Returns the position, in bytes from 1, of the first tag at or after `start`; 0 if there is none.
    std::size_t Find(std::size_t start) const {
        const auto found = std::ranges::lower_bound(positions_, start);
        return found == positions_.end() ? 0 : *found;
    }

  private:
    std::vector<std::size_t> positions_;
};

/// Returns the bytes of `text` from `start` up to but excluding `end`. Both positions count from 1.
std::string_view Between(std::string_view text, std::size_t start, std::size_t end) {
    return end > start ? text.substr(start - 1, end - start) : std::string_view();
}

Ref<FolderItem> FileNamed(const std::string& name) { return SpecialFolder::Preferences().IfNil(kNotKept)->Child(name); }

std::optional<std::string> ReadWhole(const std::string& name) {
    const Ref<FolderItem> file = FileNamed(name);
    if (!file->Exists()) return std::nullopt;

    const Ref<TextInputStream> stream = file->OpenAsTextFile().IfNil(kReplaced);
    std::string text = stream->ReadAll();
    stream->Close();
    return text;
}

void WriteWhole(const std::string& name, const std::string& text, const char* failure) {
    const Ref<FolderItem> file = FileNamed(name);
    if (!file) return MsgBox(failure);
    if (file->Exists()) file->Delete();

    const Ref<TextOutputStream> stream = file->CreateTextFile().IfNil(kNotKept);
    stream->WriteLine(text);
    stream->Close();
    if constexpr (targets::kFileCodes) {
        file->MacCreator(kNoFileCode);
        file->MacType(kNoFileCode);
    }
}

void Append(std::string& text, const Element& element, const std::string& content) {
    text.append("\n\t").append(element.opening).append(content).append(element.closing).append("\n\t");
}

}  // namespace

bool Preferences::ReadFile() {
    if (Filename.empty()) {
        MsgBox(kNoNameToRead);
        return false;
    }
    std::optional<std::string> contents = ReadWhole(Filename);
    if (!contents) return false;

    // Values are views into this shared text, because in a malformed file each may extend to the end.
    const auto text = std::make_shared<const std::string>(std::move(*contents));
    const TagPositions keyOpenings(*text, kKey.opening), keyClosings(*text, kKey.closing);
    const TagPositions stringOpenings(*text, kString.opening), stringClosings(*text, kString.closing);
    const std::size_t first = keyOpenings.Find(1);
    if (first == 0 || keyClosings.Find(first) == 0) return false;

    // A failed search returns 0, which restarts the scan near the top. Reaching a value twice ends the scan.
    std::vector<bool> visited(text->size() + kString.opening.size() + 1);
    std::size_t value = 0;
    while (!visited[value]) {
        visited[value] = true;
        const std::size_t opening = keyOpenings.Find(value + 1);
        if (opening == 0) break;
        const std::size_t key = opening + kKey.opening.size();
        const std::size_t keyEnd = keyClosings.Find(key);
        value = stringOpenings.Find(keyEnd) + kString.opening.size();
        const std::size_t valueEnd = stringClosings.Find(value);
        Put(std::string(Between(*text, key, keyEnd)), Variant(text, Between(*text, value, valueEnd)));
    }
    return true;
}

void Preferences::WriteFile() {
    const auto& keys = mDict.Keys();
    const auto& values = mDict.Values();
    if (Filename.empty()) return MsgBox("can't write preferences because no filename has been set");
    if (keys.empty()) return MsgBox("can't write preferences because none have been set");

    std::string text(kHeader);
    for (std::size_t i = 0; i < keys.size(); ++i) {
        Append(text, kKey, keys[i].StringValue());
        Append(text, kString, values[i].StringValue());
    }
    text += kFooter;
    WriteWhole(Filename, text, "couldn't write preferences File");
}

Variant Preferences::Get(const std::string& key, const Variant& initial) {
    if (!mDict.HasKey(key)) mDict.Value(key, initial);
    return mDict.Value(key);
}

void Preferences::Put(const std::string& key, const Variant& value) { mDict.Value(key, value); }

void Preferences::Clear() { mDict = Dictionary(); }

void Preferences::WritePagePrefsFile(const std::string& text) {
    if (PagePrefsFilename.empty()) return MsgBox("can't write page preferences because no filename has been set");
    WriteWhole(PagePrefsFilename, text, "couldn't write page preferences File");
}

std::string Preferences::ReadPagePrefsFile() {
    // Checks Filename although it reads PagePrefsFilename, so both names must be set.
    if (Filename.empty()) {
        MsgBox(kNoNameToRead);
        return {};
    }
    return ReadWhole(PagePrefsFilename).value_or("");
}

void Preferences::Constructor() { mDict = Dictionary(); }
