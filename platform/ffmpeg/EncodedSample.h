#pragma once

#include "platform/ffmpeg/Encoder.h"

/// Encodes a few frames in memory. Every failure throws.
class EncodedSample {
  public:
    EncodedSample(const CompressionSettings& settings, int width, int height);

    void Add(std::span<const std::uint32_t> pixels) { encoder_.Write(frameMaker_.Convert(pixels)); }
    void Finish() { encoder_.Finish(); }

    /// Returns the size of the codec's header (extradata) in bytes.
    int HeaderBytes() const { return encoder_.Context().extradata_size; }
    /// Returns one packet for each frame, in the order of the frames. Call Finish first.
    std::span<const Owned<AVPacket>> Packets() const { return packets_; }
    /// Decodes the first frame, as a player would show it. Call Finish first.
    RgbImage DecodeFirst() const;

  private:
    FrameMaker frameMaker_;
    std::vector<Owned<AVPacket>> packets_;
    Encoder encoder_;
};

/// Implements MovieLibrary::EncodePreview, except that every failure throws.
std::optional<RgbImage> EncodePreview(const CompressionSettings& settings, const PixelView& image,
                                      const std::stop_token& stop);
