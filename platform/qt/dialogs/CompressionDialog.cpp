#include "platform/qt/dialogs/CompressionDialog.h"

#include <QtWidgets/QFormLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QPushButton>
#include <algorithm>

#include "platform/Text.h"
#include "platform/qt/drawing/Styles.h"
#include "platform/qt/drawing/Surfaces.h"
#include "platform/qt/events/EventBoundary.h"
#include "platform/qt/events/MainThread.h"

namespace {

constexpr QSize kPreviewSize(320, 240);
constexpr double kHighestRate = 1000;

PixelView View(Picture& picture) { return {picture.Width(), picture.Height(), picture.Bits()}; }

bool IsLarge(QSize frame) { return frame.boundedTo(kPreviewSize) != frame; }

QString SizeText(double bytesPerMinute) {
    constexpr double kMegabyte = 1024 * 1024;
    const std::string kilobytes = Format(bytesPerMinute / 1024, "###,##0") + " KB";
    const std::string megabytes = Format(bytesPerMinute / kMegabyte, "###,##0.0") + " MB";
    return ToQString("About " + (bytesPerMinute < kMegabyte ? kilobytes : megabytes) + " a minute");
}

QString Note(const QString& codec, SizeSupport support) {
    if (support == SizeSupport::Full) return {};
    if (support == SizeSupport::Refused) return codec + QStringLiteral(" can't make frames of this size.");
    return QStringLiteral("Many players can't show %1 of an odd width or height.").arg(codec);
}

}  // namespace

CompressionDialog::CompressionDialog(QWidget* parent, const Ref<Picture>& testImage, const MoviePlan& plan,
                                     const CompressionSettings& proposal)
    : QDialog(parent),
      testImage_(testImage),
      plan_(plan),
      frameSize_(testImage->Width(), testImage->Height()),
      proposedRate_(proposal.frameRate) {
    setWindowTitle(QStringLiteral("Compression Settings"));
    auto* sides = new QHBoxLayout(this);
    sides->addLayout(MakePreviewSide());
    sides->addSpacing(12);
    sides->addLayout(MakeSettingsSide());
    codec_.setCurrentIndex(std::max(codec_.findData(static_cast<int>(proposal.codec)), 0));
    quality_.setValue(proposal.quality);
    ShowFrameRate(proposal.frameRate);
    connect(&codec_, &QComboBox::currentIndexChanged, this, [this] { ShowCodec(); });
    connect(&quality_, &QSlider::valueChanged, this, [this] { Encode(); });
    connect(&frameRate_, &QLineEdit::textChanged, this, [this] { Encode(); });
    connect(&frameRate_, &QLineEdit::editingFinished, this, [this] { ShowFrameRate(FrameRate()); });
    connect(&isActualSize_, &QCheckBox::toggled, this, [this](bool on) {
        previewArea_.setFocusPolicy(on ? Qt::StrongFocus : Qt::NoFocus);
        ShowPreview();
        // Scrolls to the middle, where the clock is; the corners are empty.
        preview_.adjustSize();
        const QSize half = kPreviewSize / 2;
        previewArea_.ensureVisible(preview_.width() / 2, preview_.height() / 2, half.width(), half.height());
    });
    codec_.setFocus();
    ShowCodec();
}

QLayout* CompressionDialog::MakePreviewSide() {
    auto* rows = new QVBoxLayout;
    preview_.setAlignment(Qt::AlignCenter);
    previewArea_.setWidget(&preview_);
    previewArea_.setAccessibleName(QStringLiteral("Preview"));
    previewArea_.setFocusPolicy(Qt::NoFocus);  // takes no focus until there is something to scroll
    previewArea_.setWidgetResizable(true);
    previewArea_.setAlignment(Qt::AlignCenter);
    previewArea_.setFixedSize(kPreviewSize + 2 * QSize(previewArea_.frameWidth(), previewArea_.frameWidth()));
    isActualSize_.setText(QStringLiteral("&Actual size"));
    if (!IsLarge(frameSize_)) isActualSize_.hide();
    rows->addWidget(&previewArea_);
    rows->addWidget(&isActualSize_);
    rows->addStretch();
    return rows;
}

