#pragma once

#include <memory>
#include <string>

/// The screen saver of the desktop, held off by the services on the session bus; those that may dim or lock the screen
/// are often several, so every one is asked, also one that only comes later. In a sandbox only the portal is. No
/// operation waits for an answer, and where no service is, nothing happens. For the thread of the user interface.
/// Whatever a service grants is given back exactly once, however late the grant comes: after Release, or after this
/// object has gone, as long as the application object lives.
class DBusInhibitor {
  public:
    /// The desktop may show the application and the reason to the user.
    DBusInhibitor(std::string applicationId, std::string reason);
    ~DBusInhibitor();

    /// Harmless when repeated, as is Release.
    void Inhibit();
    void Release();

  private:
    class Run;

    std::string applicationId_;
    std::string reason_;
    std::shared_ptr<Run> run_;
};
