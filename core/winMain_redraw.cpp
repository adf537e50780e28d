#include <algorithm>
#include <cmath>

#include "core/winMain.h"
#include "platform/Canvas.h"
#include "platform/Graphics.h"
#include "platform/Thread.h"
#include "platform/targets.h"
#include "shell/resources.h"

namespace {

// A full turn of the clock and the direction of 12 o'clock, in radians. Both are multiples of 3.141529 rather
// than of pi. The gap of 0.000127 to a full circle is invisible, and every angle is derived from these two.
constexpr double kClockTurn = 6.283058;
constexpr double kTop = 4.7122935;

// The width of the ring, in percent of the drawing diameter, and the reduction from the nominal to the
// drawing diameter, in percent of the nominal one. The reduction leaves space for the outer half of the ring.
constexpr double kRingPercent = 3;
constexpr double kMarginPercent = targets::kWiderClockMargin ? 6 : kRingPercent;

constexpr Int32 kMarks = 60;

/// The centre and diameter of the clock on a surface, in pixels. X and Y return the truncated centre.
struct Face {
    Face(const Graphics& g, double scale) : cx(g.Width() / 2.0), cy(g.Height() / 2.0) {
        const double nominal = std::min(g.Width(), g.Height()) * scale;
        diameter = nominal - kMarginPercent * nominal / 100;
    }

    Int32 X() const { return ToInt32(cx); }
    Int32 Y() const { return ToInt32(cy); }
    /// Returns the diameter of the disc and the wedge.
    double FilledDiameter() const { return targets::kWiderClockMargin ? diameter + diameter / 100 : diameter; }

    double cx;
    double cy;
    double diameter;
};

void DrawBackground(Graphics& g, Color color) {
    g.ForeColor(color);
    g.FillRect(0, 0, g.Width(), g.Height());
}

void DrawDisc(Graphics& g, const Face& face, Color color) {
    OvalShape disc;
    disc.Width(face.FilledDiameter());
    disc.Height(face.FilledDiameter());
    disc.FillColor(color);
    g.DrawObject(disc, face.X(), face.Y());
}

// The wedge extends anticlockwise from 12 o'clock.
void DrawWedge(Graphics& g, const Face& face, Color color, Int32 seconds) {
    if (seconds <= 0) return;
    ArcShape wedge;
    wedge.ArcAngle(kClockTurn * seconds / winMain::kSecondsPerTurn);
    wedge.StartAngle(kTop - wedge.ArcAngle());
    wedge.FillColor(color);
    wedge.Width(face.FilledDiameter());
    wedge.Height(face.FilledDiameter());
    g.DrawObject(wedge, face.X(), face.Y());
}

void DrawRing(Graphics& g, const Face& face, Color color) {
    OvalShape ring;
    ring.Width(face.diameter);
    ring.Height(face.diameter);
    ring.Fill(0);
    ring.Border(100);
    ring.BorderColor(color);
    ring.BorderWidth(std::max(kRingPercent * face.diameter / 100, 1.0));
    g.DrawObject(ring, face.X(), face.Y());
}

// Marks are numbered clockwise from 3 o'clock. Every fifth mark is long.
void DrawMark(Graphics& g, const Face& face, Color color, Int32 i) {
    const bool isLong = i % 5 == 0;
    const double length = (isLong ? 10 : 5) * face.diameter / 100;
    const double theta = kClockTurn * i / kMarks;
    const double inner = face.diameter / 2 - length;
    CurveShape mark;
    mark.BorderWidth((isLong ? 2 : 1) * face.diameter / 100);
    mark.X2(length);
    mark.Rotation(theta);
    mark.BorderColor(color);
    const double x = face.cx + std::cos(theta) * inner;
    const double y = face.cy + std::sin(theta) * inner;
    g.DrawObject(mark, ToInt32(x), ToInt32(y));
}

void DrawMarks(Graphics& g, const Face& face, Color color) {
    for (Int32 i = 0; i < kMarks; ++i) {
        DrawMark(g, face, color, i);
        Thread::Yield();
    }
}

Ref<Picture> StatusPicture(bool isDone, bool isRunning) {
    if (isDone) return Alert_Icon();
    return isRunning ? Run_Icon() : Pause_Icon();
}

void DrawStatusIcon(Graphics& g, bool isDone, bool isRunning) {
    g.DrawPicture(StatusPicture(isDone, isRunning), StatusIcon::kLeft, StatusIcon::kTop);
}

}  // namespace

void winMain::cvTime_Paint(const Ref<Graphics>& g) { Redraw(g, -1, 0.95, false, false); }

void winMain::Redraw(Ref<Graphics> g, Int32 seconds, double scale, bool hideIcon, bool showTimeUp) {
    if (!g) g = Find<Canvas>("cvTime").Graphics();
    const Face face(*g, scale);
    DrawBackground(*g, Color_Window_Background);
    DrawDisc(*g, face, Color_Clock_Face);
    DrawWedge(*g, face, Color_Clock_Wedge, seconds >= 0 ? seconds : CurrentSeconds);
    DrawRing(*g, face, Color_Clock_Frame);
    DrawMarks(*g, face, Color_Clock_Frame);
    if (!hideIcon) DrawStatusIcon(*g, IsDone, IsRunning);
    if (IsDone || showTimeUp) DrawTimeUp(*g, face.diameter);
}

void winMain::DrawTimeUp(Graphics& g, double diameter) {
    g.ForeColor(Color_Clock_Frame);
    g.TextFont("System");
    g.Bold(false);
    g.Italic(false);
    g.TextSize(GetTextSize(g, kTimeUp, ToInt32(diameter * 0.8)));
    const Int32 width = ToInt32(g.StringWidth(kTimeUp));
    const Int32 height = g.StringHeight(kTimeUp, width + 10);
    const double x = (g.Width() - width) / 2.0;
    const double y = (g.Height() - height) / 2.0 + g.TextAscent();
    g.DrawString(kTimeUp, ToInt32(x), ToInt32(y), 0, false);
}

// Doubles the size while the text fits and bisects while it doesn't. May miss the largest fitting size by 1.
Int32 winMain::GetTextSize(Graphics& g, const std::string& text, Int32 maxWidth) {
    Int32 size = 8;
    Int32 low = 8;
    do {
        g.TextSize(size);
        if (maxWidth < ToInt32(g.StringWidth(text))) {
            size = (size + low) / 2;
        } else {
            low = g.TextSize();
            size = 2 * low;
        }
    } while (std::abs(size - low) > 1);
    return size;
}
