#pragma once

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtWidgets/QWidget>

#include "platform/Graphics.h"
#include "platform/MovieLibrary.h"
#include "platform/Picture.h"

/// The antialiasing painter of a surface, which is an image or a widget.
struct Graphics::Peer {
    /// Paints on `surface`, whose memory must outlive this object. QPainter detaches an image that is shared.
    Peer(QImage surface, QSize logicalSize) : image(std::move(surface)), size(logicalSize), painter(&image) {}
    /// Paints on a widget, and only during the widget's paint event.
    explicit Peer(QWidget& widget)
        : size(widget.size()), background(widget.palette().color(QPalette::Window)), painter(&widget) {}

    /// Draws an image scaled to the whole surface.
    void Fill(const QImage& picture) { painter.drawImage(QRect(QPoint(), size), picture); }

    QImage image;
    QSize size;
    /// The colour that ClearRect fills with.
    QColor background = Qt::white;
    QPainter painter;
};

/// The pixels of a picture. Views share their memory, so one view may be painted on while another is read.
struct Picture::Pixels {
    /// Allocates white pixels. Throws std::bad_alloc or std::length_error if there isn't enough memory.
    Pixels(QSize sizeInUnits, double pixelsPerUnit);

    QImage View();

    const QSize logicalSize;
    const double ratio;
    /// The size in device pixels. A logical pixel is `ratio` device pixels wide.
    const QSize size;
    std::vector<QRgb> memory;
};

/// Returns a picture's pixels with the mask as alpha channel. Don't change the picture while using the image.
QImage WithMask(Picture& picture);

/// Returns a copy of an image from the movie library; a null image if there is none.
QImage ToQImage(const std::optional<RgbImage>& image);
