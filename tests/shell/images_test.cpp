#include "shell/images.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "platform/Application.h"
#include "platform/Graphics.h"
#include "platform/qt/Pixels.h"
#include "tests/support/RecordingHost.h"

namespace fs = std::filesystem;

namespace {

constexpr Int32 kOwnSize = -10000;

struct Image {
    Ref<Picture> (*accessor)();
    Int32 width;
    Int32 height;
};
constexpr Image kImages[] = {{Run_Icon, 17, 17},   {Run_Mask, 17, 17},     {Pause_Icon, 17, 17},  {Pause_Mask, 17, 17},
                             {Alert_Icon, 17, 17}, {Alert_Mask, 17, 17},   {AboutIcon, 128, 128}, {AboutMask, 128, 128},
                             {MwRbHzMd, 216, 30},  {MwRbHzMdMask, 216, 30}};

// Before any other test, which would load the icons: the very first draw is the one to look at.
TEST(ImagesTest, IconsAreTransparentFromTheirFirstDraw) {
    const Color colours[] = {RGB(0, 160, 80), RGB(200, 30, 30)};
    for (auto* const icon : {Run_Icon, Pause_Icon, Alert_Icon}) {
        Color middles[2];
        for (int i = 0; i < 2; ++i) {
            const auto surface = NewPicture(40, 40, 32);
            const auto colourAt = [&](int x, int y) {
                return Color{Int32(surface->pixels().View().pixel(x, y) & 0xFFFFFF)};
            };
            surface->Graphics()->ForeColor(colours[i]);
            surface->Graphics()->FillRect(0, 0, 40, 40);
            surface->Graphics()->DrawPicture(icon(), 10, 10, kOwnSize, kOwnSize, 0, 0, kOwnSize, kOwnSize);
            for (const auto& [x, y] : {std::pair(10, 10), {26, 10}, {10, 26}, {26, 26}})
                EXPECT_EQ(colourAt(x, y), colours[i]) << x << ", " << y;
            middles[i] = colourAt(18, 18);
        }
        EXPECT_EQ(middles[0], middles[1]) << "the ground shows through the icon";
    }
}

TEST(ImagesTest, EachIsLoadedOnceInItsSize) {
    for (const Image& image : kImages) {
        SCOPED_TRACE(&image - kImages);
        const auto picture = image.accessor();
        ASSERT_TRUE(picture);
        EXPECT_EQ(picture->Width(), image.width);
        EXPECT_EQ(picture->Height(), image.height);
        EXPECT_EQ(image.accessor(), picture);
    }
}

// The images are sought beside the folder of the executable, so a copy of this one is run where they are missing.
TEST(ImagesTest, AMissingImageIsNilAndSoughtAgain) {
    const fs::path executable = Application::ExecutableFile()->Path();
    const fs::path home = executable.parent_path().parent_path();
    if (fs::exists(home / "Resources")) {
        const fs::path copy = RecordingHost::InstallNew().preferencesFolder / "bin" / "copy";
        fs::create_directory(copy.parent_path());
        fs::copy_file(executable, copy);
        fs::copy(home / "Resources", copy.parent_path() / "later");
        EXPECT_EQ(std::system((copy.string() + " --gtest_filter=*AMissingImageIsNilAndSoughtAgain").c_str()), 0);
        return;
    }
    for (const Image& image : kImages)
        EXPECT_FALSE(image.accessor());
    NewPicture(40, 40, 32)->Graphics()->DrawPicture(Run_Icon(), 10, 10, kOwnSize, kOwnSize, 0, 0, kOwnSize, kOwnSize);
    fs::rename(executable.parent_path() / "later", home / "Resources");
    for (const Image& image : kImages)
        EXPECT_TRUE(image.accessor());
}

}  // namespace
