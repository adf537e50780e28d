#pragma once

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtWidgets/QWidget>

#include "platform/Graphics.h"

/// Graphics on antialiased raster painting, straight onto its device.
class PainterGraphics final : public Graphics {
  public:
    /// On an image, whose memory must outlive this object.
    PainterGraphics(QImage image, QSize logicalSize);
    /// On a widget, within its paint event; End() must be called before the event is over.
    explicit PainterGraphics(QWidget& widget);

    /// Nothing is drawn from here on, whoever still holds the object.
    void End() { painter_.end(); }
    /// Draws an image over the whole surface.
    void Fill(const QImage& image);

    Int32 Width() const override { return size_.width(); }
    Int32 Height() const override { return size_.height(); }

    void FillRect(Int32 x, Int32 y, Int32 width, Int32 height) override;
    void DrawRect(Int32 x, Int32 y, Int32 width, Int32 height) override;
    void DrawLine(Int32 x1, Int32 y1, Int32 x2, Int32 y2) override;
    void ClearRect(Int32 x, Int32 y, Int32 width, Int32 height) override;
    void DrawObject(const OvalShape& oval, Int32 x, Int32 y) override;
    void DrawObject(const ArcShape& arc, Int32 x, Int32 y) override;
    void DrawObject(const CurveShape& line, Int32 x, Int32 y) override;
    void DrawPicture(const Ref<Picture>& picture, Int32 x, Int32 y, Int32 destWidth, Int32 destHeight, Int32 sourceX,
                     Int32 sourceY, Int32 sourceWidth, Int32 sourceHeight) override;
    double StringWidth(const std::string& text) override;
    Int32 StringHeight(const std::string& text, Int32 wrapWidth) override;
    Int32 TextAscent() override;
    void DrawString(const std::string& text, Int32 x, Int32 y) override;

  private:
    void Prepare();
    void FillSharply(QRect place, const QColor& color);
    void DrawRing(const QRectF& ellipse, double lineWidth);
    QFont Font() const;

    QImage image_;
    QSize size_;
    /// What ClearRect goes back to.
    QColor background_ = Qt::white;
    QPainter painter_;
};
