#include "movie/FrameSequence.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

TEST(FrameSequenceTest, GoesFromTheFullTimeToZero) {
    struct Row {
        Int32 startTime;
        double frameRate;
        Int32 count;
        std::vector<Int32> first, last;
    };
    for (const Row& row : {Row{3600, 1, 3600, {3600, 3599}, {1, 0}}, Row{10, 30, 300, {10, 9, 9}, {0, 0}},
                           Row{95, 0.1, 10, {100, 90}, {20, 10, 0}}, Row{7, 0.3, 3, {10, 6, 3, 0}, {3, 0}},
                           Row{3600, 0.016666666666666, 60, {3600, 3540}, {60, 0}},
                           Row{7200, 1, 7200, {3600, 3600}, {1, 0}}, Row{0, 29.97, 0, {0}, {0}}}) {
        SCOPED_TRACE(testing::Message() << row.startTime << " s at " << row.frameRate);
        const FrameSequence frames(row.startTime, row.frameRate);
        ASSERT_EQ(frames.Count(), row.count);
        for (Int32 i = 0; i < std::ssize(row.first); ++i)
            EXPECT_EQ(frames.Seconds(frames.Count() - i), row.first[static_cast<std::size_t>(i)]);
        for (Int32 i = 0; i < std::ssize(row.last); ++i)
            EXPECT_EQ(frames.Seconds(i), *(row.last.rbegin() + i));
    }
    EXPECT_LT(FrameSequence(-1, 1).Count(), 0) << "a negative time has no frame";
}

TEST(FrameSequenceTest, CutsTheQuotientAsItFalls) {
    EXPECT_EQ(FrameSequence(100, 1.1).Seconds(33), 29);
    EXPECT_EQ(FrameSequence(10, 30).Seconds(29), 0);
    EXPECT_EQ(FrameSequence(10, 30).Seconds(299), 9);
}

TEST(FrameSequenceTest, TimeIsUpInTheLastFrameAlone) {
    EXPECT_TRUE(FrameSequence::ShowsTimeUp(0));
    EXPECT_FALSE(FrameSequence::ShowsTimeUp(1));
}

}  // namespace
