#include "platform/linux/screensaver/ScreenSaver.h"

#include "platform/linux/screensaver/DBusInhibitor.h"
#include "platform/linux/screensaver/XServerSaver.h"

namespace {

/// A desktop that holds its own saver off leaves the X server's alone, and the other way round; so both are held off.
class SessionSaver final : public ScreenSaver {
  public:
    SessionSaver(const std::string& applicationId, const std::string& reason) : desktop_(applicationId, reason) {}

    void Inhibit() override {
        desktop_.Inhibit();
        server_.Inhibit();
    }
    void Release() override {
        desktop_.Release();
        server_.Release();
    }
    void Delay() override {
        desktop_.Delay();
        server_.Delay();
    }

  private:
    DBusInhibitor desktop_;
    XServerSaver server_;
};

}  // namespace

std::unique_ptr<ScreenSaver> MakeScreenSaver(const std::string& applicationId, const std::string& reason) {
    return std::make_unique<SessionSaver>(applicationId, reason);
}
