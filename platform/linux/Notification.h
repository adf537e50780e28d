#pragma once

#include <functional>
#include <memory>
#include <string>

/// A notification by the desktop's service for them, one at a time. No operation waits for the service, and
/// where there is none, nothing happens. For the thread of the user interface.
class Notification {
  public:
    /// The desktop shows the name and the icon of the application.
    Notification(std::string applicationId, std::string name);
    /// Withdraws it.
    ~Notification();

    /// Shows a text until Withdraw, whatever becomes of it meanwhile. `chosen` is called when the user chooses
    /// it; a window that is activated then comes to the front. Nothing happens while a text is shown already.
    void Show(const std::string& text, const std::function<void()>& chosen);
    void Withdraw();

  private:
    std::string applicationId_;
    std::string name_;
    std::shared_ptr<class ShownNotification> shown_;
};
