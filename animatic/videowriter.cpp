#include "animatic/videowriter.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/opt.h>
#include <libswscale/swscale.h>
}

namespace {
QString ffmpegText(int code) {
    char text[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(code, text, sizeof text);
    return QString::fromUtf8(text);
}

void check(int code, const char* doing) {
    if (code < 0)
        throw AnimaticError(QStringLiteral("%1: %2").arg(QString::fromLatin1(doing), ffmpegText(code)));
}

class VideoSink : public FrameSink {
public:
    explicit VideoSink(int fps) : fps_(fps) {}

    // Apart from the constructor, so that what a failure leaves behind is freed by the destructor.
    void open(const QString& path, AnimaticFormat format, QSize size) {
        // Failures come back as errors; FFmpeg's own remarks would only clutter the terminal.
        av_log_set_level(AV_LOG_ERROR);
        const QByteArray file = path.toLocal8Bit();
        check(avformat_alloc_output_context2(
                  &output_, nullptr, format == AnimaticFormat::Mp4 ? "mp4" : "webm", file.constData()),
              "cannot start the video file");
        const AVCodec* codec = nullptr;
        if (format == AnimaticFormat::Mp4) {
            codec = avcodec_find_encoder_by_name("libx264");
        } else {
            codec = avcodec_find_encoder_by_name("libvpx-vp9");
            if (!codec) codec = avcodec_find_encoder_by_name("libvpx");
        }
        if (!codec)
            throw AnimaticError(format == AnimaticFormat::Mp4
                                    ? QStringLiteral("no H.264 encoder (libx264) is installed")
                                    : QStringLiteral("no VP9 or VP8 encoder is installed"));
        encoder_ = avcodec_alloc_context3(codec);
        encoder_->width = size.width();
        encoder_->height = size.height();
        encoder_->time_base = AVRational{1, fps_};
        encoder_->framerate = AVRational{fps_, 1};
        encoder_->pix_fmt = AV_PIX_FMT_YUV420P;
        encoder_->gop_size = 10 * fps_; // a key frame at least every ten seconds, for seeking
        encoder_->color_range = AVCOL_RANGE_MPEG;
        encoder_->colorspace = AVCOL_SPC_BT709;
        encoder_->color_primaries = AVCOL_PRI_BT709;
        encoder_->color_trc = AVCOL_TRC_BT709;
        if (output_->oformat->flags & AVFMT_GLOBALHEADER) encoder_->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
        if (format == AnimaticFormat::Mp4) {
            av_opt_set(encoder_->priv_data, "preset", kH264Preset, 0);
            av_opt_set(encoder_->priv_data, "crf", kH264Crf, 0);
        } else {
            av_opt_set(encoder_->priv_data, "deadline", "good", 0);
            av_opt_set_int(encoder_->priv_data, "cpu-used", 5, 0);
            av_opt_set_int(encoder_->priv_data, "row-mt", 1, 0);
            av_opt_set_int(encoder_->priv_data, "crf", 32, 0);
            encoder_->bit_rate = 0;
        }
        check(avcodec_open2(encoder_, codec, nullptr), "cannot start the encoder");

        stream_ = avformat_new_stream(output_, nullptr);
        if (!stream_) throw AnimaticError(QStringLiteral("cannot add the video stream"));
        stream_->time_base = encoder_->time_base;
        check(avcodec_parameters_from_context(stream_->codecpar, encoder_), "cannot set up the video stream");
        check(avio_open(&output_->pb, file.constData(), AVIO_FLAG_WRITE), "cannot write the video file");
        AVDictionary* muxing = nullptr;
        // The index first, so that a browser plays while it downloads.
        if (format == AnimaticFormat::Mp4) av_dict_set(&muxing, "movflags", "+faststart", 0);
        const int written = avformat_write_header(output_, &muxing);
        av_dict_free(&muxing);
        check(written, "cannot write the video file");

        converter_ = sws_getContext(size.width(), size.height(), AV_PIX_FMT_BGR0, size.width(), size.height(),
                                    AV_PIX_FMT_YUV420P, SWS_BICUBIC, nullptr, nullptr, nullptr);
        if (!converter_) throw AnimaticError(QStringLiteral("cannot convert pictures for the video"));
        const int* bt709 = sws_getCoefficients(SWS_CS_ITU709);
        sws_setColorspaceDetails(converter_, bt709, 1, bt709, 0, 0, 1 << 16, 1 << 16);
        frame_ = av_frame_alloc();
        frame_->format = encoder_->pix_fmt;
        frame_->width = size.width();
        frame_->height = size.height();
        check(av_frame_get_buffer(frame_, 0), "out of memory for a video frame");
        packet_ = av_packet_alloc();
    }

    ~VideoSink() override {
        av_packet_free(&packet_);
        av_frame_free(&frame_);
        sws_freeContext(converter_);
        avcodec_free_context(&encoder_);
        if (output_ && output_->pb) avio_closep(&output_->pb);
        avformat_free_context(output_);
    }

    int Rate() const override { return fps_; }

    void Write(const QImage& picture, qint64 ticks) override {
        // The encoder may still hold the last picture's buffer; then this gives the frame a new one.
        check(av_frame_make_writable(frame_), "out of memory for a video frame");
        const uint8_t* source[1] = {picture.constBits()};
        const int stride[1] = {static_cast<int>(picture.bytesPerLine())};
        sws_scale(converter_, source, stride, 0, picture.height(), frame_->data, frame_->linesize);
        for (qint64 i = 0; i < ticks; ++i) {
            frame_->pts = next_++;
            // A key frame where the picture changes: cuts stay sharp and seeking lands on panes.
            frame_->pict_type = i == 0 ? AV_PICTURE_TYPE_I : AV_PICTURE_TYPE_NONE;
            check(avcodec_send_frame(encoder_, frame_), "cannot encode a frame");
            drain();
        }
    }

    void Finish() override {
        check(avcodec_send_frame(encoder_, nullptr), "cannot finish the video");
        drain();
        check(av_write_trailer(output_), "cannot finish the video file");
        check(avio_closep(&output_->pb), "cannot close the video file");
    }

private:
    void drain() {
        for (;;) {
            const int got = avcodec_receive_packet(encoder_, packet_);
            if (got == AVERROR(EAGAIN) || got == AVERROR_EOF) return;
            check(got, "cannot encode a frame");
            // Every frame lasts one tick; said outright, the last one counts in the file's length too.
            packet_->duration = 1;
            av_packet_rescale_ts(packet_, encoder_->time_base, stream_->time_base);
            packet_->stream_index = stream_->index;
            check(av_interleaved_write_frame(output_, packet_), "cannot write the video file");
        }
    }

    int fps_;
    qint64 next_ = 0;
    AVFormatContext* output_ = nullptr;
    AVCodecContext* encoder_ = nullptr;
    AVStream* stream_ = nullptr;
    SwsContext* converter_ = nullptr;
    AVFrame* frame_ = nullptr;
    AVPacket* packet_ = nullptr;
};
} // namespace

std::unique_ptr<FrameSink> OpenVideo(const QString& path, AnimaticFormat format, QSize size, int fps) {
    auto sink = std::make_unique<VideoSink>(fps);
    sink->open(path, format, size);
    return sink;
}
