#include "platform/qt/application/WindowIcon.h"

#include <QtCore/QTimer>
#include <QtGui/QIcon>
#include <QtWidgets/QApplication>

namespace {

class AfterFirstPaint final : public QObject {
  public:
    explicit AfterFirstPaint(const QString& icon) : QObject(qApp), icon_(icon) { qApp->installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            qApp->removeEventFilter(this);
            QTimer::singleShot(0, qApp, [icon = icon_] { QApplication::setWindowIcon(QIcon::fromTheme(icon)); });
        }
        return false;
    }

  private:
    const QString icon_;
};

}  // namespace

void InstallWindowIcon(const std::string& name) { new AfterFirstPaint(QString::fromStdString(name)); }
