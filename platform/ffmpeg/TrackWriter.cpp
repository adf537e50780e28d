#include "platform/ffmpeg/TrackWriter.h"

#include <cstring>
#include <utility>

#include "platform/ffmpeg/Codecs.h"
#include "platform/ffmpeg/Encoder.h"
#include "platform/ffmpeg/MovieFile.h"
#include "platform/ffmpeg/Timing.h"

TrackWriter::TrackWriter(MovieFile& file, int width, int height, double frameRate)
    : file_(file), width_(width), height_(height) {
    settings_.frameRate = frameRate;
    last_.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
}

TrackWriter::~TrackWriter() { queue_.Close(); }

void TrackWriter::Append(std::span<const std::uint32_t> pixels) {
    if (queue_.IsAbandoned()) return;
    if (!worker_.joinable()) {
        frameMaker_.emplace(FindCodec(settings_.codec), width_, height_);
        worker_ = std::jthread([this] { Encode(); });
    }
    if (IsLikeTheLast(pixels)) return queue_.Push(nullptr);
    last_.assign(pixels.begin(), pixels.end());
    Owned<AVFrame> frame = frameMaker_->Make(pixels);
    frame ? queue_.Push(std::move(frame)) : queue_.Abandon();
}

// Two pictures are compared in a fraction of the time in which one is converted.
bool TrackWriter::IsLikeTheLast(std::span<const std::uint32_t> pixels) const {
    return !last_.empty() && std::memcmp(last_.data(), pixels.data(), pixels.size_bytes()) == 0;
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
