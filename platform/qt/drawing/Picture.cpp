#include "platform/Picture.h"

#include <QtCore/QFile>
#include <QtGui/QGuiApplication>
#include <QtGui/QImageReader>
#include <cstdlib>

#include "platform/FolderItem.h"
#include "platform/qt/drawing/Surfaces.h"

Picture::Pixels::Pixels(QSize sizeInUnits, double pixelsPerUnit)
    : logicalSize(sizeInUnits), ratio(pixelsPerUnit), size((QSizeF(logicalSize) * ratio).toSize()) {
    constexpr QRgb kWhite = 0xFFFFFFFF;
    memory.assign(static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height()), kWhite);
}

QImage Picture::Pixels::View() {
    auto* const bytes = reinterpret_cast<uchar*>(memory.data());
    QImage view(bytes, size.width(), size.height(), QImage::Format_RGB32);
    view.setDevicePixelRatio(ratio);
    return view;
}

Picture::Picture(std::unique_ptr<Pixels> pixels) : pixels_(std::move(pixels)) {}

Picture::~Picture() = default;

Int32 Picture::Width() const { return pixels_->logicalSize.width(); }
Int32 Picture::Height() const { return pixels_->logicalSize.height(); }

std::span<const std::uint32_t> Picture::Bits() const { return pixels_->memory; }

Ref<Graphics> Picture::Graphics() {
    using Peer = ::Graphics::Peer;
    if (!graphics_) graphics_ = MakeRef<::Graphics>(std::make_unique<Peer>(pixels_->View(), pixels_->logicalSize));
    return graphics_;
}

Ref<Picture> Picture::Mask(bool create) {
    if (!mask_ && create) {
        mask_ = NewPicture(Width(), Height(), 32, pixels_->ratio);
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
        // setAlphaChannel would apply both device pixel ratios, so both are 1 during the call.
        opacity.setDevicePixelRatio(1);
        image.setDevicePixelRatio(1);
        image.setAlphaChannel(opacity);
        image.setDevicePixelRatio(picture.pixels().ratio);
    }
    return image;
}

QImage ToQImage(const std::optional<RgbImage>& image) {
    if (!image) return {};
    const RgbImage& rgb = *image;
    const qsizetype bytesPerRow = qsizetype{3} * rgb.width;
    return QImage(rgb.bytes.data(), rgb.width, rgb.height, bytesPerRow, QImage::Format_RGB888).copy();
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

/// Returns a white image to read a file into. Otherwise pixels that a damaged file lacks are uninitialised.
QImage Blank(QSize size, QImage::Format format) {
    QImage image(size, format);
    if (!image.isNull() && image.depth() <= 8) image.setColorCount(1 << image.depth());
    image.fill(Qt::white);
    return image;
}

QImage ReadImage(const std::filesystem::path& file) {
    QImageReader reader(QFile::decodeName(file.c_str()));
    // Qt reports a negative height for a BMP file whose rows go from top to bottom.
    const int width = reader.size().width();
    const qint64 height = std::abs(qint64{reader.size().height()});
    if (width * height > kMostPixelsInFile) return {};
    QImage image = Blank({width, static_cast<int>(height)}, reader.imageFormat());
    if (reader.read(&image)) return image;
    return ToQImage(MovieLibrary::Installed().ReadPict(file));
}

/// Returns a picture of `image`, in which a logical pixel is `scale` pixels wide; nil for a null image.
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
