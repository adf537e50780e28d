#include <gmock/gmock.h>
#include <sys/resource.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "platform/Graphics.h"
#include "tests/support/Files.h"
#include "tests/support/RecordingHost.h"

// Movies are read back by ffprobe and ffmpeg, each in a process of its own.

namespace fs = std::filesystem;
using testing::StartsWith;

namespace {

constexpr std::tuple<MovieCodec, const char*, bool> kForms[] = {
    {MovieCodec::Uncompressed, "raw ", true}, {MovieCodec::H264, "avc1", false},
    {MovieCodec::H265, "hvc1", false},        {MovieCodec::Mpeg4, "mp4v", false},
    {MovieCodec::ProRes4444, "ap4h", false},  {MovieCodec::PhotoJpeg, "jpeg", false},
    {MovieCodec::Png, "png ", true},          {MovieCodec::Animation, "rle ", true},
};

std::string Output(const std::string& command) {
    FILE* const pipe = popen(command.c_str(), "r");
    std::string output;
    char buffer[1 << 16];
    while (const std::size_t length = fread(buffer, 1, sizeof buffer, pipe))
        output.append(buffer, length);
    EXPECT_EQ(pclose(pipe), 0) << command;
    return output;
}

/// What ffprobe says of a movie, in its own order: a line for each track.
std::string Probe(const fs::path& movie, const std::string& entries, const std::string& options = "-count_frames") {
    return Output("ffprobe -v error " + options + " -of csv=p=0 -show_entries stream=" + entries + " " +
                  movie.string());
}

/// All frames of a movie, three bytes a pixel.
std::string Decoded(const fs::path& movie) {
    return Output("ffmpeg -v error -i " + movie.string() + " -fps_mode passthrough -f rawvideo -pix_fmt rgb24 -");
}

/// Draws a red half above a half in the number's colour.
void Draw(Picture& picture, Int32 number) {
    const Color colors[] = {RGB(255, 255, 255), RGB(0x9F, 0x9F, 0x9F), RGB(0, 0, 0)};
    picture.Graphics()->ForeColor(RGB(255, 0, 0));
    picture.Graphics()->FillRect(0, 0, picture.Width(), picture.Height());
    picture.Graphics()->ForeColor(colors[number]);
    picture.Graphics()->FillRect(0, picture.Height() / 2, picture.Width(), picture.Height());
}

PixelView View(Picture& picture) { return {picture.Width(), picture.Height(), picture.Bits()}; }

/// The largest difference of two pictures in the middles of their halves.
int Difference(const std::string& one, const std::string& other, Int32 width, Int32 height) {
    int largest = 0;
    for (const Int32 quarter : {1, 3}) {
        const auto pixel = static_cast<std::size_t>(height * quarter / 4 * width + width / 2);
        for (std::size_t i = 3 * pixel; i < 3 * pixel + 3; ++i)
            largest = std::max(largest, std::abs(std::uint8_t(one[i]) - std::uint8_t(other[i])));
    }
    return largest;
}

class MovieFileTest : public testing::Test {
  protected:
    MovieFileTest() { testing::internal::CaptureStderr(); }
    ~MovieFileTest() override {
        Host::Install(nullptr);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "nothing has failed";
    }

    /// The output since the last call.
    static std::string TakeStandardError() {
        const std::string said = testing::internal::GetCapturedStderr();
        testing::internal::CaptureStderr();
        return said;
    }

    /// Writes a movie with a frame for each number.
    void Write(Int32 width, Int32 height, const CompressionSettings& settings, const std::vector<Int32>& numbers) {
        const auto writer = MovieLibrary::Installed().Create(path);
        writer->SaveOnClose(true);
        writer->AddTrack(width, height, settings.frameRate);
        if (settings.codec != MovieCodec::Uncompressed) writer->Settings(settings);
        const Ref<Picture> picture = NewPicture(width, height, 32);
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            if (i == 0 || numbers[i] != numbers[i - 1]) Draw(*picture, numbers[i]);
            writer->Append(View(*picture));
        }
    }

