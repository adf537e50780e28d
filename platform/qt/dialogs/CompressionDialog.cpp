#include "platform/qt/dialogs/CompressionDialog.h"

#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QHBoxLayout>
#include <algorithm>

#include "platform/Text.h"

namespace {

constexpr QSize kPreviewSize(320, 240);
// The rates that can be chosen: from a frame a minute on.
constexpr double kLowestRate = 0.016666666666666;
constexpr double kHighestRate = 1000;

QLabel* Label(const QString& text, QWidget& field) {
    auto* label = new QLabel(text);
    label->setBuddy(&field);
    return label;
}

bool IsLarge(QSize frame) { return frame.boundedTo(kPreviewSize) != frame; }

QString SizeText(double bytesPerMinute) {
    constexpr double kMegabyte = 1024 * 1024;
    if (bytesPerMinute >= kMegabyte) {
        return QString::fromStdString("About " + Format(bytesPerMinute / kMegabyte, "###,##0.0") + " MB a minute");
    }
    return QString::fromStdString("About " + Format(bytesPerMinute / 1024, "###,##0") + " KB a minute");
}

}  // namespace

CompressionDialog::CompressionDialog(QWidget* parent, const Ref<Picture>& testImage,
                                     const CompressionSettings& proposal)
    : QDialog(parent),
      frameSize_(testImage->Width(), testImage->Height()),
      proposedRate_(proposal.frameRate),
      encoder_(*this, testImage, [this](const auto& sample) { ShowSample(sample); }) {
    setWindowTitle(QStringLiteral("Compression Settings"));
    auto* sides = new QHBoxLayout(this);
    sides->addWidget(MakePreviewSide());
    sides->addWidget(MakeSettingsSide());
    ShowSettings(proposal);
    connect(&codec_, &QComboBox::currentIndexChanged, this, [this] { Encode(); });
    connect(&quality_, &QSlider::valueChanged, this, [this] { Encode(); });
    connect(&frameRate_, &QLineEdit::textChanged, this, [this] { Encode(); });
    connect(&frameRate_, &QLineEdit::editingFinished, this, [this] { ShowFrameRate(FrameRate()); });
    connect(&isActualSize_, &QCheckBox::toggled, this, [this] {
        ShowPreview();
        ShowMiddle();
    });
    Encode();
}

QWidget* CompressionDialog::MakePreviewSide() {
    auto* side = new QWidget;
    auto* rows = new QVBoxLayout(side);
    rows->setContentsMargins(0, 0, 0, 0);
    preview_.setAlignment(Qt::AlignCenter);
    previewArea_.setWidget(&preview_);
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
    rows->addStretch();
    for (const CodecChoice& codec : codecs_)
        codec_.addItem(QString::fromStdString(codec.name));
    form->addRow(Label(QStringLiteral("Compression &type:"), codec_), &codec_);
    quality_.setRange(0, 100);
    quality_.setPageStep(25);
    quality_.setTickInterval(25);
    quality_.setTickPosition(QSlider::TicksBelow);
    form->addRow(Label(QStringLiteral("&Quality:"), quality_), &quality_);
    auto* ends = new QHBoxLayout(&qualityEnds_);
    ends->setContentsMargins(0, 0, 0, 0);
    ends->addWidget(new QLabel(QStringLiteral("Least")));
    ends->addStretch();
    ends->addWidget(new QLabel(QStringLiteral("Best")));
    form->addRow(QString(), &qualityEnds_);
    form->addRow(Label(QStringLiteral("&Frames per second:"), frameRate_), &frameRate_);
    size_.setMinimumWidth(size_.fontMetrics().horizontalAdvance(SizeText(1e12)));
    form->addRow(QStringLiteral("Movie size:"), &size_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    rows->addWidget(buttons);
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

CompressionSettings CompressionDialog::Settings() const {
    return {codecs_.at(static_cast<std::size_t>(codec_.currentIndex())).codec, quality_.value(), FrameRate()};
}

/// The rate in the field, held within what can be chosen or was proposed; the proposed one where none stands there.
double CompressionDialog::FrameRate() const {
    const double rate = Val(frameRate_.text().toStdString());
    return rate > 0 ? std::clamp(rate, kLowestRate, std::max(kHighestRate, proposedRate_)) : proposedRate_;
}

bool CompressionDialog::HasQuality() const {
    return codecs_.at(static_cast<std::size_t>(codec_.currentIndex())).hasQuality;
}

void CompressionDialog::Encode() {
    quality_.setEnabled(HasQuality());
    qualityEnds_.setEnabled(HasQuality());
    encoder_.Encode(Settings());
}

void CompressionDialog::ShowSample(const std::optional<EncodedSample>& sample) {
    constexpr double kSecondsPerMinute = 60;
    rendered_ = {};
    size_.clear();
    if (sample) {
        const RgbImage& frame = sample->firstFrame;
        rendered_ =
            QImage(frame.bytes.data(), frame.width, frame.height, qsizetype{3} * frame.width, QImage::Format_RGB888)
                .copy();
        size_.setText(SizeText(sample->bytesPerFrame * FrameRate() * kSecondsPerMinute));
    }
    ShowPreview();
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
