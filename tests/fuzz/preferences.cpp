#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "settings/Preferences.h"
#include "tests/fuzz/fuzz.h"
#include "tests/support/RecordingHost.h"

// Any file is read to its end, as a plain scan reads it, and what is stored is read again.

namespace {

using Entries = std::vector<std::pair<std::string, std::string>>;

struct Recorder final : Preferences {
    Recorder() {
        Constructor();
        Filename = "fuzz.plist";
    }
    void Put(const std::string& key, const Variant& value) override {
        entries.emplace_back(key, value.StringValue());
        Preferences::Put(key, value);
    }
    Entries entries;
};

/// The scan, told without a thought for speed: every search begins anew, and one that fails has found position 0.
Entries Scan(const std::string& text) {
    const auto find = [&text](const char* tag, std::size_t start) {
        return text.find(tag, std::max<std::size_t>(start, 1) - 1) + 1;
    };
    const auto between = [&text](std::size_t start, std::size_t end) {
        return end > start ? text.substr(start - 1, end - start) : "";
    };
    Entries entries;
    std::set<std::size_t> visited;
    const std::size_t first = find("<key>", 1);
    if (first == 0 || find("</key>", first) == 0) return {};
    for (std::size_t position = 0, key = 0; (key = find("<key>", position + 1)) != 0;) {
        const std::size_t keyEnd = find("</key>", key + 5);
        position = find("<string>", keyEnd) + 8;
        if (!visited.insert(position).second) break;
        entries.emplace_back(between(key + 5, keyEnd), between(position, find("</string>", position)));
    }
    return entries;
}

bool HoldsTag(const std::pair<std::string, std::string>& entry) {
    return std::ranges::any_of(std::to_array({"<key>", "</key>", "<string>", "</string>"}), [&entry](const char* tag) {
        return entry.first.find(tag) != std::string::npos || entry.second.find(tag) != std::string::npos;
    });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    SaveAnew(Host::Current().PreferencesFolder() / "fuzz.plist", text);
    Recorder first;
    Require(first.ReadFile() == !first.entries.empty(), "True means that there are entries");
    Require(first.entries == Scan(text), "the entries are those of a plain scan");
    if (first.entries.empty() || std::ranges::any_of(first.entries, HoldsTag)) return 0;

    first.WriteFile();
    Recorder second;
    Require(second.ReadFile(), "what was written is read");
    for (const auto& [key, value] : first.entries)
        Require(second.Get(key, "?") == first.Get(key, ""), "each value is read again");
    return 0;
}
