#include <gmock/gmock.h>
#include <sys/stat.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <limits>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "platform/EditableMovie.h"
#include "platform/FolderItem.h"
#include "platform/Graphics.h"
#include "platform/MovieLibrary.h"
#include "platform/Picture.h"
#include "tests/support/Files.h"
#include "tests/support/RecordingHost.h"

// Movies are read back by ffprobe, ffmpeg and mediainfo, each in a process of its own.

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::StartsWith;

namespace {

struct Form {
    MovieCodec codec;
    const char* tag;
    bool isLossless;
};
constexpr Form kForms[] = {
    {MovieCodec::Uncompressed, "raw ", true}, {MovieCodec::H264, "avc1", false},
    {MovieCodec::H265, "hvc1", false},        {MovieCodec::Mpeg4, "mp4v", false},
    {MovieCodec::ProRes4444, "ap4h", false},  {MovieCodec::PhotoJpeg, "jpeg", false},
    {MovieCodec::Png, "png ", true},          {MovieCodec::Animation, "rle ", true},
};

std::string Output(const std::string& command) {
    FILE* const pipe = popen(command.c_str(), "r");
    std::string output;
    char buffer[1 << 16];
    while (const std::size_t length = fread(buffer, 1, sizeof buffer, pipe)) {
        output.append(buffer, length);
    }
    EXPECT_EQ(pclose(pipe), 0) << command;
    return output;
}

/// What ffprobe tells of a movie, in an order of its own: a line for each track.
std::string Probe(const fs::path& movie, const std::string& entries, const std::string& options = "-count_frames") {
    return Output("ffprobe -v error " + options + " -of csv=p=0 -show_entries stream=" + entries + " " +
                  movie.string());
}

std::string MediaInfo(const fs::path& movie, const std::string& fields) {
    return Output("mediainfo --Output='" + fields + "' " + movie.string());
}

/// All frames of a movie, three bytes a pixel.
std::string Decoded(const fs::path& movie) {
    return Output("ffmpeg -v error -i " + movie.string() + " -fps_mode passthrough -f rawvideo -pix_fmt rgb24 -");
}

/// Three stripes, red, white and grey, with a black box low in the one of that number.
void Draw(Picture& picture, Int32 number) {
    const Color colors[] = {RGB(255, 0, 0), RGB(255, 255, 255), RGB(0x9F, 0x9F, 0x9F)};
    const Int32 width = picture.Width() / 3;
    for (Int32 stripe = 0; stripe < 3; ++stripe) {
        picture.Graphics()->ForeColor(colors[stripe]);
        picture.Graphics()->FillRect(stripe * width, 0, picture.Width(), picture.Height());
    }
    picture.Graphics()->ForeColor(RGB(0, 0, 0));
    picture.Graphics()->FillRect(number * width, picture.Height() / 2, width, picture.Height());
}

std::string Bytes(const Picture& picture) {
    std::string bytes;
    for (const std::uint32_t pixel : picture.Bits()) {
        for (const int shift : {16, 8, 0}) {
            bytes.push_back(static_cast<char>(pixel >> shift & 0xFF));
        }
    }
    return bytes;
}

PixelView View(Picture& picture) { return {picture.Width(), picture.Height(), picture.Bits()}; }

/// The largest difference of two pictures in the middle of the stripes, above and below.
int Difference(const std::string& one, const std::string& other, Int32 width, Int32 height) {
    int largest = 0;
    for (const Int32 sixth : {1, 3, 5}) {
        for (const Int32 quarter : {1, 3}) {
            const Int32 pixel = height * quarter / 4 * width + width * sixth / 6;
            for (std::size_t i = static_cast<std::size_t>(pixel) * 3, end = i + 3; i < end; ++i) {
                largest = std::max(largest, std::abs(std::uint8_t(one[i]) - std::uint8_t(other[i])));
            }
        }
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

    /// What was said since the call before.
    static std::string TakeStandardError() {
        const std::string said = testing::internal::GetCapturedStderr();
        testing::internal::CaptureStderr();
        return said;
    }

    /// Writes a movie as the program does: prepared here, written and closed on a worker. A frame for each number.
    void Write(Int32 width, Int32 height, const CompressionSettings& settings, const std::vector<Int32>& numbers) {
        Ref<EditableMovie> movie = FolderItem(path).CreateMovie();
        movie->SaveOnClose(true);
        Ref<QTVideoTrack> track = movie->NewVideoTrack(width, height, settings.frameRate);
        host.chosenCompression = settings;
        if (settings.codec != MovieCodec::Uncompressed) {
            EXPECT_TRUE(track->SelectCompressionSettings(nullptr));
        }
        std::thread worker([&, movie = std::move(movie), track = std::move(track)]() mutable {
            const Ref<Picture> picture = NewPicture(width, height, 32);
            for (std::size_t i = 0; i < numbers.size(); ++i) {
                if (i == 0 || numbers[i] != numbers[i - 1]) Draw(*picture, numbers[i]);
                track->AppendPicture(picture);
            }
            movie = nullptr;
            track = nullptr;
        });
        worker.join();
    }

    RecordingHost& host = RecordingHost::InstallNew();
    const fs::path path = host.preferencesFolder / "movie.mov";
};

TEST_F(MovieFileTest, ProposesH264FirstAndThenTheChoiceBefore) {
    const Ref<EditableMovie> movie = FolderItem(path).CreateMovie();
    const Ref<QTVideoTrack> track = movie->NewVideoTrack(32, 32, 2.5);
    EXPECT_TRUE(track->SelectCompressionSettings(NewPicture(32, 32, 32)));
    EXPECT_EQ(host.proposedCompression, (CompressionSettings{MovieCodec::H264, 75, 2.5}));
    EXPECT_THAT(host.calls, ElementsAre("SelectCompressionSettings"));

    host.chosenCompression = CompressionSettings{MovieCodec::PhotoJpeg, 30, 12};
    host.isCompressionConfirmed = false;
    EXPECT_FALSE(track->SelectCompressionSettings(nullptr));
    EXPECT_EQ(track->FrameRate(), 2.5);
    host.isCompressionConfirmed = true;
    EXPECT_TRUE(track->SelectCompressionSettings(nullptr));
    EXPECT_EQ(host.proposedCompression.codec, MovieCodec::H264);
    EXPECT_EQ(track->FrameRate(), 12);

    FolderItem(path).CreateMovie()->NewVideoTrack(32, 32, 1)->SelectCompressionSettings(nullptr);
    EXPECT_EQ(host.proposedCompression, (CompressionSettings{MovieCodec::PhotoJpeg, 30, 1}));
}

TEST_F(MovieFileTest, OffersTheCodecsOfThisMachine) {
    EXPECT_TRUE(System::Quicktime::Installed());
    std::string names;
    for (const CodecChoice& choice : MovieLibrary::Installed().Codecs())
        names += choice.name + ", ";
    EXPECT_EQ(names, "H.264, H.265, MPEG-4, Apple ProRes 4444, Photo - JPEG, PNG, Animation, ");
}

TEST_F(MovieFileTest, EveryCodecKeepsEveryFrame) {
    const struct {
        Int32 width, height;
        std::vector<Int32> numbers;
        const char* duration;
        const char* framesRead;
    } movies[] = {
        {33, 33, {0, 0, 0, 1, 2, 2, 0}, "2.800000", "7"},
        {33, 32, {1}, "0.400000", "1"},
        {32, 33, {}, "0.000000", "N/A"},
        {964, 324, {0, 1, 1}, "1.200000", "3"},  // for two threads
    };
    for (const auto& [width, height, numbers, duration, framesRead] : movies) {
        const std::string size = std::to_string(width) + "," + std::to_string(height);
        const Ref<Picture> picture = NewPicture(width, height, 32);
        std::string drawn[3];
        for (Int32 number = 0; number < 3; ++number) {
            Draw(*picture, number);
            drawn[number] = Bytes(*picture);
        }
        for (const Form& form : kForms) {
            SCOPED_TRACE(size + " " + form.tag);
            Write(width, height, {.codec = form.codec, .frameRate = 2.5}, numbers);
            EXPECT_EQ(Probe(path, "codec_tag_string,duration,nb_read_frames"),
                      std::string(form.tag) + "," + duration + "," + framesRead + "\n");
            EXPECT_EQ(MediaInfo(path, "Video;%Width%,%Height% %FrameCount%,"),
                      size + " " + std::to_string(numbers.size()) + ",\n");
            if (numbers.empty()) continue;
            const std::string decoded = Decoded(path);
            ASSERT_EQ(decoded.size(), numbers.size() * drawn[0].size());
            for (std::size_t i = 0; i < numbers.size(); ++i) {
                const std::string frame = decoded.substr(i * drawn[0].size(), drawn[0].size());
                EXPECT_TRUE(!form.isLossless || frame == drawn[numbers[i]]) << i;
                EXPECT_LE(Difference(frame, drawn[numbers[i]], width, height), 2) << i;
            }
        }
    }
}

TEST_F(MovieFileTest, DurationsAreExactToTheTick) {
    constexpr Int64 kHour = 60 * 60 * 30 + 1;
    const struct {
        MovieCodec codec;
        double rate;
        Int64 numerator;
        Int64 denominator;
        Int64 frames;
    } movies[] = {
        {MovieCodec::Png, 29.97, 2997, 100, kHour},       {MovieCodec::Png, 0.016666666666666, 1, 60, kHour},
        {MovieCodec::H264, 23.976, 2997, 125, 301},       {MovieCodec::H265, 1.1, 11, 10, 100},
        {MovieCodec::Mpeg4, 12.3457, 123457, 10000, 100}, {MovieCodec::ProRes4444, 2.5, 5, 2, 26},
        {MovieCodec::Mpeg4, 1e6, 1000000, 1, 9},
    };
    for (const auto& [codec, rate, numerator, denominator, frames] : movies) {
        SCOPED_TRACE(std::to_string(rate) + ", codec " + std::to_string(static_cast<int>(codec)));
        Write(32, 32, {.codec = codec, .frameRate = rate}, std::vector<Int32>(static_cast<std::size_t>(frames)));
        long perSecond = 0, ticks = 0, written = 0;
        const std::string probed = Probe(path, "time_base,duration_ts,nb_frames", "");
        ASSERT_EQ(std::sscanf(probed.c_str(), "1/%ld,%ld,%ld", &perSecond, &ticks, &written), 3) << probed;
        EXPECT_EQ(written, frames);
        EXPECT_EQ(ticks * numerator, frames * denominator * perSecond);
        EXPECT_LE(ticks, std::numeric_limits<Int32>::max());
    }
}

TEST_F(MovieFileTest, TheFileExistsFromTheStartAndIsAMovieOnlyWhenSaved) {
    std::ofstream(path) << "what was there";
    Ref<EditableMovie> movie = FolderItem(path).CreateMovie();
    EXPECT_TRUE(fs::is_empty(path));
    Ref<QTVideoTrack> track = movie->NewVideoTrack(32, 32, 1);
    track->AppendPicture(NewPicture(32, 32, 32));
    movie = nullptr;
    track = nullptr;
    EXPECT_EQ(MediaInfo(path, "General;%VideoCount%"), "\n");
}

TEST_F(MovieFileTest, ImpossibleMoviesAndTracksAreNil) {
    const fs::path pipe = path.parent_path() / "pipe";
    mkfifo(pipe.c_str(), 0600);
    for (const fs::path& where : {path.parent_path(), path / "within", pipe}) {
        EXPECT_FALSE(FolderItem(where).CreateMovie()) << where;
        EXPECT_THAT(TakeStandardError(), StartsWith(where.string() + ": making the file: "));
    }
    const Ref<EditableMovie> movie = FolderItem(path).CreateMovie();
    const struct {
        Int32 width, height;
        double rate;
    } impossible[] = {{0, 32, 1},   {32, 65536, 1},     {60000, 60000, 1}, {32, 32, 0}, {32, 32, std::nan("")},
                      {32, 32, -1}, {32, 32, HUGE_VAL}, {32, 32, 1e300}};
    for (const auto& [width, height, rate] : impossible) {
        EXPECT_FALSE(movie->NewVideoTrack(width, height, rate)) << width << " x " << height << " at " << rate;
        EXPECT_EQ(TakeStandardError(), path.string() + ": making the track: Invalid argument\n");
    }
    const Ref<QTVideoTrack> track = movie->NewVideoTrack(64, 48, 1);
    EXPECT_FALSE(movie->NewVideoTrack(64, 48, 1)) << "it has one";
    for (const Int32 width : {64, 63, 65, 48}) {
        track->AppendPicture(NewPicture(width, 64 * 48 / width, 32));
    }
    EXPECT_THROW(track->AppendPicture(nullptr), NilObjectException);
    movie->SaveOnClose(true);
}

// The room that this file may take stands for a disk's and a quota's.
TEST_F(MovieFileTest, OnAFullDiskAMoviePlaysAsFarAsItCame) {
    std::vector<Int32> numbers(300);
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        numbers[i] = static_cast<Int32>(i / 2 % 3);
    }
    for (const Form& form : kForms) {
        Write(160, 120, {.codec = form.codec, .frameRate = 30}, numbers);
        const auto whole = static_cast<rlim_t>(fs::file_size(path));
        long before = 0;
        for (const rlim_t room : {whole / 2, whole - 1}) {
            SCOPED_TRACE(form.tag);
            {
                const FileSizeLimit limit(room);
                Write(160, 120, {.codec = form.codec, .frameRate = 30}, numbers);
            }
            EXPECT_LE(fs::file_size(path), room);
            EXPECT_EQ(TakeStandardError(), path.string() + ": keeping room for frames: File too large\n");
            const long frames = std::stol(Probe(path, "nb_read_frames"));
            EXPECT_EQ(MediaInfo(path, "Video;%FrameCount%"), std::to_string(frames) + "\n");
            EXPECT_GT(frames, before + 30);
            EXPECT_LT(frames, 300);
            before = frames;
        }
    }
    const FileSizeLimit limit(0);
    Write(32, 32, {.frameRate = 1}, {0});
    EXPECT_TRUE(fs::is_empty(path));
}

TEST_F(MovieFileTest, APreviewShowsWhatTheCodecMakesOfAPicture) {
    for (const auto& [width, height] : {std::pair{320, 240}, {33, 33}}) {
        const Ref<Picture> picture = NewPicture(width, height, 32);
        Draw(*picture, 1);
        for (const Form& form : kForms) {
            SCOPED_TRACE(form.tag);
            const auto preview = MovieLibrary::Installed().EncodePreview({.codec = form.codec}, View(*picture), {});
            ASSERT_TRUE(preview);
            const std::string decoded(preview->bytes.begin(), preview->bytes.end());
            EXPECT_LE(Difference(decoded, Bytes(*picture), width, height), 2);
        }
    }
    std::stop_source source;
    source.request_stop();
    EXPECT_FALSE(MovieLibrary::Installed().EncodePreview({}, View(*NewPicture(32, 32, 32)), source.get_token()));
}

TEST_F(MovieFileTest, ABetterQualityTakesMoreBytes) {
    const Ref<Picture> picture = NewPicture(160, 120, 32);
    std::minstd_rand random;
    for (Int32 i = 0; i < 2000; ++i) {
        picture->Graphics()->ForeColor(Color{static_cast<Int32>(random() & 0xFFFFFF)});
        picture->Graphics()->FillRect(static_cast<Int32>(random() % 160), static_cast<Int32>(random() % 120), 9, 5);
    }
    for (const CodecChoice& choice : MovieLibrary::Installed().Codecs()) {
        double before = 0;
        for (const int quality : {0, 25, 50, 75, 100}) {
            const CompressionSettings settings{choice.codec, quality, 1};
            const MovieContent still{3, [&](double) { return View(*picture); }};
            const double bytes = MovieLibrary::Installed().EstimateBytesPerSecond(settings, still, {}).value();
            EXPECT_TRUE(before == 0 || (choice.hasQuality ? bytes > before : bytes == before)) << choice.name << bytes;
            before = bytes;
        }
    }
}

}  // namespace
