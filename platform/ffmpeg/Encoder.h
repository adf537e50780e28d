#pragma once

#include <deque>
#include <functional>

#include "platform/MovieLibrary.h"
#include "platform/ffmpeg/Ffmpeg.h"

struct Codec;

/// Frames per second as a fraction: exact for every rate of up to five digits and for the decimal forms of 1/60 and the
/// like. No term is above `limit`, unless the rate is. 0/x or x/0 when there is no such fraction.
inline AVRational ExactRate(double framesPerSecond, int limit = 1001000) { return av_d2q(framesPerSecond, limit); }

/// Turns frames into packets. One thread at a time. What fails throws.
class Encoder {
  public:
    /// Takes a packet for each frame, in their order, its times counted in frames. What it throws ends the encoding.
    using Sink = std::function<void(const AVPacket&)>;

    /// Fails when the encoder doesn't exist or refuses such frames.
    Encoder(const CompressionSettings& settings, int width, int height, Sink sink);

    /// The next frame, whose data must not be written to any more; nil stands for the one before once more.
    void Write(Owned<AVFrame> frame);
    /// Gives out the packets that are still held back.
    void Finish();

    const AVCodecContext& Context() const { return *context_; }

  private:
    void Send(const AVFrame* frame);
    void Deliver();

    const Codec& codec_;
    Sink sink_;
    Owned<AVCodecContext> context_;
    Owned<AVFrame> frame_;
    Owned<AVPacket> received_;
    /// The newest packet that has been delivered.
    Owned<AVPacket> packet_;
    std::int64_t framesSent_ = 0;
    std::int64_t packetsDelivered_ = 0;
    /// How often to deliver each of the packets that are still to come: more than once where they are whole pictures.
    std::deque<int> copies_;
};
