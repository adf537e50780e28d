#pragma once

#include <QtWidgets/QAccessibleWidget>
#include <string>

#include "platform/Canvas.h"

/// A canvas as screen readers see it. Its only child is the latest announcement, if there was one.
class CanvasAccessible final : public QAccessibleWidget {
  public:
    CanvasAccessible(QWidget& widget, Canvas& canvas) : QAccessibleWidget(&widget), canvas_(canvas) {}
    ~CanvasAccessible() override;

    /// Has a text spoken after the present event; the last one, if there are several.
    void Announce(const std::string& text);

    QAccessible::Role role() const override;
    QString text(QAccessible::Text which) const override;
    int childCount() const override { return announcement_ == kNone ? 0 : 1; }
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QStringList actionNames() const override;
    void doAction(const QString& name) override;

  private:
    bool CanBePressed() const;
    void Say(const std::string& text);
    /// Makes the announcement if there is none yet.
    class Announcement& LatestAnnouncement();

    Canvas& canvas_;
    static constexpr QAccessible::Id kNone = 0;
    /// The announcement's id in Qt's registry, which owns it.
    QAccessible::Id announcement_ = kNone;
    /// What is still to be spoken; empty for nothing.
    std::string unsaid_;
};

/// Tells Qt how screen readers see our windows and canvases.
void InstallAccessibility();
