#pragma once

#include "platform/Control.h"

/// Fires on the main event loop.
class Timer : public Control {
  public:
    enum class Modes { Off = 0, Single = 1, Repeat = 2 };

    Timer();
    ~Timer() override;

    std::function<void()> Action;

    /// In milliseconds.
    void Period(Int32 milliseconds);

    /// Any thread. The timer first fires one period after its mode was set, even to the same one.
    void Mode(Modes mode);

  private:
    struct Peer;
    std::unique_ptr<Peer> peer_;
};
