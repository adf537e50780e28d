#pragma once

#include <memory>
#include <string>

/// Inhibits the desktop's screen saver through the services on the session bus. Several may dim or lock the screen, so
/// each is called, even if it only starts later; in a sandbox only the portal is. No call waits for an answer, and
/// without a service nothing happens. What a service grants is given back exactly once, however late it is granted:
/// after Release, or after this object has gone, as long as the application object lives. For the main thread.
class DBusInhibitor {
  public:
    explicit DBusInhibitor(std::string applicationId);
    ~DBusInhibitor();

    /// The desktop may show the user the application and `reason`. Harmless when repeated, as is Release.
    void Inhibit(const std::string& reason);
    void Release();

  private:
    class Inhibition;

    std::string applicationId_;
    std::shared_ptr<Inhibition> inhibition_;
};
