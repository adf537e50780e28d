#include "platform/Picture.h"

#include <algorithm>

#include "platform/FolderItem.h"
#include "tests/fuzz/fuzz.h"
#include "tests/support/RecordingHost.h"

// Any file gives a picture of a size that the program can bear, the same each time, or nil.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kMostPixels = std::size_t{4096} * 4096;
    const std::filesystem::path file = Host::Current().PreferencesFolder() / "picture";
    SaveAnew(file, {reinterpret_cast<const char*>(data), size});
    const Ref<Picture> picture = FolderItem(file).OpenAsPicture();
    const Ref<Picture> again = FolderItem(file).OpenAsPicture();
    Require(!picture == !again, "it is there each time");
    if (!picture) return 0;
    Require(picture->Width() > 0 && picture->Height() > 0, "a picture has pixels");
    const auto pixels = static_cast<std::size_t>(picture->Width()) * static_cast<std::size_t>(picture->Height());
    Require(picture->Bits().size() == pixels, "and all of them");
    Require(pixels <= kMostPixels, "but not more than the program can bear");
    Require(std::ranges::equal(picture->Bits(), again->Bits()), "nothing comes from memory that nobody has set");
    return 0;
}