    RecordingHost& host = RecordingHost::InstallNew();
    const fs::path path = host.preferencesFolder / "movie.mov";
};

// No other test here makes a choice, so this one sees the first proposal.
TEST_F(MovieFileTest, ProposesTheFirstCodecAndThenTheLastChoice) {
    std::string names;
    for (const CodecChoice& choice : MovieLibrary::Installed().Codecs())
        names += choice.name + ", ";
    EXPECT_EQ(names, "H.264, H.265, MPEG-4, Apple ProRes 4444, Photo - JPEG, PNG, Animation, ");
    const Ref<EditableMovie> movie = FolderItem(path).CreateMovie();
    const Ref<QTVideoTrack> track = movie->NewVideoTrack(32, 32, 2.5);
    host.chosenCompression = CompressionSettings{MovieCodec::PhotoJpeg, 33, 12};
    for (const bool isConfirmed : {false, true}) {
        host.isCompressionConfirmed = isConfirmed;
        EXPECT_EQ(track->FrameRate(), 2.5);
        EXPECT_EQ(track->SelectCompressionSettings(nullptr), isConfirmed);
        EXPECT_EQ(host.proposedCompression, (CompressionSettings{MovieCodec::H264, 75, 2.5}));
    }
    EXPECT_EQ(track->FrameRate(), 12);
    FolderItem(path).CreateMovie()->NewVideoTrack(32, 32, 1)->SelectCompressionSettings(nullptr);
    EXPECT_EQ(host.proposedCompression, (CompressionSettings{MovieCodec::PhotoJpeg, 33, 1}));
}

TEST_F(MovieFileTest, EveryCodecKeepsEveryFrameAndPreviewsIt) {
    const std::vector<Int32> numbers{0, 0, 0, 1, 2, 2, 0};
    for (const auto& [width, height] : {std::pair{35, 32}, {32, 33}, {964, 324}}) {  // the last for two threads
        const std::string size = std::to_string(width) + "," + std::to_string(height);
        const Ref<Picture> picture = NewPicture(width, height, 32);
        std::string drawn[3];
        for (Int32 number = 0; number < 3; ++number) {
            Draw(*picture, number);
            drawn[number] = Bytes(*picture);
        }
        for (const auto& [codec, tag, isLossless] : kForms) {
            SCOPED_TRACE(size + " " + tag);
            Write(width, height, {.codec = codec, .frameRate = 2.5}, numbers);
            EXPECT_EQ(Probe(path, "codec_tag_string,width,height,duration,nb_frames,nb_read_frames"),
                      tag + ("," + size) + ",2.800000,7,7\n");
            const std::string decoded = Decoded(path);
            ASSERT_EQ(decoded.size(), numbers.size() * drawn[0].size());
            for (std::size_t i = 0; i < numbers.size(); ++i) {
                const std::string frame = decoded.substr(i * drawn[0].size(), drawn[0].size());
                EXPECT_TRUE(!isLossless || frame == drawn[numbers[i]]) << i;
                EXPECT_LE(Difference(frame, drawn[numbers[i]], width, height), 4) << i;
            }
            const auto preview = MovieLibrary::Installed().EncodePreview({.codec = codec}, View(*picture), {});
            ASSERT_TRUE(preview);
            EXPECT_LE(Difference({preview->bytes.begin(), preview->bytes.end()}, drawn[2], width, height), 4);
        }
    }
}

