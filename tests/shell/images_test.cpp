#include "shell/resources.h"

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

// Before any other test, which would load the icons: the very first use is the one to look at.
TEST(ImagesTest, IconsAreTransparentFromTheirFirstUse) {
    for (auto* const icon : {Run_Icon, Pause_Icon, Alert_Icon}) {
        const QImage seen = Composed(*icon());
        EXPECT_EQ(seen.deviceIndependentSize(), QSize(17, 17));
        for (const QPoint corner : {seen.rect().topLeft(), seen.rect().bottomRight()})
            EXPECT_EQ(seen.pixelColor(corner).alpha(), 0);
        EXPECT_EQ(seen.pixelColor(seen.rect().center()).alpha(), 255);
    }
}

// The images are sought beside the folder of the executable, so a copy of this one is run where they are missing. The
// module that reads PICT files isn't there either.
TEST(ImagesTest, AMissingImageIsNilAndDrawsNothing) {
    const fs::path executable = Application::ExecutableFile()->Path();
    if (fs::exists(executable.parent_path().parent_path() / "Resources")) {
        const fs::path copy = RecordingHost::InstallNew().preferencesFolder / "copy";
        fs::copy_file(executable, copy);
        EXPECT_EQ(std::system((copy.string() + " --gtest_filter=*AMissingImage*").c_str()), 0);
        return;
    }
    EXPECT_FALSE(Run_Icon() || AboutIcon() || MwRbHzMd());
    NewPicture(40, 40, 32)->Graphics()->DrawPicture(Run_Icon(), 0, 0, kOwnSize, kOwnSize, 0, 0, kOwnSize, kOwnSize);
}

TEST(ImagesTest, ADenseScreenGetsFinerPicturesOfTheSameSize) {
    if (qApp->devicePixelRatio() == 1) {
        const std::string self = Application::ExecutableFile()->Path();
        EXPECT_EQ(std::system(("QT_SCALE_FACTOR=2 " + self + " --gtest_filter=*Icons*:*ADense*").c_str()), 0);
        return;
    }
    for (auto* const image : {Alert_Icon, Alert_Mask, AboutIcon, MwRbHzMd})
        EXPECT_EQ(image()->pixels().View().width(), 2 * image()->Width());
}

}  // namespace
