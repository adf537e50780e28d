#pragma once

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtWidgets/QWidget>

#include "platform/Graphics.h"
#include "platform/MovieLibrary.h"
#include "platform/Picture.h"

/// The antialiasing painter of a surface, which paints straight onto its device.
struct Graphics::Peer {
    /// Paints on an image, whose memory must outlive this object. A painter would copy an image that is shared.
    Peer(QImage surface, QSize logicalSize) : image(std::move(surface)), size(logicalSize), painter(&image) {}
    /// Paints on a widget. This object lives within the widget's paint event.
    explicit Peer(QWidget& widget)
        : size(widget.size()), background(widget.palette().color(QPalette::Window)), painter(&widget) {}

    /// Draws an image over the whole surface.
    void Fill(const QImage& picture) { painter.drawImage(QRect(QPoint(), size), picture); }

    QImage image;
    QSize size;
    /// The colour that ClearRect fills with.
    QColor background = Qt::white;
    QPainter painter;
};

/// The memory of a picture. Views share it without copying, so one may be painted on while another is read.
struct Picture::Pixels {
    /// All pixels are white. Throws std::bad_alloc when there is no memory for them.
    Pixels(QSize sizeInUnits, double pixelsPerUnit);

    QImage View();

    const QSize logicalSize;
    const double ratio;
    /// In pixels of its own.
    const QSize size;
    std::vector<QRgb> memory;
};

/// A picture's pixels with its mask as transparency. The picture must not change while the image is used.
QImage WithMask(Picture& picture);

/// A copy of an image of the movie library; a null image for none.
QImage ToQImage(const std::optional<RgbImage>& image);
