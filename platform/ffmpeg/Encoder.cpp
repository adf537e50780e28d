#include "platform/ffmpeg/Encoder.h"

#include <cmath>
#include <utility>

#include "platform/ffmpeg/Codecs.h"

extern "C" {
#include <libavutil/dict.h>
#include <libavutil/opt.h>
}

namespace {

constexpr const char* kEncoding = "encoding";

/// Two at most, a bound on the frames that are held in memory at a time. Of a small frame it would take longer to share
/// the work than to do it.
int Threads(int width, int height) {
    constexpr int kSmall = 640 * 480;
    return width * height <= kSmall ? 1 : 2;
}

/// The options with which an encoder is opened.
class Options {
  public:
    explicit Options(const char* text) { av_dict_parse_string(&entries_, text, "=", ",", 0); }
    ~Options() { av_dict_free(&entries_); }
    Options(const Options&) = delete;
    Options& operator=(const Options&) = delete;

    AVDictionary** Entries() { return &entries_; }

  private:
    AVDictionary* entries_ = nullptr;
};

void SetQuality(AVCodecContext& context, const QualityScale& scale, int quality) {
    const double part = quality / 100.0;
    if (scale.unit == QualityScale::Unit::RateFactor) {
        av_opt_set_double(context.priv_data, "crf", std::lerp(scale.least, scale.best, part), 0);
    }
    if (scale.unit == QualityScale::Unit::Quantiser) {
        // Equal steps of quality are equal ratios of the quantiser.
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
      frame_(Own(av_frame_alloc())),
      received_(Own(av_packet_alloc())),
      packet_(Own(av_packet_alloc())) {
    av_log_set_level(AV_LOG_QUIET);  // what an encoder has to say is of no use to whoever started the program
    const AVCodec* const encoder = avcodec_find_encoder_by_name(codec_.encoder);
    const AVRational rate = ExactRate(settings.frameRate, codec_.rateLimit);
    constexpr const char* kStep = "opening the encoder";
    Check(!encoder ? AVERROR_ENCODER_NOT_FOUND : IsUsable(rate) ? 0 : AVERROR(EINVAL), kStep);
    context_ = Own(avcodec_alloc_context3(encoder));
    context_->width = width;
    context_->height = height;
    context_->pix_fmt = FormatFor(codec_, width, height);
    context_->framerate = rate;
    context_->time_base = av_inv_q(rate);
    context_->gop_size = codec_.keyFrameDistance;
    context_->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;  // the container keeps the codec's headers, not each key frame
    context_->thread_count = Threads(width, height);
    SetColours(*context_, codec_.colours);
    SetQuality(*context_, codec_.quality, settings.quality);
    Options options(codec_.options);
    Check(avcodec_open2(context_.get(), encoder, options.Entries()), kStep);
    context_->codec_tag = codec_.tag;  // some encoders put one there that isn't QuickTime's
}

void Encoder::Write(const AVFrame& frame) {
    av_frame_unref(frame_.get());
    Check(av_frame_ref(frame_.get(), &frame), kEncoding);
    if (codec_.isIntraOnly) copies_.push_back(1);
    Send();
}

void Encoder::Repeat() {
    if (!codec_.isIntraOnly) return Send();
    if (copies_.empty()) return Deliver();
    ++copies_.back();
}

void Encoder::Finish() {
    Check(avcodec_send_frame(context_.get(), nullptr), kEncoding);
    Receive();
}

void Encoder::Send() {
    frame_->pts = framesSent_++;
    frame_->quality = context_->global_quality;  // a fixed quantiser is looked for here
    Check(avcodec_send_frame(context_.get(), frame_.get()), kEncoding);
    Receive();
}

void Encoder::Receive() {
    for (;;) {
        const int result = avcodec_receive_packet(context_.get(), received_.get());
        if (result == AVERROR(EAGAIN) || result == AVERROR_EOF) return;
        Check(result, kEncoding);
        av_packet_unref(packet_.get());
        av_packet_move_ref(packet_.get(), received_.get());
        DeliverCopies();
    }
}

void Encoder::DeliverCopies() {
    if (!codec_.isIntraOnly) return Deliver();
    for (int copies = std::exchange(copies_.front(), 0); copies > 0; --copies) {
        Deliver();
    }
    copies_.pop_front();
}

void Encoder::Deliver() {
    if (codec_.isIntraOnly) packet_->pts = packet_->dts = packetsDelivered_++;
    packet_->duration = 1;
    sink_(*packet_);
}
