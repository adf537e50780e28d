#include "movie/FrameSequence.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/Text.h"

namespace {

/// What all frames show, in the order of the movie: the seconds, "!" for the text.
std::string Shown(const FrameSequence& frames) {
    std::string shown;
    for (Int32 i = frames.Count(); i >= 0; --i)
        shown += Str(frames.Seconds(i)) + (FrameSequence::ShowsTimeUp(i) ? "!" : " ");
    return shown;
}

TEST(FrameSequenceTest, GoesFromTheFullTimeToZero) {
    EXPECT_EQ(Shown({4, 2}), "4 3 3 2 2 1 1 0 0!");
    EXPECT_EQ(Shown({4, 1.1}), "4 3 2 1 0 0!");
    EXPECT_EQ(Shown({95, 0.1}), "100 90 80 70 60 50 40 30 20 10 0!");
    EXPECT_EQ(Shown({7, 0.3}), "10 6 3 0!");
    EXPECT_EQ(Shown({0, 29.97}), "0!");
    EXPECT_EQ(Shown({-1, 1}), "");
}

TEST(FrameSequenceTest, IsHeldAtTheFullClock) {
    struct Row {
        Int32 startTime;
        double frameRate;
        Int32 count, first, second;
    };
    for (const Row& row :
         {Row{3600, 1, 3600, 3600, 3599}, Row{3600, 30, 108'000, 3600, 3599}, Row{3600, 0.07, 253, 3600, 3599},
          Row{3600, 0.016666666666666, 60, 3600, 3540}, Row{3605, 1, 3605, 3600, 3600}}) {
        SCOPED_TRACE(testing::Message() << row.startTime << " s at " << row.frameRate);
        const FrameSequence frames(row.startTime, row.frameRate);
        EXPECT_EQ(frames.Count(), row.count);
        EXPECT_EQ(frames.Seconds(row.count), row.first);
        EXPECT_EQ(frames.Seconds(row.count - 1), row.second);
    }
}

TEST(FrameSequenceTest, CutsTheQuotientAsItFalls) {
    EXPECT_EQ(FrameSequence(100, 1.1).Seconds(33), 29);  // 29.999999999999996
    EXPECT_EQ(FrameSequence(100, 1.1).Seconds(34), 30);
}

}  // namespace