QLayout* CompressionDialog::MakeSettingsSide() {
    auto* rows = new QVBoxLayout;
    auto* form = new QFormLayout;
    rows->addLayout(form);
    for (const CodecChoice& codec : codecs_)
        codec_.addItem(ToQString(codec.name), static_cast<int>(codec.codec));
    form->addRow(QStringLiteral("Compression &type:"), &codec_);
    quality_.setRange(0, 100);
    quality_.setPageStep(25);
    quality_.setTickInterval(25);
    quality_.setTickPosition(QSlider::TicksBelow);
    form->addRow(QStringLiteral("&Quality:"), &quality_);
    auto* ends = new QHBoxLayout(&qualityEnds_);
    ends->setContentsMargins(0, 0, 0, 0);
    ends->addWidget(new QLabel(QStringLiteral("Least")));
    ends->addStretch();
    ends->addWidget(new QLabel(QStringLiteral("Best")));
    form->addRow(QString(), &qualityEnds_);
    form->addRow(QStringLiteral("&Frames per second:"), &frameRate_);
    size_.setMinimumWidth(size_.fontMetrics().horizontalAdvance(SizeText(1e12)));
    form->addRow(QStringLiteral("Movie size:"), &size_);
    note_.setWordWrap(true);
    note_.setAlignment(Qt::AlignTop);
    note_.setMinimumHeight(2 * note_.fontMetrics().lineSpacing());
    form->addRow(&note_);
    connect(&buttons_, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(&buttons_, &QDialogButtonBox::rejected, this, &QDialog::reject);
    rows->addStretch();
    rows->addWidget(&buttons_);
    return rows;
}

CompressionSettings CompressionDialog::Settings() const { return {Codec().codec, quality_.value(), FrameRate()}; }

const CodecChoice& CompressionDialog::Codec() const {
    return codecs_.at(static_cast<std::size_t>(codec_.currentIndex()));
}

/// Returns the field's rate, clamped to the permitted range; the proposed rate if it isn't a positive number.
double CompressionDialog::FrameRate() const {
    const double rate = Val(frameRate_.text().toStdString());
    const double highest = std::max(kHighestRate, proposedRate_);
    return rate > 0 ? std::clamp(rate, kLowestFrameRate, highest) : proposedRate_;
}

void CompressionDialog::ShowFrameRate(double rate) { frameRate_.setText(ToQString(Str(rate))); }

void CompressionDialog::ShowCodec() {
    const auto& [codec, name, hasQuality] = Codec();
    quality_.setEnabled(hasQuality);
    qualityEnds_.setEnabled(hasQuality);
    const auto support = MovieLibrary::Installed().Supports(codec, frameSize_.width(), frameSize_.height());
    note_.setText(Note(codec_.currentText(), support));
    codec_.setAccessibleDescription(note_.text());
    buttons_.button(QDialogButtonBox::Ok)->setEnabled(support != SizeSupport::Refused);
    Encode();
}

// Cancels the previous worker. The new worker waits until the previous one has ended; the dialog doesn't.
void CompressionDialog::Encode() {
    size_.setEnabled(false);  // it is greyed until the new size is known
    worker_.request_stop();
    const CompressionSettings settings = Settings();
    auto work = [this, settings, before = std::move(worker_)](const std::stop_token& stop) mutable {
        before = std::jthread();
        Deliver([&] { EncodeSample(settings, stop); });
    };
    Deliver([&] { worker_ = std::jthread(std::move(work)); });
}

void CompressionDialog::EncodeSample(const CompressionSettings& settings, const std::stop_token& stop) {
    const auto image = MovieLibrary::Installed().EncodePreview(settings, View(*testImage_), stop);
    if (stop.stop_requested()) return;
    OnMainThread(*this, [this, image] {
        rendered_ = ToQImage(image);
        ShowPreview();
    });
    const std::optional<double> bytesPerSecond = BytesPerSecond(settings, stop);
    if (stop.stop_requested()) return;
    OnMainThread(*this, [this, bytesPerSecond] {
        constexpr double kSecondsPerMinute = 60;
        size_.setEnabled(true);
        size_.setText(bytesPerSecond ? SizeText(*bytesPerSecond * kSecondsPerMinute) : QString());
    });
}

std::optional<double> CompressionDialog::BytesPerSecond(const CompressionSettings& settings,
                                                        const std::stop_token& stop) const {
    if (!plan_.draw) return std::nullopt;
    const Ref<Picture> drawn = NewPicture(frameSize_.width(), frameSize_.height(), 32);
    const auto pictureAt = [&](double seconds) {
        Deliver(plan_.draw, drawn->Graphics(), seconds);
        return View(*drawn);
    };
    return MovieLibrary::Installed().EstimateBytesPerSecond(settings, {plan_.seconds, pictureAt}, stop);
}

void CompressionDialog::ShowPreview() {
    QPixmap picture = QPixmap::fromImage(rendered_);
    if (IsLarge(picture.size()) && !isActualSize_.isChecked()) {
        const double ratio = devicePixelRatioF();
        const QSize pixels = (QSizeF(kPreviewSize) * ratio).toSize();
        picture = picture.scaled(pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        picture.setDevicePixelRatio(ratio);
    }
    preview_.setPixmap(picture);
}
