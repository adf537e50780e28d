#pragma once

#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>

#include "platform/ffmpeg/Owned.h"

/// Frames on their way from the thread that draws to the one that encodes.
class FrameQueue {
  public:
    /// Waits while the queue is full. A nil frame stands for the one before it once more.
    void Push(Owned<AVFrame> frame);
    /// Waits while the queue is empty; nothing once it is closed and empty, or abandoned.
    std::optional<Owned<AVFrame>> Pop();

    /// No more frames follow.
    void Close();
    /// What is in the queue and all that follows is dropped; nobody waits any more.
    void Abandon();
    bool IsAbandoned() const;

  private:
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Owned<AVFrame>> frames_;
    bool isClosed_ = false;
    bool isAbandoned_ = false;
};
