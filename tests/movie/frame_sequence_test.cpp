#include <gmock/gmock.h>

#include <vector>

#include "movie/FrameSequence.h"

namespace {

using testing::ElementsAreArray;

struct Row {
    Int32 startTime;
    double frameRate;
    Int32 count;
    std::vector<Int32> first;
    std::vector<Int32> last;
};

TEST(FrameSequenceTest, GoesFromTheFullTimeToZero) {
    const Row rows[] = {
        {3600, 1, 3600, {3600, 3599, 3598}, {2, 1, 0}},
        {10, 30, 300, {10, 9, 9}, {0, 0, 0}},
        {10, 2.5, 25, {10, 9, 9, 8}, {0, 0, 0}},
        {95, 0.1, 10, {100, 90, 80}, {20, 10, 0}},
        {7, 0.3, 3, {10, 6, 3}, {3, 0}},
        {3600, 0.07, 253, {3600, 3599, 3585}, {28, 14, 0}},
        {3600, 0.016666666666666, 60, {3600, 3540, 3480}, {120, 60, 0}},
        {7200, 1, 7200, {3600, 3600, 3600}, {2, 1, 0}},
        {0, 29.97, 0, {0}, {0}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.startTime << " s at " << row.frameRate);
        const FrameSequence frames(row.startTime, row.frameRate);
        ASSERT_EQ(frames.Count(), row.count);
        std::vector<Int32> seconds;
        for (Int32 i = frames.Count(); i >= 0; --i)
            seconds.push_back(frames.Seconds(i));
        EXPECT_THAT(std::vector(seconds.begin(), seconds.begin() + static_cast<int>(row.first.size())),
                    ElementsAreArray(row.first));
        EXPECT_THAT(std::vector(seconds.end() - static_cast<int>(row.last.size()), seconds.end()),
                    ElementsAreArray(row.last));
        for (Int32 i = frames.Count(); i >= 0; --i)
            EXPECT_EQ(FrameSequence::ShowsTimeUp(i), i == 0);
    }
}

TEST(FrameSequenceTest, CutsTheQuotientAsItFalls) {
    EXPECT_EQ(FrameSequence(100, 1.1).Seconds(33), 29);
    const FrameSequence frames(10, 30);
    for (Int32 i = 29; i >= 0; --i)
        EXPECT_EQ(frames.Seconds(i), 0);
    for (Int32 i = 299; i >= 270; --i)
        EXPECT_EQ(frames.Seconds(i), 9);
}

TEST(FrameSequenceTest, ANegativeTimeHasNoFrame) { EXPECT_LT(FrameSequence(-1, 1).Count(), 0); }

}  // namespace
