#pragma once

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtWidgets/QWidget>
#include <optional>
#include <vector>

#include "platform/Graphics.h"
#include "platform/MovieLibrary.h"
#include "platform/Picture.h"

/// Antialiased raster painting, straight onto its device.
struct Graphics::Peer {
    /// On an image, whose memory must outlive this object.
    Peer(QImage surface, QSize logicalSize);
    /// On a widget, within its paint event; the painter must end before the event is over.
    explicit Peer(QWidget& widget);

    /// Draws an image over the whole surface.
    void Fill(const QImage& picture) { painter.drawImage(QRect(QPoint(), size), picture); }

    QImage image;
    QSize size;
    /// What ClearRect goes back to.
    QColor background = Qt::white;
    QPainter painter;
};

/// The memory behind a picture, shared by views: one may be painted on while another is read, and nothing is copied.
class Picture::Pixels {
  public:
    /// White. Throws std::bad_alloc when there is no memory for it.
    Pixels(QSize logicalSize, double devicePixelRatio);

    QImage View();
    std::span<const QRgb> Bits() const { return memory_; }
    QSize LogicalSize() const { return logicalSize_; }
    double Ratio() const { return ratio_; }

  private:
    QSize logicalSize_;
    QSize size_;
    double ratio_;
    std::vector<QRgb> memory_;
};

/// A picture's pixels seen through its mask; it must not be changed while the image is in use.
QImage Composed(Picture& picture);

/// A copy of an image that the movie library gave; null for none.
QImage ToQImage(const std::optional<RgbImage>& image);
