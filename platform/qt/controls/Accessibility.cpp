#include "platform/qt/controls/Accessibility.h"

#include <QtCore/QPointer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>
#include <utility>

#include "platform/qt/controls/RectControlPeer.h"
#include "platform/qt/events/EventBoundary.h"

/// A text that is spoken when it appears. Needed before Qt 6.8, which has QAccessibleAnnouncementEvent.
class Announcement final : public QAccessibleInterface {
  public:
    explicit Announcement(QWidget& canvas) : canvas_(&canvas) {}

    void Text(const std::string& text) { text_ = QString::fromStdString(text); }

    // A screen reader may hold it longer than the canvas lives.
    bool isValid() const override { return canvas_ != nullptr; }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(canvas_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text which) const override { return which == QAccessible::Name ? text_ : QString(); }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override { return canvas_ ? parent()->rect() : QRect(); }
    QAccessible::Role role() const override { return QAccessible::Notification; }
    QAccessible::State state() const override { return canvas_ ? parent()->state() : QAccessible::State(); }

  private:
    QPointer<QWidget> canvas_;
    QString text_;
};

CanvasAccessible::~CanvasAccessible() {
    if (announcement_ != kNone) QAccessible::deleteAccessibleInterface(announcement_);
}

Announcement& CanvasAccessible::LatestAnnouncement() {
    if (announcement_ == kNone) announcement_ = QAccessible::registerAccessibleInterface(new Announcement(*widget()));
    return static_cast<Announcement&>(*QAccessible::accessibleInterface(announcement_));
}

QAccessible::Role CanvasAccessible::role() const {
    return canvas_.Accessibility.Role == Accessible::Roles::Button ? QAccessible::PushButton : QAccessible::Graphic;
}

QString CanvasAccessible::text(QAccessible::Text which) const {
    if (which == QAccessible::Description) return QString::fromStdString(Deliver(canvas_.Accessibility.Description));
    return QAccessibleWidget::text(which);
}

QAccessibleInterface* CanvasAccessible::child(int index) const {
    return index < childCount() ? QAccessible::accessibleInterface(announcement_) : nullptr;
}

int CanvasAccessible::indexOfChild(const QAccessibleInterface* wanted) const {
    return wanted && wanted == child(0) ? 0 : -1;
}

// A dialog over the window, one of ours or of Qt's, blocks its canvases too.
bool CanvasAccessible::CanBePressed() const {
    const QWidget* const dialog = QApplication::activeModalWidget();
    return canvas_.Accessibility.Press && widget()->isEnabled() && (!dialog || dialog == widget()->window());
}

QStringList CanvasAccessible::actionNames() const {
    return CanBePressed() ? QStringList(pressAction()) : QStringList();
}

// Queued, so that the screen reader has its answer first: a press may open a dialog and wait for it.
void CanvasAccessible::doAction(const QString& name) {
    if (name != pressAction() || !CanBePressed()) return;
    QMetaObject::invokeMethod(
        widget(), [this] { Deliver(canvas_.Accessibility.Press); }, Qt::QueuedConnection);
}

void CanvasAccessible::Announce(const std::string& text) {
    if (!std::exchange(unsaid_, text).empty()) return;
    QMetaObject::invokeMethod(
        widget(), [this] { Say(std::exchange(unsaid_, "")); }, Qt::QueuedConnection);
}

void CanvasAccessible::Say(const std::string& text) {
    canvas_.DescriptionChanged();
    Announcement& latest = LatestAnnouncement();
    latest.Text(text);
    // Screen readers speak a notification, unasked, when it begins to show.
    for (const auto happened : {QAccessible::NameChanged, QAccessible::ObjectShow}) {
        QAccessibleEvent event(&latest, happened);
        QAccessible::updateAccessibility(&event);
    }
}

namespace {

/// One of our windows. Its role is computed on request, since the window's type is set after this is made.
class WindowAccessible final : public QAccessibleWidget {
  public:
    using QAccessibleWidget::QAccessibleWidget;
    QAccessible::Role role() const override {
        return widget()->windowType() == Qt::Dialog ? QAccessible::Dialog : QAccessible::Window;
    }
};

}  // namespace

void InstallAccessibility() {
    QAccessible::installFactory([](const QString& className, QObject* object) -> QAccessibleInterface* {
        // Our subclasses have no Q_OBJECT, so Qt names them QWidget.
        if (className != u"QWidget") return nullptr;
        auto& widget = static_cast<QWidget&>(*object);
        if (auto* canvas = dynamic_cast<Canvas*>(ControlOf(widget))) return new CanvasAccessible(widget, *canvas);
        return widget.isWindow() ? new WindowAccessible(&widget) : nullptr;
    });
}
