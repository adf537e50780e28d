#pragma once

#include <filesystem>
#include <memory>

extern "C" {
#include <libavutil/rational.h>
}

struct AVCodecContext;
struct AVFormatContext;
struct AVPacket;
struct AVStream;

/// A QuickTime file with one video track that is being written. One thread at a time.
class MovieFile {
  public:
    /// Whether any packet will follow the header. Only a header that knows of none makes a track out of nothing.
    enum class Content { Frames, None };

    /// A new empty file in place of what was there; nil when it can't be made.
    static std::unique_ptr<MovieFile> Create(const std::filesystem::path& path);

    /// Closes the file as it is.
    ~MovieFile();
    MovieFile(const MovieFile&) = delete;
    MovieFile& operator=(const MovieFile&) = delete;

    /// Describes the track, before its packets. False when that can't be written.
    bool WriteHeader(const AVCodecContext& encoder, AVRational framesPerSecond, Content content);
    /// `packet` has its times in frames; they are changed to the track's. False when it can't be written.
    bool WritePacket(AVPacket& packet);
    /// Makes a movie of all that was written. False when there was no header, or not all of it has reached the file.
    bool Finish();

  private:
    explicit MovieFile(AVFormatContext* context) : context_(context) {}

    bool IsSound() const;

    AVFormatContext* context_;
    AVStream* stream_ = nullptr;
    /// In seconds.
    AVRational frameDuration_{};
    bool hasHeader_ = false;
};
