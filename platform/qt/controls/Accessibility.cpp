#include "platform/qt/controls/Accessibility.h"

#include <QtCore/QPointer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>
#include <utility>

#include "platform/qt/controls/RectControlPeer.h"
#include "platform/qt/events/EventBoundary.h"

/// A text that is said when it appears.
class Announcement final : public QAccessibleInterface {
  public:
    explicit Announcement(QWidget& canvas) : canvas_(&canvas) {}

    void Text(const std::string& text) { text_ = QString::fromStdString(text); }

    // A reader may hold it longer than there is a canvas.
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

// Not behind a dialog, be it one of ours or of the toolkit's.
bool CanvasAccessible::CanBePressed() const {
    const QWidget* const dialog = QApplication::activeModalWidget();
    return canvas_.Accessibility.Press && widget()->isEnabled() && (!dialog || dialog == widget()->window());
}

QStringList CanvasAccessible::actionNames() const {
    return CanBePressed() ? QStringList(pressAction()) : QStringList();
}

// Once the reader has its answer: a press may open a dialog and wait for it.
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
    // A notification that shows is what screen readers say unasked.
    for (const auto happened : {QAccessible::NameChanged, QAccessible::ObjectShow}) {
        QAccessibleEvent event(&latest, happened);
        QAccessible::updateAccessibility(&event);
    }
}

namespace {

/// Of a class of ours. It is asked for before the window knows whether it is a sheet.
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
        if (className != u"QWidget") return nullptr;  // as the toolkit calls whatever is derived from it here
        auto& widget = static_cast<QWidget&>(*object);
        if (auto* canvas = dynamic_cast<Canvas*>(ControlOf(widget))) return new CanvasAccessible(widget, *canvas);
        return widget.isWindow() ? new WindowAccessible(&widget) : nullptr;
    });
}
