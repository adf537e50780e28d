#pragma once

#include <QtGui/QAccessible>
#include <QtWidgets/QAccessibleWidget>
#include <string>

#include "platform/qt/controls/CanvasWidget.h"

/// A canvas as screen readers see it. Its one child, once there is one, is the latest announcement.
class CanvasAccessible final : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    /// Tells a screen reader that it has to ask for the description again.
    static void TellChange(CanvasWidget& canvas);
    /// Has the text said, if a screen reader is there.
    static void Say(CanvasWidget& canvas, const std::string& text);

    explicit CanvasAccessible(CanvasWidget& canvas) : QAccessibleWidget(&canvas) {}
    ~CanvasAccessible() override;

    QAccessible::Role role() const override;
    QString text(QAccessible::Text which) const override;
    void* interface_cast(QAccessible::InterfaceType type) override;
    int childCount() const override { return announcement_ == kNone ? 0 : 1; }
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QStringList actionNames() const override;
    void doAction(const QString& name) override;

    QVariant currentValue() const override;
    QVariant minimumValue() const override { return 0.0; }
    QVariant maximumValue() const override { return Told().Maximum; }
    QVariant minimumStepSize() const override { return 0.0; }
    void setCurrentValue(const QVariant&) override {}

  private:
    const Accessible& Told() const;
    bool CanBePressed() const;
    /// Makes the announcement when there is none yet.
    class Announcement& Latest();

    static constexpr QAccessible::Id kNone = 0;
    /// The toolkit's registry holds what this names.
    QAccessible::Id announcement_ = kNone;
};
