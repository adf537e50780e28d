#pragma once

#include "platform/Control.h"

/// A worker thread. Its permitted calls to controls are queued to the main thread and run there in order.
class Thread : public Control {
  public:
    /// A worker is Running from the call of Run until RunEvent has returned.
    enum class States { Running = 0, NotRunning = 4 };

    Thread();
    /// Ends the worker at its next yield and waits for that.
    ~Thread() override;

    /// The worker's task. An exception that leaves it is reported to the user and ends the worker.
    std::function<void()> RunEvent;

    /// Starts RunEvent on a new thread and returns. Does nothing if the worker is running, or after End.
    void Run();
    States State() const;
    /// Ends the worker at its next yield and waits for that. Later calls of Run do nothing.
    void End();

    /// A worker calls this where it may be ended: after End, the call doesn't return. No effect elsewhere.
    static void Yield();

  private:
    struct Peer;
    std::unique_ptr<Peer> peer_;
};
