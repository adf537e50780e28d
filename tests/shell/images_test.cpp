#include "shell/images.h"

#include <gtest/gtest.h>

#include <QtGui/QGuiApplication>
#include <cstdlib>
#include <filesystem>

#include "platform/Application.h"
#include "platform/Graphics.h"
#include "platform/qt/drawing/Pixels.h"
#include "tests/support/RecordingHost.h"

namespace fs = std::filesystem;

namespace {

/// A ground of one colour with an icon on it.
class Drawn {
  public:
    Drawn(Color ground, const Ref<Picture>& icon) {
        surface_->Graphics()->ForeColor(ground);
        surface_->Graphics()->FillRect(0, 0, 40, 40);
        surface_->Graphics()->DrawPicture(icon, 10, 10, kOwnSize, kOwnSize, 0, 0, kOwnSize, kOwnSize);
    }
    Color At(int x, int y) const { return {static_cast<Int32>(surface_->pixels().View().pixel(x, y) & 0xFFFFFF)}; }

  private:
    const Ref<Picture> surface_ = NewPicture(40, 40, 32);
};

// Before any other test, which would load the icons: the very first draw is the one to look at.
TEST(ImagesTest, IconsAreTransparentFromTheirFirstDraw) {
    const Color green = RGB(0, 160, 80), red = RGB(200, 30, 30);
    for (auto* const icon : {Run_Icon, Pause_Icon, Alert_Icon}) {
        const Drawn first(green, icon()), second(red, icon());
        for (const auto& [x, y] : {std::pair(10, 10), {26, 10}, {10, 26}, {26, 26}}) {
            EXPECT_EQ(first.At(x, y), green);
            EXPECT_EQ(second.At(x, y), red);
        }
        EXPECT_EQ(first.At(18, 18), second.At(18, 18)) << "the ground shows through the icon";
    }
}

// The images are sought beside the folder of the executable, so a copy of this one is run where they are missing. The
// module that reads PICT files isn't there either.
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
    EXPECT_FALSE(Run_Icon() || AboutIcon() || MwRbHzMd());
    EXPECT_EQ(Drawn(RGB(1, 2, 3), Run_Icon()).At(18, 18), RGB(1, 2, 3));
    fs::rename(executable.parent_path() / "later", home / "Resources");
    for (auto* const image :
         {Run_Icon, Run_Mask, Pause_Icon, Pause_Mask, Alert_Icon, Alert_Mask, MwRbHzMd, MwRbHzMdMask}) {
        ASSERT_TRUE(image());
        EXPECT_EQ(image(), image());
    }
    EXPECT_FALSE(AboutIcon() || AboutMask());
}

TEST(ImagesTest, ADenseScreenGetsFinerPicturesOfTheSameSize) {
    if (qApp->devicePixelRatio() == 1) {
        const std::string self = Application::ExecutableFile()->Path();
        EXPECT_EQ(std::system(("QT_SCALE_FACTOR=2 " + self + " --gtest_filter=*ADenseScreen*").c_str()), 0);
        return;
    }
    for (auto* const image : {Alert_Icon, Alert_Mask, AboutIcon, MwRbHzMd})
        EXPECT_EQ(image()->pixels().View().width(), 2 * image()->Width());
    EXPECT_EQ(Alert_Icon()->Width(), 17);
    const QImage seen = Composed(*Alert_Icon());
    EXPECT_EQ(seen.devicePixelRatio(), 2);
    EXPECT_EQ(seen.pixelColor(33, 33).alpha(), 0);
    EXPECT_EQ(seen.pixelColor(30, 25).alpha(), 255);
}

}  // namespace
