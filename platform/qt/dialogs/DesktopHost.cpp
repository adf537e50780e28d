#include "platform/qt/dialogs/DesktopHost.h"

#include <pwd.h>
#include <stdlib.h>
#include <time.h>
#include <unistd.h>

#include <QtCore/QMimeData>
#include <QtCore/QUrl>
#include <QtGui/QDesktopServices>
#include <QtGui/QDrag>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QColorDialog>
#include <QtWidgets/QMessageBox>

#include "platform/qt/dialogs/CompressionDialog.h"
#include "platform/qt/drawing/Styles.h"
#include "platform/qt/drawing/Surfaces.h"
#include "platform/qt/events/MainThread.h"
#include "platform/qt/window/WindowPeer.h"

namespace {

/// Returns the folder that an environment variable names; empty if the variable is unset or relative.
std::filesystem::path FolderIn(const char* variable) {
    const char* const value = getenv(variable);
    const std::filesystem::path folder = value ? value : "";
    return folder.is_absolute() ? folder : std::filesystem::path();
}

// Without this, Qt's dialogs would save their own settings in the root folder if HOME is unset, and in the
// current folder if HOME or XDG_CONFIG_HOME is relative.
void CompleteEnvironment() {
    const passwd* const user = FolderIn("HOME").empty() ? getpwuid(getuid()) : nullptr;
    if (user) setenv("HOME", user->pw_dir, 1);
    if (FolderIn("XDG_CONFIG_HOME").empty()) unsetenv("XDG_CONFIG_HOME");
}

}  // namespace

DesktopHost::DesktopHost(const std::string& applicationId, const std::string& name,
                         const std::filesystem::path& alertSound)
    : desktopSaver_(applicationId),
      alertSound_(applicationId, name, alertSound, [] { OnMainThread(*qApp, QApplication::beep); }),
      notification_(applicationId, name) {
    CompleteEnvironment();
    QObject::connect(qApp, &QGuiApplication::focusWindowChanged, &listener_, [this] {
        QWidget* const active = QApplication::activeWindow();
        if (!active || active->windowType() == Qt::Popup) return;
        notification_.Withdraw();
        windows_.removeAll(active);
        windows_.removeAll(nullptr);  // windows that have been destroyed
        windows_.prepend(active);
    });
}

QWidget* DesktopHost::Owner() const {
    if (QWidget* const modal = QApplication::activeModalWidget()) return modal;
    QWidgetList candidates(windows_.begin(), windows_.end());
    candidates += QApplication::topLevelWidgets();  // in case no window has been active yet
    for (QWidget* const window : candidates)
        if (window && window->windowType() != Qt::Popup && window->isVisible() && window->isEnabled()) return window;
    return nullptr;
}

double DesktopHost::Microseconds() {
    timespec now{};
    clock_gettime(CLOCK_BOOTTIME, &now);
    return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) / 1e3;
}

void DesktopHost::Beep() {
    alertSound_.Play();
    if (QApplication::activeWindow()) return;
    // Some desktops on X11 answer alert() with a notification, so we show none of our own there.
    if (QGuiApplication::platformName() == u"xcb") return QApplication::alert(nullptr);
    notification_.Show(announcement_, bringForward_);
}

void DesktopHost::Announce(const std::string& text, const std::function<void()>& bringForward) {
    notification_.Withdraw();
    announcement_ = text;
    bringForward_ = bringForward;
}

void DesktopHost::MsgBox(const std::string& text) {
    if (windows_.isEmpty()) {  // at start-up, the window manager must place the parent window first
        QEventLoop loop;
        WindowPeer::QuitAtFocus(loop);
        loop.exec();
    }
    const QString title = QApplication::applicationName();
    QMessageBox box(QMessageBox::NoIcon, title, ToQString(text), QMessageBox::Ok, Owner());
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

bool DesktopHost::SelectColor(Color& color, const std::string& prompt) {
    QColorDialog dialog(ToQColor(color), Owner());
    dialog.setWindowTitle(ToQString(prompt));
    if (dialog.exec() != QDialog::Accepted) return false;
    color = ToColor(dialog.selectedColor());
    return true;
}

void DesktopHost::DragText(const std::string& text, const Ref<Picture>& picture, int x, int y) {
    auto* data = new QMimeData;
    data->setText(ToQString(text));
    auto* drag = new QDrag(qApp);  // Qt deletes the drag and its data
    drag->setMimeData(data);
    if (picture) drag->setPixmap(QPixmap::fromImage(WithMask(*picture)));
    drag->setHotSpot({x, y});
    drag->exec(Qt::CopyAction);
}

void DesktopHost::ShowURL(const std::string& url) {
    QDesktopServices::openUrl(QUrl::fromEncoded(QByteArray::fromStdString(url)));
}

void DesktopHost::Launch(const std::filesystem::path& file) {
    const QUrl url = QUrl::fromLocalFile(ToQString(file));
    OnMainThread(*qApp, [url] { QDesktopServices::openUrl(url); });
}

void DesktopHost::InhibitScreenSaver(const std::string& reason) {
    desktopSaver_.Inhibit(reason);
    serverSaver_.Inhibit();
}

void DesktopHost::ReleaseScreenSaver() {
    desktopSaver_.Release();
    serverSaver_.Release();
}

void DesktopHost::DelayScreenSaver() { serverSaver_.Delay(); }

std::filesystem::path DesktopHost::PreferencesFolder() {
    const std::filesystem::path config = FolderIn("XDG_CONFIG_HOME");
    const std::filesystem::path home = FolderIn("HOME");
    return config.empty() && !home.empty() ? home / ".config" : config;
}

bool DesktopHost::SelectCompressionSettings(const Ref<Picture>& testImage, const MoviePlan& plan,
                                            CompressionSettings& settings) {
    CompressionDialog dialog(Owner(), testImage, plan, settings);
    if (dialog.exec() != QDialog::Accepted) return false;
    settings = dialog.Settings();
    return true;
}
