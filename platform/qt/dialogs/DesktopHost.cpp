#include "platform/qt/dialogs/DesktopHost.h"

#include <pwd.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <QtCore/QFileInfo>
#include <QtCore/QMimeData>
#include <QtCore/QStandardPaths>
#include <QtCore/QUrl>
#include <QtGui/QDesktopServices>
#include <QtGui/QDrag>
#include <QtWidgets/QApplication>
#include <QtWidgets/QColorDialog>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QMessageBox>

#include "platform/qt/dialogs/CompressionDialog.h"
#include "platform/qt/drawing/Pixels.h"
#include "platform/qt/drawing/Styles.h"

DesktopHost::DesktopHost(std::string applicationId, std::string name, std::filesystem::path alertSound)
    : applicationId_(std::move(applicationId)),
      name_(std::move(name)),
      alertSoundFile_(std::move(alertSound)),
      desktopSaver_(applicationId_, name_) {}

double DesktopHost::Microseconds() {
    timespec now{};
    clock_gettime(CLOCK_BOOTTIME, &now);
    return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) / 1e3;
}

void DesktopHost::Beep() {
    if (!alertSound_) {
        const auto bell = [] { QMetaObject::invokeMethod(qApp, &QApplication::beep, Qt::QueuedConnection); };
        alertSound_ = std::make_unique<AlertSound>(applicationId_, name_, alertSoundFile_, bell);
    }
    alertSound_->Play();
    QApplication::alert(nullptr);
}

void DesktopHost::MsgBox(const std::string& text) {
    QMessageBox box(QApplication::activeWindow());
    box.setWindowTitle(QApplication::applicationName());
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdString(text));
    box.exec();
}

bool DesktopHost::SelectColor(Color& color, const std::string& prompt) {
    QColorDialog dialog(ToQColor(color), QApplication::activeWindow());
    dialog.setWindowTitle(QString::fromStdString(prompt));
    if (dialog.exec() != QDialog::Accepted) return false;
    color = ToColor(dialog.selectedColor());
    return true;
}

void DesktopHost::DragText(const std::string& text, const Ref<Picture>& picture, int x, int y) {
    auto* data = new QMimeData;
    data->setText(QString::fromStdString(text));
    auto* drag = new QDrag(qApp);  // which the toolkit ends by itself, and the data with it
    drag->setMimeData(data);
    if (picture) drag->setPixmap(QPixmap::fromImage(Composed(*picture)));
    drag->setHotSpot({x, y});
    drag->exec(Qt::CopyAction);
}

void DesktopHost::ShowURL(const std::string& url) {
    QDesktopServices::openUrl(QUrl::fromEncoded(QByteArray::fromStdString(url)));
}

std::filesystem::path DesktopHost::SaveFile(const std::string& filter, const std::string& defaultName) {
    if (saveFolder_.empty()) {
        saveFolder_ = QStandardPaths::writableLocation(QStandardPaths::MoviesLocation).toStdString();
    }
    QFileDialog dialog(QApplication::activeWindow());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(QString::fromStdString(filter));
    dialog.setDirectory(QString::fromStdString(saveFolder_.string()));
    dialog.selectFile(QString::fromStdString(defaultName));
    // For a name without an ending; one that has an ending keeps it.
    dialog.setDefaultSuffix(QFileInfo(QString::fromStdString(defaultName)).suffix());
    if (dialog.exec() != QDialog::Accepted) return {};
    std::filesystem::path chosen = dialog.selectedFiles().constFirst().toStdString();
    saveFolder_ = chosen.parent_path();
    return chosen;
}

void DesktopHost::Launch(const std::filesystem::path& file) {
    const QUrl url = QUrl::fromLocalFile(QString::fromStdString(file.string()));
    QMetaObject::invokeMethod(
        qApp, [url] { QDesktopServices::openUrl(url); }, Qt::QueuedConnection);
}

void DesktopHost::InhibitScreenSaver() {
    desktopSaver_.Inhibit();
    serverSaver_.Inhibit();
}

void DesktopHost::ReleaseScreenSaver() {
    desktopSaver_.Release();
    serverSaver_.Release();
}

void DesktopHost::DelayScreenSaver() { serverSaver_.Delay(); }

std::filesystem::path DesktopHost::PreferencesFolder() {
    // Without HOME, Qt would take the root folder for it; and Qt 6.4 takes a relative path, which counts as none.
    const passwd* const user = qEnvironmentVariableIsEmpty("HOME") ? getpwuid(getuid()) : nullptr;
    if (user) qputenv("HOME", user->pw_dir);
    if (QFileInfo(qEnvironmentVariable("XDG_CONFIG_HOME")).isRelative()) qunsetenv("XDG_CONFIG_HOME");
    const std::filesystem::path folder =
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation).toStdString();
    std::filesystem::path made;
    for (const auto& part : folder)
        mkdir((made /= part).c_str(), S_IRWXU);
    std::error_code ignored;
    return std::filesystem::is_directory(folder, ignored) ? folder : std::filesystem::path();
}

bool DesktopHost::SelectCompressionSettings(const Ref<Picture>& testImage, const MoviePlan& plan,
                                            CompressionSettings& settings) {
    CompressionDialog dialog(QApplication::activeWindow(), testImage, plan, settings);
    if (dialog.exec() != QDialog::Accepted) return false;
    settings = dialog.Settings();
    return true;
}
