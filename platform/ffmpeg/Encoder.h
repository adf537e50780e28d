#pragma once

#include <deque>

#include "platform/ffmpeg/PixelConversion.h"

/// Frames per second as a fraction, exact for rates of up to five digits and for decimal forms of 1/60 and
/// the like. Neither term exceeds `limit`, unless the rate does. A term is 0 when there is no such fraction.
inline AVRational ExactRate(double framesPerSecond, int limit = 1001000) { return av_d2q(framesPerSecond, limit); }

/// Turns frames into packets. One thread at a time. Every failure throws.
class Encoder {
  public:
    /// Takes the packet of each frame in turn, with its times in frames. What it throws ends the encoding.
    using Sink = std::function<void(const AVPacket&)>;

    /// Throws when the encoder doesn't exist or refuses such frames.
    Encoder(const CompressionSettings& settings, int width, int height, Sink sink);

    void Write(NextFrame next);
    /// Emits the packets that the encoder still holds back.
    void Finish() { Send(nullptr); }

    const AVCodecContext& Context() const { return *context_; }

  private:
    /// Nil ends the encoding.
    void Send(const AVFrame* frame);
    void Emit();

    const Codec& codec_;
    Sink sink_;
    Owned<AVCodecContext> context_;
    Owned<AVFrame> frame_;
    Owned<AVPacket> received_;
    Owned<AVPacket> packet_;  ///< the one that was emitted last
    std::int64_t framesSent_ = 0;
    std::int64_t packetsEmitted_ = 0;
    std::deque<int> copies_;  ///< how often to emit each of the packets that the encoder still holds back
};

/// How well the codec suits frames of that size. Throws when its encoder refuses them.
SizeSupport SupportOf(MovieCodec codec, int width, int height);
