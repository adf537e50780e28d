#pragma once

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QSlider>
#include <vector>

#include "platform/CompressionSettings.h"
#include "platform/MovieLibrary.h"
#include "platform/Picture.h"
#include "platform/qt/dialogs/SampleEncoder.h"

/// Lets the user choose how the frames of a movie are encoded. Shows `testImage` as the choice renders it, encoded and
/// decoded again, and how much space it takes; both come from a worker, so the dialog never waits for them.
class CompressionDialog final : public QDialog {
  public:
    /// The picture must not be drawn on while the dialog lives.
    CompressionDialog(QWidget* parent, const Ref<Picture>& testImage, const CompressionSettings& proposal);

    CompressionSettings Settings() const;

  private:
    QWidget* MakePreviewSide();
    QWidget* MakeSettingsSide();
    void ShowSettings(const CompressionSettings& settings);
    double FrameRate() const;
    void ShowFrameRate(double rate);
    bool HasQuality() const;
    void Encode();
    void ShowSample(const std::optional<EncodedSample>& sample);
    void ShowPreview();
    void ShowMiddle();

    const QSize frameSize_;
    const double proposedRate_;
    const std::vector<CodecChoice> codecs_ = MovieLibrary::Installed().Codecs();

    QComboBox codec_;
    QSlider quality_{Qt::Horizontal};
    QWidget qualityEnds_;
    QLineEdit frameRate_;
    QLabel size_;
    QScrollArea previewArea_;
    QLabel preview_;  // behind the area, which would take it along
    QCheckBox isActualSize_;
    QImage rendered_;

    SampleEncoder encoder_;
};
