#pragma once

#include <functional>
#include <memory>

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

    /// Any thread. The first firing comes one period after the mode was set, also to what it was.
    void Mode(Modes mode);

  private:
    struct Peer;
    std::unique_ptr<Peer> peer_;
};
