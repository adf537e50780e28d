#include "platform/Picture.h"

#include <QtCore/QFile>
#include <QtGui/QGuiApplication>
#include <QtGui/QImageReader>
#include <cstdlib>
#include <filesystem>

#include "platform/FolderItem.h"
#include "platform/qt/drawing/Surfaces.h"

Picture::Pixels::Pixels(QSize logicalSize, double devicePixelRatio)
    : logicalSize_(logicalSize), size_((QSizeF(logicalSize) * devicePixelRatio).toSize()), ratio_(devicePixelRatio) {
    constexpr QRgb kWhite = 0xFFFFFFFF;
    const auto width = static_cast<std::size_t>(size_.width());
    memory_.assign(width * static_cast<std::size_t>(size_.height()), kWhite);
}

QImage Picture::Pixels::View() {
    QImage view(reinterpret_cast<uchar*>(memory_.data()), size_.width(), size_.height(),
                static_cast<qsizetype>(size_.width()) * static_cast<qsizetype>(sizeof(QRgb)), QImage::Format_RGB32);
    view.setDevicePixelRatio(ratio_);
    return view;
}

Picture::Picture(std::unique_ptr<Pixels> pixels) : pixels_(std::move(pixels)) {}

Picture::~Picture() = default;

Int32 Picture::Width() const { return pixels_->LogicalSize().width(); }
Int32 Picture::Height() const { return pixels_->LogicalSize().height(); }

std::span<const std::uint32_t> Picture::Bits() const { return pixels_->Bits(); }

Ref<Graphics> Picture::Graphics() {
    if (!graphics_) {
        auto peer = std::make_unique<::Graphics::Peer>(pixels_->View(), pixels_->LogicalSize());
        graphics_ = MakeRef<::Graphics>(std::move(peer));
    }
    return graphics_;
}

Ref<Picture> Picture::Mask(bool create) {
    if (!mask_ && create) {
        mask_ = NewPicture(Width(), Height(), 32, pixels_->Ratio());
        mask_->Graphics()->ForeColor(RGB(0, 0, 0));
        mask_->Graphics()->FillRect(0, 0, Width(), Height());
    }
    return mask_;
}

QImage WithMask(Picture& picture) {
    QImage image = picture.pixels().View();
    if (const Ref<Picture> mask = picture.Mask(false)) {
        QImage opacity = mask->pixels().View().convertToFormat(QImage::Format_Grayscale8);
        opacity.invertPixels();
        // setAlphaChannel takes both scales into account, so both are 1 for this call.
        opacity.setDevicePixelRatio(1);
        image.setDevicePixelRatio(1);
        image.setAlphaChannel(opacity);
        image.setDevicePixelRatio(picture.pixels().Ratio());
    }
    return image;
}

QImage ToQImage(const std::optional<RgbImage>& image) {
    if (!image) return {};
    const qsizetype bytesPerRow = qsizetype{3} * image->width;
    return QImage(image->bytes.data(), image->width, image->height, bytesPerRow, QImage::Format_RGB888).copy();
}

Ref<Picture> NewPicture(Int32 width, Int32 height, Int32, double scale) {
    if (width <= 0 || height <= 0) return nullptr;
    try {
        return MakeRef<Picture>(std::make_unique<Picture::Pixels>(QSize(width, height), scale));
    } catch (const std::exception&) {
        const std::string size = std::to_string(width) + " x " + std::to_string(height);
        return Ref<Picture>::Nil("There isn't enough memory for a picture of " + size + " pixels.");
    }
}

namespace {

/// A white image to read into. What a damaged file doesn't fill would otherwise be random memory.
QImage Blank(QSize size, QImage::Format format) {
    QImage image(size, format);
    if (!image.isNull() && image.depth() <= 8) image.setColorCount(1 << image.depth());
    image.fill(Qt::white);
    return image;
}

QImage ReadImage(const std::filesystem::path& file) {
    QImageReader reader(QFile::decodeName(file.c_str()));
    // The height is negative in a BMP file whose rows go from top to bottom.
    const int width = reader.size().width();
    const qint64 height = std::abs(qint64{reader.size().height()});
    if (width * height > kMostPixelsInFile) return {};
    QImage image = Blank({width, static_cast<int>(height)}, reader.imageFormat());
    if (reader.read(&image)) return image;
    return ToQImage(MovieLibrary::Installed().ReadPict(file));
}

/// A picture of the image, `scale` of whose pixels are a logical one. Nil for a null image.
Ref<Picture> PictureOf(const QImage& image, int scale) {
    Ref<Picture> picture = NewPicture(image.width() / scale, image.height() / scale, 32, scale);
    if (picture) picture->Graphics()->peer().Fill(image);
    return picture;
}

}  // namespace

Ref<Picture> FolderItem::OpenAsPicture() const {
    if (qApp->devicePixelRatio() > 1) {
        const std::string name = Path().stem().string() + "@2x" + Path().extension().string();
        if (Ref<Picture> dense = PictureOf(ReadImage(Path().parent_path() / name), 2)) return dense;
    }
    const Ref<Picture> picture = PictureOf(ReadImage(Path()), 1);
    return picture ? picture : Ref<Picture>::Nil("The picture " + Path().string() + " can't be read.");
}
