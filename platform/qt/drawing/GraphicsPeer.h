#pragma once

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtWidgets/QWidget>

#include "platform/Graphics.h"

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
