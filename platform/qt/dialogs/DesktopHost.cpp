#include "platform/qt/dialogs/DesktopHost.h"

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

#include "platform/linux/Clock.h"
#include "platform/linux/PreferencesFolder.h"
#include "platform/qt/dialogs/CompressionDialog.h"
#include "platform/qt/drawing/Colors.h"
#include "platform/qt/drawing/Pixels.h"

DesktopHost::DesktopHost(std::string applicationId, std::string name, std::filesystem::path alertSound)
    : applicationId_(std::move(applicationId)),
      name_(std::move(name)),
      alertSoundFile_(std::move(alertSound)),
      screenSaver_(MakeScreenSaver(applicationId_, name_)) {}

double DesktopHost::Microseconds() { return MicrosecondsSinceBoot(); }

void DesktopHost::Beep() {
    if (!alertSound_) {
        const auto bell = [] { QMetaObject::invokeMethod(qApp, &QApplication::beep, Qt::QueuedConnection); };
        alertSound_ = MakeAlertSound({applicationId_, name_}, alertSoundFile_, bell);
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

void DesktopHost::InhibitScreenSaver() { screenSaver_->Inhibit(); }
void DesktopHost::ReleaseScreenSaver() { screenSaver_->Release(); }
void DesktopHost::DelayScreenSaver() { screenSaver_->Delay(); }

std::filesystem::path DesktopHost::PreferencesFolder() { return UserPreferencesFolder(); }

bool DesktopHost::SelectCompressionSettings(const Ref<Picture>& testImage, CompressionSettings& settings) {
    CompressionDialog dialog(QApplication::activeWindow(), testImage, settings);
    if (dialog.exec() != QDialog::Accepted) return false;
    settings = dialog.Settings();
    return true;
}
