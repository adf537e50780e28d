#include "platform/Application.h"

#include <QtGui/QIcon>
#include <csignal>
#include <vector>

#include "platform/qt/application/ProcessEnd.h"
#include "platform/qt/controls/Accessibility.h"
#include "platform/qt/dialogs/DesktopHost.h"
#include "platform/qt/drawing/Styles.h"
#include "platform/qt/events/EventBoundary.h"
#include "platform/qt/events/Keys.h"
#include "platform/qt/window/OpenWindows.h"
#include "platform/qt/window/WindowPeer.h"

namespace {

/// The state of the toolkit between RuntimeInit and RuntimeExit.
struct Runtime {
    std::unique_ptr<QApplication> qtApplication;
    std::unique_ptr<Application> application;
    bool hasFailed = false;
    int status = 0;
};
Runtime runtime;

std::vector<WindowPeer*> Windows() {
    std::vector<WindowPeer*> windows;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* window = dynamic_cast<WindowPeer*>(widget)) windows.push_back(window);
    }
    return windows;
}

/// Sets the icon of all windows: at once to a small built-in icon, so that no window shows without an icon;
/// after the first paint to the icon `name` of the desktop's theme, because the look-up in the theme is slow.
class WindowIcon final : public QObject {
  public:
    explicit WindowIcon(const std::string& name) : QObject(qApp), name_(ToQString(name)) {
        QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/hicolor/32x32/apps/%1.png").arg(name_)));
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            qApp->removeEventFilter(this);
            QTimer::singleShot(0, this, [this] { QApplication::setWindowIcon(QIcon::fromTheme(name_)); });
        }
        return false;
    }

  private:
    const QString name_;
};

}  // namespace

void Application::AutoQuit(bool on) { QApplication::setQuitOnLastWindowClosed(on); }

void Application::MouseCursor(MouseCursors cursor) {
    const auto shape = cursor == FingerPointer ? Qt::PointingHandCursor : Qt::ArrowCursor;
    for (WindowPeer* window : Windows())
        window->Content().setCursor(shape);
}

Ref<FolderItem> Application::ExecutableFile() {
    std::error_code ignored;
    return MakeRef<FolderItem>(std::filesystem::read_symlink("/proc/self/exe", ignored));
}

Application* Application::Registered() { return runtime.application.get(); }

void RuntimeInit(char* program, const std::string& name, const std::string& desktopId,
                 const Ref<FolderItem>& alertSound) {
    // Without this attribute, Qt would look for the desktop's global menu bar, which takes D-Bus calls.
    QApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
    runtime.qtApplication = MakeQApplication(program, name);
    OnLostDisplay([] {
        Quit(1);
        // close() would also hide the window, which needs the display; Qt exits at the second error.
        for (WindowPeer* window : Windows()) {
            QCloseEvent close;
            QCoreApplication::sendEvent(window, &close);
        }
    });
    QApplication::setApplicationName(ToQString(name));
    QApplication::setDesktopFileName(ToQString(desktopId));
    QApplication::setQuitOnLastWindowClosed(false);
    new WindowIcon(desktopId);
    InstallAccessibility();
    InstallReturnForWindows();
    // An empty handler makes a write beyond the file size limit fail. Child processes would inherit SIG_IGN.
    std::signal(SIGXFSZ, [](int) {});
    OnEndSignals(open_windows::CloseAll);
    const std::filesystem::path sound = alertSound ? alertSound->Path() : std::filesystem::path();
    Host::Install(std::make_unique<DesktopHost>(desktopId, name, sound));
}

void RunFrameworkInitialization(const std::function<int()>& startUp) {
    try {
        startUp();
    } catch (...) {
        QuitOnUncaught();
        runtime.hasFailed = true;
    }
}

void RuntimeRegisterAppObject(std::unique_ptr<Application> application) {
    runtime.application = std::move(application);
}

void RuntimeRun() {
    if (runtime.hasFailed) return;
    Deliver([] { runtime.application->Event_Open(); });
    QApplication::exec();
}

int RuntimeExit() {
    open_windows::DestroyAll();
    runtime.application.reset();
    Host::Install(nullptr);
    runtime.qtApplication.reset();
    return runtime.status;
}

void Quit(int status) {
    // Workers use windows, so all workers end before any window is destroyed.
    for (WindowPeer* window : Windows())
        window->Controls().EndWorkers();
    runtime.status = status;
    QCoreApplication::exit(status);
}
