#pragma once

#include "platform/ffmpeg/Encoder.h"

/// A few frames, encoded in memory. Every failure throws.
class EncodedSample {
  public:
    EncodedSample(const CompressionSettings& settings, int width, int height);

    void Add(std::span<const std::uint32_t> pixels) { encoder_.Write(frameMaker_.Convert(pixels)); }
    void Finish() { encoder_.Finish(); }

    /// The size of the encoder's own header.
    int HeaderBytes() const { return encoder_.Context().extradata_size; }
    /// After Finish: one packet for each frame, in the order of the frames.
    std::span<const Owned<AVPacket>> Packets() const { return packets_; }
    /// After Finish: the first frame as a player shows it.
    RgbImage DecodeFirst() const;

  private:
    FrameMaker frameMaker_;
    std::vector<Owned<AVPacket>> packets_;
    Encoder encoder_;
};

/// See MovieLibrary::EncodePreview. Every failure throws.
std::optional<RgbImage> EncodePreview(const CompressionSettings& settings, const PixelView& image,
                                      const std::stop_token& stop);
