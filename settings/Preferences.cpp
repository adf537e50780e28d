#include "settings/Preferences.h"

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
constexpr const char* kNoNameToWrite = "can't write preferences because no filename has been set";
constexpr const char* kNothingToWrite = "can't write preferences because none have been set";
constexpr const char* kNoFile = "couldn't write preferences File";
constexpr const char* kNoPageNameToWrite = "can't write page preferences because no filename has been set";
constexpr const char* kNoPageFile = "couldn't write page preferences File";

constexpr const char* kNoFileCode = "????";

/// Finds one tag in a text, again and again. Its latest answer is kept with the stretch of starts that it holds for, so
/// that searches that move forward look at each byte once, whatever they find.
class TagFinder {
  public:
    TagFinder(std::string_view text, std::string_view tag) : text_(text), tag_(tag) {}

    /// The position, in bytes from 1, of the tag at or after `start` (0 is taken as 1); 0 if it isn't there.
    std::size_t Find(std::size_t start) {
        const std::size_t offset = start == 0 ? 0 : start - 1;
        if (offset < searchedFrom_ || offset > found_) {
            searchedFrom_ = offset;
            found_ = text_.find(tag_, offset);
        }
        return found_ == npos ? 0 : found_ + 1;
    }

  private:
    static constexpr std::size_t npos = std::string_view::npos;

    std::string_view text_;
    std::string_view tag_;
    std::size_t searchedFrom_ = npos;
    std::size_t found_ = npos;
};

/// Reads the entries of a settings file, one after the other. Positions count bytes from 1.
class EntryReader {
  public:
    struct Entry {
        std::string_view key;
        std::string_view value;
    };

    explicit EntryReader(std::string_view text) : text_(text), visited_(text.size() + kString.opening.size() + 1) {}

    bool HasKey() {
        const std::size_t opening = keyOpening_.Find(1);
        return opening != 0 && keyClosing_.Find(opening) != 0;
    }

    /// The next entry; none at the end. A search that fails counts as found at 0, which leads back into the text, so
    /// having come to a place again is the end as well.
    std::optional<Entry> Next() {
        if (visited_[position_]) return std::nullopt;
        visited_[position_] = true;
        const std::size_t opening = keyOpening_.Find(position_ + 1);
        if (opening == 0) return std::nullopt;
        const std::size_t keyStart = opening + kKey.opening.size();
        const std::size_t keyEnd = keyClosing_.Find(keyStart);
        position_ = stringOpening_.Find(keyEnd) + kString.opening.size();
        return Entry{Between(keyStart, keyEnd), Between(position_, stringClosing_.Find(position_))};
    }

  private:
    std::string_view Between(std::size_t start, std::size_t end) const {
        return end > start ? text_.substr(start - 1, end - start) : std::string_view();
    }

    std::string_view text_;
    TagFinder keyOpening_{text_, kKey.opening};
    TagFinder keyClosing_{text_, kKey.closing};
    TagFinder stringOpening_{text_, kString.opening};
    TagFinder stringClosing_{text_, kString.closing};

    /// Where the latest value begins; 0 at first.
    std::size_t position_ = 0;
    std::vector<bool> visited_;
};

std::optional<std::string> ReadWhole(const std::string& name) {
    const Ref<FolderItem> file = SpecialFolder::Preferences()->Child(name);
    if (!file->Exists()) return std::nullopt;

    const Ref<TextInputStream> stream = file->OpenAsTextFile();
    std::string text = stream->ReadAll();
    stream->Close();
    return text;
}

void WriteWhole(const std::string& name, const std::string& text, const char* failure) {
    const Ref<FolderItem> file = SpecialFolder::Preferences()->Child(name);
    if (!file) {
        MsgBox(failure);
        return;
    }
    if (file->Exists()) file->Delete();

    const Ref<TextOutputStream> stream = file->CreateTextFile();
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

    // The values are parts of this one text: in an odd file each of them may reach to its end.
    const auto text = std::make_shared<const std::string>(std::move(*contents));
    EntryReader reader(*text);
    if (!reader.HasKey()) return false;
    while (const auto entry = reader.Next())
        Put(std::string(entry->key), Variant(text, entry->value));
    return true;
}

void Preferences::WriteFile() {
    const auto& keys = mDict.Keys();
    const auto& values = mDict.Values();
    if (Filename.empty()) {
        MsgBox(kNoNameToWrite);
        return;
    }
    if (keys.empty()) {
        MsgBox(kNothingToWrite);
        return;
    }

    std::string text(kHeader);
    for (std::size_t i = 0; i < keys.size(); ++i) {
        Append(text, kKey, keys[i].StringValue());
        Append(text, kString, values[i].StringValue());
    }
    text += kFooter;
    WriteWhole(Filename, text, kNoFile);
}

Variant Preferences::Get(const std::string& key, const Variant& initial) {
    if (!mDict.HasKey(key)) mDict.Value(key, initial);
    return mDict.Value(key);
}

void Preferences::Put(const std::string& key, const Variant& value) { mDict.Value(key, value); }

void Preferences::Clear() { mDict = Dictionary(); }

void Preferences::WritePagePrefsFile(const std::string& text) {
    if (PagePrefsFilename.empty()) {
        MsgBox(kNoPageNameToWrite);
        return;
    }
    WriteWhole(PagePrefsFilename, text, kNoPageFile);
}

std::string Preferences::ReadPagePrefsFile() {
    // It asks for the other file's name, so both have to be set.
    if (Filename.empty()) {
        MsgBox(kNoNameToRead);
        return {};
    }
    return ReadWhole(PagePrefsFilename).value_or("");
}

void Preferences::Constructor() { mDict = Dictionary(); }
