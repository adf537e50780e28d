#pragma once

#include <cstdint>
#include <filesystem>

#include "platform/ffmpeg/Ffmpeg.h"

/// A file open for writing whose disk space is preallocated, so that no write fails for lack of space or
/// quota. Where the file system can't preallocate, zeros are written instead. Preallocation guarantees
/// nothing on some drives, such as network drives that report a full disk only when the file is closed.
class ReservedFile {
  public:
    /// Creates the file or truncates an existing one. Throws if the path names anything but a regular file.
    explicit ReservedFile(const std::filesystem::path& path);
    /// Closes the file as Close does, but ignores errors.
    ~ReservedFile() { Release(); }

    /// Preallocates `bytes` more bytes. Throws if there is no space for them.
    void Reserve(std::int64_t bytes);

    /// Returns the stream for FFmpeg to write to; the file owns it. Only Flush reports a failed write.
    AVIOContext* Stream() { return stream_.get(); }
    /// Flushes the stream. Throws if a write has failed since the last call.
    void Flush(const char* step);

    /// Truncates the file to what was written and closes it. Throws if that fails.
    void Close() { Check(Release(), "closing the file"); }

  private:
    // These return a negative error code on failure.
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
    int error_ = 0;  ///< the error code of the first failed write, or 0
};

/// Writes a QuickTime file with one video track. Not thread-safe. Every failure throws, and Finish can then
/// still make a movie of the earlier frames. If the process is killed, the movie lacks at most its latest 60
/// frames or 64 KB; with FFmpeg before 7.1, the file lacks its index.
class MovieFile {
  public:
    /// Creates the file or truncates an existing one.
    explicit MovieFile(const std::filesystem::path& path);
    /// Closes the file. Unless Finish was called, the file is left without a final index.
    ~MovieFile();

    /// Adds the track. Must precede its packets.
    void AddTrack(const AVCodecContext& encoder, AVRational framesPerSecond);
    bool HasTrack() const { return stream_ != nullptr; }

    /// Appends a packet whose time stamps are in frames. Packets must come in display order.
    void Write(const AVPacket& packet);
    /// Writes the index of all packets written so far and closes the file.
    void Finish();

  private:
    void WriteHeader();
    /// Returns an upper bound of the bytes that the headers and an empty index take.
    std::int64_t RoomForHeaders() const;
    /// Returns an upper bound of the bytes that a packet and its index entry take.
    std::int64_t RoomFor(const AVPacket& packet) const;

    ReservedFile file_;
    AVFormatContext* context_ = nullptr;
    AVStream* stream_ = nullptr;
    bool isFragmented_ = false;
    bool hasHeader_ = false;
    int packetCount_ = 0;
};
