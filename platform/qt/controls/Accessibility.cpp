#include "platform/qt/controls/Accessibility.h"

#include <QtWidgets/QAccessibleWidget>
#include <QtWidgets/QApplication>

#include "platform/Canvas.h"
#include "platform/qt/controls/RectControlPeer.h"
#include "platform/qt/drawing/Styles.h"
#include "platform/qt/events/EventBoundary.h"
#include "platform/qt/events/MainThread.h"

namespace {

/// A text that screen readers speak when it appears. From Qt 6.8, QAccessibleAnnouncementEvent could do that.
class Announcement final : public QAccessibleInterface {
  public:
    explicit Announcement(QWidget& canvas) : canvas_(&canvas) {}

    void Text(const std::string& text) { text_ = ToQString(text); }

    // A screen reader may still hold this object after the canvas has been destroyed.
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

/// The accessible interface of a canvas. Its only child is the latest announcement, if there was one.
class CanvasAccessible final : public QAccessibleWidget {
  public:
    CanvasAccessible(QWidget& widget, Canvas& canvas) : QAccessibleWidget(&widget), canvas_(canvas) {}
    ~CanvasAccessible() override {
        if (announcement_ != kNone) QAccessible::deleteAccessibleInterface(announcement_);
    }

    void Announce(const std::string& text) {
        if (!std::exchange(unsaid_, text).empty()) return;
        AfterThisEvent(*widget(), [this] { Say(std::exchange(unsaid_, "")); });
    }

    QAccessible::Role role() const override {
        const bool isButton = canvas_.Accessibility.Role == Accessible::Roles::Button;
        return isButton ? QAccessible::PushButton : QAccessible::Graphic;
    }

    QString text(QAccessible::Text which) const override {
        if (which == QAccessible::Description) return ToQString(Deliver(canvas_.Accessibility.Description));
        return QAccessibleWidget::text(which);
    }

    int childCount() const override { return announcement_ == kNone ? 0 : 1; }
    QAccessibleInterface* child(int index) const override {
        return index < childCount() ? QAccessible::accessibleInterface(announcement_) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* wanted) const override {
        return wanted && wanted == child(0) ? 0 : -1;
    }

    QStringList actionNames() const override { return CanBePressed() ? QStringList(pressAction()) : QStringList(); }

    // Queues the press, so that the screen reader gets its answer first: a press may open a modal dialog.
    void doAction(const QString& name) override {
        if (name != pressAction() || !CanBePressed()) return;
        AfterThisEvent(*widget(), [this] { Deliver(canvas_.Accessibility.Press); });
    }

  private:
    // While a dialog of ours or of Qt's blocks the window, its canvases can't be pressed either.
    bool CanBePressed() const {
        const QWidget* const dialog = QApplication::activeModalWidget();
        return canvas_.Accessibility.Press && widget()->isEnabled() && (!dialog || dialog == widget()->window());
    }

    void Say(const std::string& text) {
        canvas_.DescriptionChanged();
        if (announcement_ == kNone)
            announcement_ = QAccessible::registerAccessibleInterface(new Announcement(*widget()));
        auto& latest = static_cast<Announcement&>(*QAccessible::accessibleInterface(announcement_));
        latest.Text(text);
        // Screen readers speak a notification by themselves when it is shown.
        for (const auto happened : {QAccessible::NameChanged, QAccessible::ObjectShow}) {
            QAccessibleEvent event(&latest, happened);
            QAccessible::updateAccessibility(&event);
        }
    }

    Canvas& canvas_;
    static constexpr QAccessible::Id kNone = 0;
    /// The id of the announcement, which Qt's registry owns.
    QAccessible::Id announcement_ = kNone;
    /// The queued text; empty if none is queued.
    std::string unsaid_;
};

/// The accessible interface of a window. The role is computed on request: the window's type is set later.
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
        // Our widget classes have no Q_OBJECT, so Qt reports QWidget as their class.
        if (className != u"QWidget") return nullptr;
        auto& widget = static_cast<QWidget&>(*object);
        auto* const canvas = dynamic_cast<Canvas*>(ControlOf(widget));
        if (canvas) return new CanvasAccessible(widget, *canvas);
        return widget.isWindow() ? new WindowAccessible(&widget) : nullptr;
    });
}

void Speak(QWidget& canvas, const std::string& text) {
    if (!QAccessible::isActive()) return;
    static_cast<CanvasAccessible&>(*QAccessible::queryAccessibleInterface(&canvas)).Announce(text);
}
