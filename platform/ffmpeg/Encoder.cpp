#include "platform/ffmpeg/Encoder.h"

#include <cmath>

namespace {

void SetQuality(AVCodecContext& context, const QualityScale& scale, int quality) {
    const double part = quality / 100.0;
    if (scale.unit == QualityScale::Unit::RateFactor)
        av_opt_set_double(context.priv_data, "crf", std::lerp(scale.least, scale.best, part), 0);
    if (scale.unit == QualityScale::Unit::Quantiser) {
        // Equal steps of quality correspond to equal ratios of quantisers.
        const double quantiser = scale.least * std::pow(scale.best / scale.least, part);
        context.flags |= AV_CODEC_FLAG_QSCALE;
        context.qmin = 1;
        context.global_quality = static_cast<int>(std::lround(FF_QP2LAMBDA * quantiser));
    }
}

void SetColours(AVCodecContext& context, const ColourCoding& colours) {
    if (colours.matrix == AVCOL_SPC_RGB) return;
    context.color_range = colours.range;
    context.colorspace = colours.matrix;
    context.color_primaries = AVCOL_PRI_BT709;
    context.color_trc = AVCOL_TRC_BT709;
}

}  // namespace

Encoder::Encoder(const CompressionSettings& settings, int width, int height, Sink sink)
    : codec_(FindCodec(settings.codec)),
      sink_(std::move(sink)),
      received_(Own(av_packet_alloc())),
      packet_(Own(av_packet_alloc())) {
    constexpr const char* kStep = "opening the encoder";
    constexpr int kSmallFrame = 640 * 480;  // up to this size, a second thread costs more time than it saves
    const AVCodec* const encoder = avcodec_find_encoder_by_name(codec_.encoder);
    Require(encoder != nullptr, AVERROR_ENCODER_NOT_FOUND, kStep);
    context_ = Own(avcodec_alloc_context3(encoder));
    context_->width = width;
    context_->height = height;
    context_->pix_fmt = codec_.LayoutFor(width, height).format;
    context_->thread_count = width * height <= kSmallFrame ? 1 : 2;  // each thread holds frames in memory
    context_->framerate = ExactRate(settings.frameRate, codec_.rateLimit);
    context_->time_base = av_inv_q(context_->framerate);
    context_->gop_size = codec_.KeyFrameDistance(settings.frameRate);
    context_->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;  // write the codec's header to the container only
    SetColours(*context_, codec_.layout.colours);
    SetQuality(*context_, codec_.quality, settings.quality);
    AVDictionary* options = nullptr;
    av_dict_parse_string(&options, codec_.options, "=", ",", 0);
    const int result = avcodec_open2(context_.get(), encoder, &options);
    av_dict_free(&options);
    Check(result, kStep);
    context_->codec_tag = codec_.tag;  // some encoders set a tag that isn't QuickTime's
}

void Encoder::Write(NextFrame next) {
    auto* const frame = std::get_if<Owned<AVFrame>>(&next);
    if (!frame && codec_.IsIntraOnly()) {
        if (copies_.empty()) return Emit();
        ++copies_.back();
        return;
    }
    if (frame) frame_ = std::move(*frame);
    frame_->pts = framesSent_++;
    frame_->quality = context_->global_quality;  // encoders read a fixed quantiser from the frame
    copies_.push_back(1);
    Send(frame_.get());
}

void Encoder::Send(const AVFrame* frame) {
    constexpr const char* kStep = "encoding";
    Check(avcodec_send_frame(context_.get(), frame), kStep);
    for (;;) {
        const int result = avcodec_receive_packet(context_.get(), received_.get());
        if (result == AVERROR(EAGAIN) || result == AVERROR_EOF) return;
        Check(result, kStep);
        std::swap(packet_, received_);
        for (int copies = copies_.front(); copies > 0; --copies)
            Emit();
        copies_.pop_front();
    }
}

void Encoder::Emit() {
    packet_->pts = packetsEmitted_++;
    packet_->dts = packet_->pts;
    packet_->duration = 1;
    sink_(*packet_);
}

SizeSupport SupportOf(MovieCodec codec, int width, int height) {
    const Encoder opened({.codec = codec}, width, height, [](const AVPacket&) {});
    const Codec& row = FindCodec(codec);
    return row.IsOtherSize(width, height) ? row.otherSizes.support : SizeSupport::Full;
}
