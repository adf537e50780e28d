#pragma once

#include <memory>
#include <string>

/// Inhibits the screen saver through services on the session bus. Since several may dim or lock the screen,
/// all are called, even those that start later; in a sandbox, only the portal is. No call waits for a reply.
/// Without a service, nothing happens. While the application object exists, each grant is released exactly
/// once, even if it comes after Release or after this object's destruction. Main thread only.
class DBusInhibitor {
  public:
    explicit DBusInhibitor(std::string applicationId);
    ~DBusInhibitor();

    /// Repeated calls have no effect. The desktop may show the user `reason` and the application.
    void Inhibit(const std::string& reason);
    void Release();

  private:
    class Inhibition;

    std::string applicationId_;
    std::shared_ptr<Inhibition> inhibition_;
};
