#pragma once

#include <cstdint>
#include <filesystem>

#include "platform/ffmpeg/Ffmpeg.h"

/// A file that is being written, with room reserved for what follows: by the file system or, where it can't
/// do that, by writing zeros. So neither the disk nor a quota fills up in the middle of a write, except where
/// reserving is no promise, as on a network drive that reports a full disk only when the file is closed.
class ReservedFile {
  public:
    /// Creates the file, or empties the one that is there. Throws for anything but a plain file.
    explicit ReservedFile(const std::filesystem::path& path);
    /// Closes the file as it is.
    ~ReservedFile() { Release(); }

    /// Reserves so many more bytes. Throws when there is no room for them.
    void Reserve(std::int64_t bytes);

    /// What FFmpeg writes through. A failed write is reported by Flush only.
    AVIOContext* Stream() { return stream_.get(); }
    /// Throws when a write has failed since the last call.
    void Flush(const char* step);

    /// Gives back the reserved room that was not needed, and closes the file. Throws when that fails.
    void Close() { Check(Release(), "closing the file"); }

  private:
    // These return the code of a failure, or at least 0.
    int Extend(std::int64_t end);
    int Release();
    int Write(const std::uint8_t* bytes, int count);
    std::int64_t Seek(std::int64_t offset, int whence);

    int descriptor_;
    Owned<AVIOContext> stream_;
    std::int64_t position_ = 0;
    std::int64_t size_ = 0;
    std::int64_t needed_ = 0;
    std::int64_t reserved_ = 0;
    int error_ = 0;  ///< the code of the first failed write, or 0
};

/// A QuickTime file with one video track that is being written. One thread at a time. Every failure throws;
/// what was written before still becomes a movie. A killed process leaves a movie without its latest 60
/// frames or 64 KB; with FFmpeg before 7.1, it leaves a file without an index.
class MovieFile {
  public:
    /// Creates the file, or empties the one that is there.
    explicit MovieFile(const std::filesystem::path& path);
    /// Closes the file as it is.
    ~MovieFile();

    /// Describes the track, before its packets.
    void AddTrack(const AVCodecContext& encoder, AVRational framesPerSecond);
    bool HasTrack() const { return stream_ != nullptr; }

    /// `packet` has its times in frames. Packets come in the order in which they are shown.
    void Write(const AVPacket& packet);
    /// Makes a movie of all that was written to the track, and closes the file.
    void Finish();

  private:
    void WriteHeader();
    /// The most bytes that the headers and the index take without any frame.
    std::int64_t RoomForHeaders() const;
    /// The most bytes that a packet takes, with its part of the index.
    std::int64_t RoomFor(const AVPacket& packet) const;

    ReservedFile file_;
    AVFormatContext* context_ = nullptr;
    AVStream* stream_ = nullptr;
    bool isFragmented_ = false;
    bool hasHeader_ = false;
    int packetCount_ = 0;
};
