#pragma once

#include <functional>
#include <memory>

#include "platform/Control.h"

/// A worker. What a control lets any thread do is carried out on the main thread, in the order of the calls.
class Thread : public Control {
  public:
    /// Running also stands for one that is about to begin.
    enum class States { Running = 0, NotRunning = 4 };

    Thread();
    /// As End.
    ~Thread() override;

    /// What the worker does. An exception that leaves it is reported, and the worker has ended.
    std::function<void()> RunEvent;

    /// Starts RunEvent on a thread of its own and returns. Does nothing while one runs, and after End.
    void Run();
    States State() const;
    /// Ends the worker at its next yield and waits for that. From then on none starts, as the program is quitting.
    void End();

    /// Called by a worker where it may be ended: it doesn't return when that is wanted. Does nothing on other threads.
    static void Yield();

  private:
    struct Peer;
    std::unique_ptr<Peer> peer_;
};
