#pragma once

#include "platform/Control.h"

/// A timer that calls Action on the main thread, from the event loop.
class Timer : public Control {
  public:
    enum class Modes { Off = 0, Single = 1, Repeat = 2 };

    Timer();
    ~Timer() override;

    std::function<void()> Action;

    void Period(Int32 milliseconds);

    /// Sets the mode and restarts the period, even if the mode is the same. May be called on any thread.
    void Mode(Modes mode);

  private:
    struct Peer;
    std::unique_ptr<Peer> peer_;
};
