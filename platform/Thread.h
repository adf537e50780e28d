#pragma once

#include "platform/Control.h"

/// A worker. What a control lets any thread do is carried out on the main thread, in the order of the calls.
class Thread : public Control {
  public:
    /// A worker that is about to begin counts as Running.
    enum class States { Running = 0, NotRunning = 4 };

    Thread();
    /// As End.
    ~Thread() override;

    /// What the worker does. An exception that leaves it is reported, and the worker has ended.
    std::function<void()> RunEvent;

    /// Starts RunEvent on a thread of its own and returns. Does nothing while one runs, and after End.
    void Run();
    States State() const;
    /// Ends the worker at its next yield and waits for that. None starts afterwards: the program is quitting.
    void End();

    /// Called by a worker where it may be ended; if it is to end, doesn't return. No effect on other threads.
    static void Yield();

  private:
    struct Peer;
    std::unique_ptr<Peer> peer_;
};
