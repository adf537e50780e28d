#pragma once

#include <deque>
#include <functional>
#include <memory>

#include "platform/CompressionSettings.h"
#include "platform/ffmpeg/Owned.h"

struct Codec;

/// Turns frames into packets. One thread at a time.
class Encoder {
  public:
    /// Takes the packets in the order of decoding, their times counted in frames; may change the times. False when it
    /// can't, which ends the encoding.
    using Sink = std::function<bool(AVPacket&)>;

    /// Nil when the encoder doesn't exist or refuses such frames.
    static std::unique_ptr<Encoder> Open(const CompressionSettings& settings, int width, int height, Sink sink);

    /// The next frame, whose data must not be written to any more. False after a failure.
    bool Write(const AVFrame& frame);
    /// The frame before once more. False after a failure.
    bool Repeat();
    /// Gives out the packets that are still held back. False after a failure.
    bool Finish();

    const AVCodecContext& Context() const { return *context_; }

  private:
    Encoder(const Codec& codec, Sink sink);

    bool Configure(const CompressionSettings& settings, int width, int height);
    bool Send();
    bool Receive();
    bool DeliverCopies();
    bool Deliver();

    const Codec& codec_;
    Sink sink_;
    Owned<AVCodecContext> context_;
    Owned<AVFrame> frame_;
    Owned<AVPacket> received_;
    /// The newest packet that has been delivered.
    Owned<AVPacket> packet_;
    std::int64_t framesSent_ = 0;
    std::int64_t packetsDelivered_ = 0;
    /// How often to deliver each of the packets that are still to come, where packets stand alone.
    std::deque<int> copies_;
};
