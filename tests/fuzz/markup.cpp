#include "shell/markup.h"

#include "tests/fuzz/fuzz.h"

// The text is the input without its tags, and the runs are as short a list as can be.

namespace {

std::string TextOf(const StyledText& runs) {
    std::string text;
    for (const StyleRun& run : runs)
        text += run.text;
    return text;
}

/// Whether `input` is `text` with tags put into it, and with no tag left in it.
bool IsWithoutTags(std::string_view text, std::string_view input) {
    while (!input.empty()) {
        const bool isTag = input.front() == '<' && input.find('>') != std::string_view::npos;
        if (!isTag && (text.empty() || text.front() != input.front())) return false;
        text.remove_prefix(isTag ? 0 : 1);
        input.remove_prefix(isTag ? input.find('>') + 1 : 1);
    }
    return text.empty();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const StyledText runs = ParseMarkup(input, 12);
    const std::string text = TextOf(runs);
    Require(IsWithoutTags(text, input), "text and tags are the input");
    Require(TextOf(ParseMarkup(text, 12)) == text, "no tag is left");
    for (std::size_t i = 0; i < runs.size(); ++i) {
        Require(!runs[i].text.empty(), "no run is empty");
        Require(i == 0 || runs[i].style != runs[i - 1].style, "neighbours differ");
    }
    return 0;
}
