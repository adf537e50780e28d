#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <random>
#include <string>
#include <vector>

#include "platform/FolderItem.h"
#include "platform/Picture.h"
#include "tests/support/Files.h"

namespace {

namespace fs = std::filesystem;

/// Pieces of a few bytes replaced by others, longer or shorter; now and then all that follows left out.
std::string Changed(std::string input, std::mt19937& random) {
    for (auto changes = 1 + random() % 8; changes > 0; --changes) {
        const std::size_t place = random() % (input.size() + 1);
        input.replace(place, random() % 5, random() % 5, "\0\1\x7F\x80\xFF"[random() % 5]);
        if (random() % 8 == 0) input.resize(place);
    }
    return input;
}

// Any file gives a picture of a size that the program can bear, the same each time, or nil. An input that fails, be it
// by taking too long, is left in the working folder.
TEST(PictureFuzzTest, AnyFileIsAPictureOrNil) {
    const char* const seconds = std::getenv("FUZZ_SECONDS");
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds ? std::stoi(seconds) : 3);
    std::mt19937 random;
    const fs::path file = fs::absolute("picture_test.input");
    std::vector<std::string> inputs;
    for (const auto& entry : fs::directory_iterator(FUZZ_CORPUS))
        inputs.push_back(LoadText(entry));
    const std::size_t corpus = inputs.size();
    for (std::size_t i = 0; !HasFailure() && (i < corpus || std::chrono::steady_clock::now() < end); ++i) {
        fs::remove(file);  // some file systems wait for the disk when one is written over
        SaveText(file, i < corpus ? inputs[i] : Changed(inputs[random() % corpus], random));
        alarm(20);
        const Ref<Picture> picture = FolderItem(file).OpenAsPicture(), again = FolderItem(file).OpenAsPicture();
        ASSERT_EQ(!picture, !again);
        if (!picture) continue;
        const auto pixels = static_cast<std::size_t>(picture->Width()) * static_cast<std::size_t>(picture->Height());
        ASSERT_TRUE(pixels > 0 && pixels <= std::size_t{4096} * 4096);
        ASSERT_EQ(picture->Bits().size(), pixels);
        ASSERT_TRUE(std::ranges::equal(picture->Bits(), again->Bits())) << "some memory was never set";
    }
    alarm(0);
    fs::remove(file);
}

}  // namespace