TEST_F(MovieFileTest, DurationsAreExactToTheTick) {
    constexpr Int64 kHour = 60 * 60 * 30 + 1;
    const std::tuple<MovieCodec, double, Int64, Int64, Int64> movies[] = {
        {MovieCodec::Png, 29.97, 2997, 100, kHour}, {MovieCodec::Png, 0.016666666666666, 1, 60, kHour},
        {MovieCodec::H264, 23.976, 2997, 125, 301}, {MovieCodec::Mpeg4, 12.3457, 123457, 10000, 100},
        {MovieCodec::H265, 1.1, 11, 10, 100},       {MovieCodec::Mpeg4, 1e6, 1000000, 1, 9},
    };
    for (const auto& [codec, rate, numerator, denominator, frames] : movies) {
        SCOPED_TRACE(rate);
        Write(32, 32, {.codec = codec, .frameRate = rate}, std::vector<Int32>(static_cast<std::size_t>(frames)));
        long perSecond = 0, ticks = 0, written = 0;
        const std::string probed = Probe(path, "time_base,duration_ts,nb_frames", "");
        ASSERT_EQ(std::sscanf(probed.c_str(), "1/%ld,%ld,%ld", &perSecond, &ticks, &written), 3) << probed;
        EXPECT_EQ(written, frames);
        EXPECT_EQ(ticks * numerator, frames * denominator * perSecond);
        EXPECT_LE(ticks, std::numeric_limits<Int32>::max());
    }
}

TEST_F(MovieFileTest, WhatCannotBeAMovieIsNil) {
    SaveText(path, "what was there");
    for (const fs::path& where : {path.parent_path(), path / "within"}) {
        EXPECT_FALSE(FolderItem(where).CreateMovie()) << where;
        EXPECT_THAT(TakeStandardError(), StartsWith(where.string() + ": making the file: "));
    }
    FolderItem(path).CreateMovie()->SaveOnClose(true);
    EXPECT_TRUE(fs::is_empty(path)) << "without a track there is nothing to save";
    Ref<EditableMovie> movie = FolderItem(path).CreateMovie();
    EXPECT_TRUE(fs::is_empty(path)) << "it exists from the start";
    for (const auto& [width, height, rate] :
         {std::tuple(0, 32, 1.0), {32, 65536, 1}, {60000, 60000, 1}, {32, 32, 0}, {32, 32, 1e300}}) {
        EXPECT_FALSE(movie->NewVideoTrack(width, height, rate)) << width << " x " << height << " at " << rate;
        EXPECT_EQ(TakeStandardError(), path.string() + ": making the track: Invalid argument\n");
    }
    Ref<QTVideoTrack> track = movie->NewVideoTrack(64, 48, 1);
    EXPECT_FALSE(movie->NewVideoTrack(64, 48, 1)) << "it has one";
    track->AppendPicture(NewPicture(48, 64, 32));
    EXPECT_THROW(track->AppendPicture(nullptr), NilObjectException);
    movie = nullptr;
    track = nullptr;
    EXPECT_EQ(LoadText(path).find("moov"), std::string::npos) << "it is a movie only when saved";
}

// A limit of the file's size stands for a full disk or quota.
TEST_F(MovieFileTest, OnAFullDiskAMoviePlaysAsFarAsItCame) {
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit unlimited{};
    getrlimit(RLIMIT_FSIZE, &unlimited);
    std::vector<Int32> numbers;
    for (Int32 i = 0; i < 300; ++i)
        numbers.push_back(i / 2 % 3);
    for (const auto& [codec, tag, isLossless] : kForms) {
        SCOPED_TRACE(tag);
        const CompressionSettings settings{.codec = codec, .frameRate = 30};
        Write(160, 120, settings, numbers);
        const auto whole = static_cast<rlim_t>(fs::file_size(path));
        long before = 0;
        for (const rlim_t room : {whole / 2, whole - 1}) {
            const rlimit limit{room, unlimited.rlim_max};
            setrlimit(RLIMIT_FSIZE, &limit);
            Write(160, 120, settings, numbers);
            setrlimit(RLIMIT_FSIZE, &unlimited);
            EXPECT_LE(fs::file_size(path), room);
            EXPECT_EQ(TakeStandardError(), path.string() + ": keeping room for frames: File too large\n");
            const long frames = std::stol(Probe(path, "nb_read_frames"));
            EXPECT_GT(frames, before + 30);
            EXPECT_LT(frames, 300);
            before = frames;
        }
    }
}

}  // namespace
