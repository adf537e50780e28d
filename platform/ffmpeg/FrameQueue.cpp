#include "platform/ffmpeg/FrameQueue.h"

#include <utility>

// Enough to keep either side busy while the other is late; a frame of 1920 x 1080 pixels has up to 12 megabytes.
static constexpr std::size_t kCapacity = 4;

void FrameQueue::Push(Owned<AVFrame> frame) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return frames_.size() < kCapacity || isAbandoned_; });
    if (isAbandoned_) return;
    frames_.push_back(std::move(frame));
    changed_.notify_one();
}

std::optional<Owned<AVFrame>> FrameQueue::Pop() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !frames_.empty() || isClosed_ || isAbandoned_; });
    if (frames_.empty()) return std::nullopt;
    Owned<AVFrame> frame = std::move(frames_.front());
    frames_.pop_front();
    changed_.notify_one();
    return frame;
}

void FrameQueue::Close() {
    const std::lock_guard lock(mutex_);
    isClosed_ = true;
    changed_.notify_all();
}

void FrameQueue::Abandon() {
    const std::lock_guard lock(mutex_);
    isAbandoned_ = true;
    frames_.clear();
    changed_.notify_all();
}

bool FrameQueue::IsAbandoned() const {
    const std::lock_guard lock(mutex_);
    return isAbandoned_;
}
