#pragma once

#include <QtGui/QImage>
#include <optional>
#include <vector>

#include "platform/MovieLibrary.h"
#include "platform/Picture.h"

/// The memory behind a picture. It is handed out as views that share it, so that one may be painted on while another
/// is read, with no copy made in between.
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
