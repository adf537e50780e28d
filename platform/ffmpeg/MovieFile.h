#pragma once

#include <cstdint>
#include <filesystem>

#include "platform/ffmpeg/Ffmpeg.h"

/// A file that is being written, with room set aside for what will be: by the file system, or, where it can't do that,
/// with zeros. So neither a disk nor a quota gets full in the middle of a write. Only where that is no promise, as on a
/// network drive that tells of a full disk when the file is closed, they still may.
class ReservedFile {
  public:
    /// Makes a new empty file in place of what was there. Throws for anything but a plain file.
    explicit ReservedFile(const std::filesystem::path& path);
    ~ReservedFile() { Close(); }

    /// Sets room for so many more bytes aside. Throws when there is none.
    void Reserve(std::int64_t bytes);

    /// What FFmpeg writes through. A failure shows at Flush only.
    AVIOContext* Stream() { return stream_.get(); }
    /// Throws when anything could not be written since the call before.
    void Flush(const char* step);

    /// Gives back the room that was not needed, and closes the file. Gives 0, or FFmpeg's code for what failed.
    int Close();

  private:
    /// Gives an errno, or 0.
    int Extend(std::int64_t end);
    int Write(const std::uint8_t* bytes, int count);
    std::int64_t Seek(std::int64_t offset, int whence);

    int descriptor_;
    Owned<AVIOContext> stream_;
    std::int64_t position_ = 0;
    std::int64_t size_ = 0;
    std::int64_t needed_ = 0;
    std::int64_t reserved_ = 0;
    /// The first failure, as FFmpeg counts them, or 0.
    int error_ = 0;
};

/// A QuickTime file with one video track that is being written. One thread at a time. What fails throws; what was
/// written before still becomes a movie. With FFmpeg from 7.1 on the file can be read at any time but for its latest 60
/// frames or 64 KB, so a process that is killed leaves a movie; before, it leaves a file without an index.
class MovieFile {
  public:
    /// Makes a new empty file in place of what was there.
    explicit MovieFile(const std::filesystem::path& path);
    /// Closes the file as it is.
    ~MovieFile();

    /// Describes the track, before its packets.
    void AddTrack(const AVCodecContext& encoder, AVRational framesPerSecond);
    bool HasTrack() const { return stream_ != nullptr; }

    /// `packet` has its times in frames. They come in the order in which they are shown.
    void Write(const AVPacket& packet);
    /// Makes a movie of all that was written to the track, and closes the file.
    void Finish();

  private:
    void WriteHeader();
    /// The bytes that the header and the index take without any frame, at most.
    std::int64_t RoomForHeader() const;
    /// The bytes that a packet takes, its part of the index included, at most.
    std::int64_t RoomFor(const AVPacket& packet) const;

    ReservedFile file_;
    AVFormatContext* context_ = nullptr;
    AVStream* stream_ = nullptr;
    bool isFragmented_ = false;
    bool hasHeader_ = false;
    int packetCount_ = 0;
};
