#pragma once

#include <memory>
#include <string>

/// Inhibits the desktop's screen saver through the services on the session bus. Several may dim or lock the screen, so
/// every one is called, also one that only starts later; in a sandbox only the portal is. No operation waits for an
/// answer, and where there is no service, nothing happens. For the thread of the user interface.
/// Whatever a service grants is given back exactly once, however late the grant comes: after Release, or after this
/// object has gone, as long as the application object lives.
class DBusInhibitor {
  public:
    explicit DBusInhibitor(std::string applicationId);
    ~DBusInhibitor();

    /// The desktop may show the application and the reason to the user. Harmless when repeated, as is Release.
    void Inhibit(const std::string& reason);
    void Release();

  private:
    class Inhibition;

    std::string applicationId_;
    std::shared_ptr<Inhibition> inhibition_;
};
