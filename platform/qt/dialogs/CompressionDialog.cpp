#include "platform/qt/dialogs/CompressionDialog.h"

#include <QtWidgets/QFormLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QPushButton>
#include <algorithm>

#include "platform/Text.h"

namespace {

constexpr QSize kPreviewSize(320, 240);
constexpr double kHighestRate = 1000;

bool IsLarge(QSize frame) { return frame.boundedTo(kPreviewSize) != frame; }

QString SizeText(double bytesPerMinute) {
    constexpr double kMegabyte = 1024 * 1024;
    if (bytesPerMinute >= kMegabyte) {
        return QString::fromStdString("About " + Format(bytesPerMinute / kMegabyte, "###,##0.0") + " MB a minute");
    }
    return QString::fromStdString("About " + Format(bytesPerMinute / 1024, "###,##0") + " KB a minute");
}

QString Note(const QString& codec, SizeSupport support) {
    switch (support) {
        case SizeSupport::Refused:
            return codec + QStringLiteral(" can't make frames of this size.");
        case SizeSupport::RarelyPlayed:
            return QStringLiteral("Many players can't show ") + codec + QStringLiteral(" of an odd width or height.");
        case SizeSupport::Full:
            break;
    }
    return {};
}

}  // namespace

CompressionDialog::CompressionDialog(QWidget* parent, const Ref<Picture>& testImage, const MoviePlan& plan,
                                     const CompressionSettings& proposal)
    : QDialog(parent),
      frameSize_(testImage->Width(), testImage->Height()),
      proposedRate_(proposal.frameRate),
      encoder_(*this, testImage, plan,
               {[this](const auto& image) { ShowImage(image); }, [this](auto size) { ShowSize(size); }}) {
    setWindowTitle(QStringLiteral("Compression Settings"));
    auto* sides = new QHBoxLayout(this);
    sides->addWidget(MakePreviewSide());
    sides->addWidget(MakeSettingsSide());
    ShowSettings(proposal);
    connect(&codec_, &QComboBox::currentIndexChanged, this, [this] { ShowCodec(); });
    connect(&quality_, &QSlider::valueChanged, this, [this] { Encode(); });
    connect(&frameRate_, &QLineEdit::textChanged, this, [this] { Encode(); });
    connect(&frameRate_, &QLineEdit::editingFinished, this, [this] { ShowFrameRate(FrameRate()); });
    connect(&isActualSize_, &QCheckBox::toggled, this, [this] {
        previewArea_.setFocusPolicy(isActualSize_.isChecked() ? Qt::StrongFocus : Qt::NoFocus);
        ShowPreview();
        ShowMiddle();
    });
    codec_.setFocus();
    ShowCodec();
}

QWidget* CompressionDialog::MakePreviewSide() {
    auto* side = new QWidget;
    auto* rows = new QVBoxLayout(side);
    rows->setContentsMargins(0, 0, 0, 0);
    preview_.setAlignment(Qt::AlignCenter);
    previewArea_.setWidget(&preview_);
    previewArea_.setAccessibleName(QStringLiteral("Preview"));
    previewArea_.setFocusPolicy(Qt::NoFocus);  // until there is something to scroll
    previewArea_.setWidgetResizable(true);
    previewArea_.setAlignment(Qt::AlignCenter);
    previewArea_.setFixedSize(kPreviewSize + 2 * QSize(previewArea_.frameWidth(), previewArea_.frameWidth()));
    isActualSize_.setText(QStringLiteral("&Actual size"));
    isActualSize_.setVisible(IsLarge(frameSize_));
    rows->addWidget(&previewArea_);
    rows->addWidget(&isActualSize_);
    rows->addStretch();
    return side;
}

QWidget* CompressionDialog::MakeSettingsSide() {
    auto* side = new QWidget;
    auto* rows = new QVBoxLayout(side);
    rows->setContentsMargins(12, 0, 0, 0);
    auto* form = new QFormLayout;
    rows->addLayout(form);
    for (const CodecChoice& codec : codecs_)
        codec_.addItem(QString::fromStdString(codec.name));
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
    return side;
}

void CompressionDialog::ShowSettings(const CompressionSettings& settings) {
    const auto found = std::find_if(codecs_.begin(), codecs_.end(),
                                    [&](const CodecChoice& codec) { return codec.codec == settings.codec; });
    codec_.setCurrentIndex(found == codecs_.end() ? 0 : static_cast<int>(found - codecs_.begin()));
    quality_.setValue(settings.quality);
    ShowFrameRate(settings.frameRate);
}

void CompressionDialog::ShowFrameRate(double rate) { frameRate_.setText(QString::fromStdString(Str(rate))); }

CompressionSettings CompressionDialog::Settings() const { return {Codec().codec, quality_.value(), FrameRate()}; }

const CodecChoice& CompressionDialog::Codec() const {
    return codecs_.at(static_cast<std::size_t>(codec_.currentIndex()));
}

/// The rate in the field, held within what can be chosen or was proposed; the proposed one where none stands there.
double CompressionDialog::FrameRate() const {
    const double rate = Val(frameRate_.text().toStdString());
    return rate > 0 ? std::clamp(rate, kLowestFrameRate, std::max(kHighestRate, proposedRate_)) : proposedRate_;
}

void CompressionDialog::ShowCodec() {
    quality_.setEnabled(Codec().hasQuality);
    qualityEnds_.setEnabled(Codec().hasQuality);
    const SizeSupport support =
        MovieLibrary::Installed().Supports(Codec().codec, frameSize_.width(), frameSize_.height());
    note_.setText(Note(codec_.currentText(), support));
    codec_.setAccessibleDescription(note_.text());
    buttons_.button(QDialogButtonBox::Ok)->setEnabled(support != SizeSupport::Refused);
    Encode();
}

void CompressionDialog::Encode() {
    size_.setEnabled(false);  // until it is known again
    encoder_.Encode(Settings());
}

void CompressionDialog::ShowImage(const std::optional<RgbImage>& image) {
    rendered_ = {};
    if (image) {
        rendered_ =
            QImage(image->bytes.data(), image->width, image->height, qsizetype{3} * image->width, QImage::Format_RGB888)
                .copy();
    }
    ShowPreview();
}

void CompressionDialog::ShowSize(std::optional<double> bytesPerSecond) {
    constexpr double kSecondsPerMinute = 60;
    size_.setEnabled(true);
    size_.setText(bytesPerSecond ? SizeText(*bytesPerSecond * kSecondsPerMinute) : QString());
}

void CompressionDialog::ShowPreview() {
    QPixmap picture = QPixmap::fromImage(rendered_);
    if (IsLarge(picture.size()) && !isActualSize_.isChecked()) {
        const double ratio = devicePixelRatioF();
        picture =
            picture.scaled((QSizeF(kPreviewSize) * ratio).toSize(), Qt::KeepAspectRatio, Qt::SmoothTransformation);
        picture.setDevicePixelRatio(ratio);
    }
    preview_.setPixmap(picture);
}

// The clock is there; the corners are empty.
void CompressionDialog::ShowMiddle() {
    preview_.adjustSize();
    const QSize half = kPreviewSize / 2;
    previewArea_.ensureVisible(preview_.width() / 2, preview_.height() / 2, half.width(), half.height());
}
