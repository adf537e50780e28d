#pragma once

#include <QtWidgets/QAccessibleWidget>
#include <string>

#include "platform/Canvas.h"

/// A canvas as screen readers see it. Its one child, once there is one, is the latest announcement.
class CanvasAccessible final : public QAccessibleWidget {
  public:
    CanvasAccessible(QWidget& widget, Canvas& canvas) : QAccessibleWidget(&widget), canvas_(canvas) {}
    ~CanvasAccessible() override;

    /// Has a text said once the event under way is over; of several the last.
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
    /// Makes the announcement when there is none yet.
    class Announcement& LatestAnnouncement();

    Canvas& canvas_;
    static constexpr QAccessible::Id kNone = 0;
    /// The toolkit's registry holds what this names.
    QAccessible::Id announcement_ = kNone;
    /// What is to be said; empty for nothing.
    std::string unsaid_;
};

/// Tells the toolkit how screen readers see what it doesn't know by itself: windows and canvases.
void InstallAccessibility();
