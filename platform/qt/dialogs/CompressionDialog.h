#pragma once

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialog>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QSlider>
#include <thread>

#include "platform/EditableMovie.h"
#include "platform/MovieLibrary.h"
#include "platform/Picture.h"

/// A dialog in which the user chooses how the frames of a movie are encoded. It shows `testImage`, encoded
/// and decoded with the chosen settings, and the estimated size of the movie. A worker computes both, so the
/// dialog never blocks. OK is disabled while the codec can't encode frames of the image's size.
class CompressionDialog final : public QDialog {
  public:
    /// `testImage` must not be drawn on while the dialog lives.
    CompressionDialog(QWidget* parent, const Ref<Picture>& testImage, const MoviePlan& plan,
                      const CompressionSettings& proposal);

    CompressionSettings Settings() const;

  private:
    QLayout* MakePreviewSide();
    QLayout* MakeSettingsSide();
    const CodecChoice& Codec() const;
    double FrameRate() const;
    void ShowFrameRate(double rate);
    void ShowCodec();
    void Encode();
    void EncodeSample(const CompressionSettings& settings, const std::stop_token& stop);
    std::optional<double> BytesPerSecond(const CompressionSettings& settings, const std::stop_token& stop) const;
    void ShowPreview();

    const Ref<Picture> testImage_;
    const MoviePlan plan_;
    const QSize frameSize_;
    const double proposedRate_;
    const std::vector<CodecChoice> codecs_ = MovieLibrary::Installed().Codecs();

    QComboBox codec_;
    QSlider quality_{Qt::Horizontal};
    QWidget qualityEnds_;
    QLineEdit frameRate_;
    QLabel size_;
    QLabel note_;
    QDialogButtonBox buttons_{QDialogButtonBox::Ok | QDialogButtonBox::Cancel};
    QScrollArea previewArea_;
    QLabel preview_;  // declared after the area, which would otherwise delete it
    QCheckBox isActualSize_;
    QImage rendered_;

    std::jthread worker_;  // the last member, so that it ends before the others are destroyed
};
