#include "movie/FrameSequence.h"

#include <gmock/gmock.h>

#include <vector>

using testing::ElementsAreArray;

namespace {

/// So many frames in a row that show the same.
struct Stretch {
    Int32 frames;
    Int32 seconds;
    bool showsTimeUp = false;

    bool ShowsAs(const Stretch& other) const { return seconds == other.seconds && showsTimeUp == other.showsTimeUp; }
    bool operator==(const Stretch&) const = default;
};
constexpr Stretch kEnd{1, 0, true};

std::ostream& operator<<(std::ostream& stream, const Stretch& stretch) {
    return stream << stretch.frames << " of " << stretch.seconds << (stretch.showsTimeUp ? " with the text" : "");
}

/// All frames of a movie, in its order.
std::vector<Stretch> Stretches(const FrameSequence& frames) {
    std::vector<Stretch> stretches;
    for (Int32 i = frames.Count(); i >= 0; --i) {
        const Stretch next{1, frames.Seconds(i), FrameSequence::ShowsTimeUp(i)};
        const bool goesOn = !stretches.empty() && stretches.back().ShowsAs(next);
        goesOn ? void(++stretches.back().frames) : stretches.push_back(next);
    }
    return stretches;
}

TEST(FrameSequenceTest, GoesFromTheFullTimeToZero) {
    struct Row {
        Int32 startTime;
        double frameRate;
        Int32 count;
        std::vector<Stretch> first, last;
    };
    for (const Row& row : {
             Row{3600, 1, 3600, {{1, 3600}, {1, 3599}, {1, 3598}}, {{1, 2}, {1, 1}, kEnd}},
             Row{10, 30, 300, {{1, 10}, {30, 9}, {30, 8}}, {{30, 1}, {29, 0}, kEnd}},
             Row{10, 2.5, 25, {{1, 10}, {2, 9}, {3, 8}}, {{2, 1}, {2, 0}, kEnd}},
             Row{95, 0.1, 10, {{1, 100}, {1, 90}, {1, 80}}, {{1, 20}, {1, 10}, kEnd}},
             Row{7, 0.3, 3, {{1, 10}, {1, 6}, {1, 3}, kEnd}, {kEnd}},
             Row{3600, 0.07, 253, {{1, 3600}, {1, 3599}, {1, 3585}}, {{1, 28}, {1, 14}, kEnd}},
             Row{3600, 0.016666666666666, 60, {{1, 3600}, {1, 3540}, {1, 3480}}, {{1, 120}, {1, 60}, kEnd}},
             Row{31, 1.1, 35, {{1, 31}, {1, 30}, {2, 29}, {1, 28}}, {{1, 1}, {1, 0}, kEnd}},
             Row{7200, 1, 7200, {{3601, 3600}, {1, 3599}}, {kEnd}},
             Row{0, 29.97, 0, {kEnd}, {kEnd}},
             Row{-1, 1, -1, {}, {}},
         }) {
        SCOPED_TRACE(testing::Message() << row.startTime << " s at " << row.frameRate);
        const FrameSequence frames(row.startTime, row.frameRate);
        EXPECT_EQ(frames.Count(), row.count);
        const std::vector<Stretch> stretches = Stretches(frames);
        ASSERT_GE(stretches.size(), row.first.size());
        EXPECT_THAT(std::vector(stretches.begin(), stretches.begin() + std::ssize(row.first)),
                    ElementsAreArray(row.first));
        EXPECT_THAT(std::vector(stretches.end() - std::ssize(row.last), stretches.end()), ElementsAreArray(row.last));
    }
}

TEST(FrameSequenceTest, CutsTheQuotientAsItFalls) {
    EXPECT_EQ(FrameSequence(100, 1.1).Seconds(33), 29);  // 29.999999999999996
    EXPECT_EQ(FrameSequence(100, 1.1).Seconds(34), 30);
}

}  // namespace
