#pragma once

#include <functional>
#include <memory>
#include <string>

/// Shows one notification at a time through the desktop's notification service. No call waits for the
/// service. Without a service, nothing happens. Main thread only.
class Notification {
  public:
    /// The notification carries the application's `name` and icon.
    Notification(std::string applicationId, std::string name);
    /// Withdraws the notification.
    ~Notification();

    /// Shows a notification; further calls do nothing until Withdraw. `chosen` is called when the user clicks
    /// the notification, and may bring a window to the front by activating it.
    void Show(const std::string& text, const std::function<void()>& chosen);
    void Withdraw();

  private:
    std::string applicationId_;
    std::string name_;
    std::shared_ptr<class ShownNotification> shown_;
};
