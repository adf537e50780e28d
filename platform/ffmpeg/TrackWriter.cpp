#include "platform/ffmpeg/TrackWriter.h"

#include <utility>

#include "platform/ffmpeg/Codecs.h"
#include "platform/ffmpeg/Encoder.h"
#include "platform/ffmpeg/MovieFile.h"
#include "platform/ffmpeg/Timing.h"

TrackWriter::TrackWriter(MovieFile& file, int width, int height, double frameRate)
    : file_(file), width_(width), height_(height) {
    Settings({.frameRate = frameRate});
}

TrackWriter::~TrackWriter() { queue_.Close(); }

void TrackWriter::Settings(const CompressionSettings& settings) {
    settings_ = settings;
    frameMaker_.emplace(FindCodec(settings.codec), width_, height_);
}

void TrackWriter::Append(std::span<const std::uint32_t> pixels) {
    if (queue_.IsAbandoned()) return;
    if (!worker_.joinable()) worker_ = std::jthread([this] { Encode(); });
    if (!frameMaker_->Take(pixels)) return queue_.Push(nullptr);
    Owned<AVFrame> frame = frameMaker_->Make();
    frame ? queue_.Push(std::move(frame)) : queue_.Abandon();
}

void TrackWriter::Finish() {
    queue_.Close();
    worker_.joinable() ? worker_.join() : Encode();
}

void TrackWriter::Encode() {
    std::optional<Owned<AVFrame>> frame = queue_.Pop();
    const auto content = frame ? MovieFile::Content::Frames : MovieFile::Content::None;
    const auto encoder =
        Encoder::Open(settings_, width_, height_, [this](AVPacket& p) { return file_.WritePacket(p); });
    bool isGood = encoder && file_.WriteHeader(encoder->Context(), ExactRate(settings_.frameRate), content);
    for (; isGood && frame; frame = queue_.Pop()) {
        isGood = *frame ? encoder->Write(**frame) : encoder->Repeat();
    }
    if (!isGood || !encoder->Finish()) queue_.Abandon();
}
