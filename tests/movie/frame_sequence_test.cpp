#include "movie/FrameSequence.h"

#include <gmock/gmock.h>

#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// The seconds of all frames, in the order of the movie; only the last one says that time is up.
std::vector<Int32> Shown(const FrameSequence& frames) {
    std::vector<Int32> shown;
    for (Int32 i = frames.Count(); i >= 0; --i) {
        EXPECT_EQ(FrameSequence::ShowsTimeUp(i), i == 0);
        shown.push_back(frames.Seconds(i));
    }
    return shown;
}

TEST(FrameSequenceTest, GoesFromTheFullTimeToZero) {
    EXPECT_THAT(Shown({4, 2}), ElementsAre(4, 3, 3, 2, 2, 1, 1, 0, 0));
    EXPECT_THAT(Shown({7, 0.3}), ElementsAre(10, 6, 3, 0));
    EXPECT_THAT(Shown({0, 29.97}), ElementsAre(0));
    EXPECT_THAT(Shown({-1, 1}), IsEmpty());
    EXPECT_EQ(FrameSequence(100, 1.1).Seconds(33), 29) << "29.999999999999996 is cut as it falls";
}

TEST(FrameSequenceTest, IsHeldAtTheFullClock) {
    const struct {
        Int32 startTime;
        double frameRate;
        Int32 count, first, second;
    } rows[] = {{3600, 30, 108'000, 3600, 3599}, {3600, 0.07, 253, 3600, 3599}, {3605, 1, 3605, 3600, 3600}};
    for (const auto& [startTime, frameRate, count, first, second] : rows) {
        const FrameSequence frames(startTime, frameRate);
        EXPECT_EQ(frames.Count(), count);
        EXPECT_EQ(frames.Seconds(count), first);
        EXPECT_EQ(frames.Seconds(count - 1), second);
    }
}

}  // namespace
