#pragma once

#include <functional>
#include <memory>
#include <string>

/// Shows one notification at a time by the desktop's service for them. No call waits for the service, and
/// without one nothing happens. For the main thread.
class Notification {
  public:
    /// The desktop shows the name and the icon of the application.
    Notification(std::string applicationId, std::string name);
    /// Withdraws it.
    ~Notification();

    /// Shows a text; until Withdraw, no other is shown. `chosen` is called when the user chooses it; a window
    /// that is activated then comes to the front.
    void Show(const std::string& text, const std::function<void()>& chosen);
    void Withdraw();

  private:
    std::string applicationId_;
    std::string name_;
    std::shared_ptr<class ShownNotification> shown_;
};
