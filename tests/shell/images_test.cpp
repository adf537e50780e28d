#include "shell/resources.h"

#include <gtest/gtest.h>

#include <QtGui/QGuiApplication>
#include <cstdlib>
#include <filesystem>
#include <vector>

#include "core/winMain.h"
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
        EXPECT_EQ(seen.width(), 17 * qApp->devicePixelRatio());
        for (const QPoint corner : {seen.rect().topLeft(), seen.rect().bottomRight()})
            EXPECT_EQ(seen.pixelColor(corner).alpha(), 0);
        EXPECT_EQ(seen.pixelColor(seen.rect().center()).alpha(), 255);
    }
}

// Both are sought from the executable's place, so a copy of this one is run where they are missing.
TEST(ImagesTest, WithoutImagesNothingIsDrawnAndWithoutTheModuleThereAreNoMovies) {
    const fs::path executable = Application::ExecutableFile()->Path();
    RecordingHost& host = RecordingHost::InstallNew();
    if (executable.filename() != "copy") {
        const fs::path copy = host.preferencesFolder / "copy";
        fs::copy_file(executable, copy);
        EXPECT_EQ(std::system((copy.string() + " --gtest_filter=*WithoutImages*").c_str()), 0);
        return;
    }
    EXPECT_FALSE(Run_Icon() || AboutIcon() || MwRbHzMd());
    NewPicture(40, 40, 32)->Graphics()->DrawPicture(Run_Icon(), 0, 0, kOwnSize, kOwnSize, 0, 0, kOwnSize, kOwnSize);
    EXPECT_TRUE(winMain::Instance()._FileCreateMovie_Action());
    EXPECT_EQ(host.messages, std::vector<std::string>{"QuickTime needs to be installed to create movies."});
}

TEST(ImagesTest, ADenseScreenGetsFinerPicturesOfTheSameSize) {
    const std::string self = Application::ExecutableFile()->Path();
    EXPECT_EQ(std::system(("QT_SCALE_FACTOR=2 " + self + " --gtest_filter=*Icons*").c_str()), 0);
}

}  // namespace
