#include "platform/qt/DesktopHost.h"

#include <QtCore/QUrl>
#include <QtGui/QDesktopServices>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMessageBox>

#include "platform/linux/Clock.h"
#include "platform/linux/PreferencesFolder.h"

DesktopHost::DesktopHost(const std::string& applicationId, const std::string& name)
    : screenSaver_(MakeScreenSaver(applicationId, name)) {}

double DesktopHost::Microseconds() { return MicrosecondsSinceBoot(); }

void DesktopHost::Beep() { QApplication::beep(); }

void DesktopHost::MsgBox(const std::string& text) {
    QMessageBox box(QApplication::activeWindow());
    box.setWindowTitle(QApplication::applicationName());
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdString(text));
    box.exec();
}

void DesktopHost::ShowURL(const std::string& url) {
    QDesktopServices::openUrl(QUrl::fromEncoded(QByteArray::fromStdString(url)));
}

void DesktopHost::InhibitScreenSaver() { screenSaver_->Inhibit(); }
void DesktopHost::ReleaseScreenSaver() { screenSaver_->Release(); }
void DesktopHost::DelayScreenSaver() { screenSaver_->Delay(); }

std::filesystem::path DesktopHost::PreferencesFolder() { return UserPreferencesFolder(); }
