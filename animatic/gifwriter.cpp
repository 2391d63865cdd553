#include "animatic/gifwriter.h"

#include <QFile>
#include <gif_lib.h>
#include <vector>

namespace {
int writeBytes(GifFileType* gif, const GifByteType* bytes, int length) {
    auto* file = static_cast<QFile*>(gif->UserData);
    return static_cast<int>(file->write(reinterpret_cast<const char*>(bytes), length));
}

class GifSink : public FrameSink {
public:
    explicit GifSink(QSize size) : size_(size) {}

    void open(const QString& path) {
        file_.setFileName(path);
        if (!file_.open(QIODevice::WriteOnly))
            throw AnimaticError(QStringLiteral("cannot write %1: %2").arg(path, file_.errorString()));
        int error = 0;
        gif_ = EGifOpen(&file_, writeBytes, &error);
        if (!gif_) fail(error);
        EGifSetGifVersion(gif_, true);
        // No global palette: every picture brings its own.
        if (EGifPutScreenDesc(gif_, size_.width(), size_.height(), 8, 0, nullptr) == GIF_ERROR) fail();
        // The application extension that makes players loop (a count of 0: for ever).
        static const GifByteType netscape[] = "NETSCAPE2.0";
        static const GifByteType loop[] = {1, 0, 0};
        if (EGifPutExtensionLeader(gif_, APPLICATION_EXT_FUNC_CODE) == GIF_ERROR ||
            EGifPutExtensionBlock(gif_, 11, netscape) == GIF_ERROR ||
            EGifPutExtensionBlock(gif_, 3, loop) == GIF_ERROR || EGifPutExtensionTrailer(gif_) == GIF_ERROR)
            fail();
    }

    ~GifSink() override {
        if (gif_) EGifCloseFile(gif_, nullptr);
    }

    int Rate() const override { return 100; }

    void Write(const QImage& picture, qint64 ticks) override {
        const int w = size_.width(), h = size_.height();
        const size_t count = static_cast<size_t>(w) * h;
        std::vector<GifByteType> red(count), green(count), blue(count), indices(count);
        for (int y = 0; y < h; ++y) {
            const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
            for (int x = 0; x < w; ++x) {
                const size_t at = static_cast<size_t>(y) * w + x;
                red[at] = static_cast<GifByteType>(qRed(line[x]));
                green[at] = static_cast<GifByteType>(qGreen(line[x]));
                blue[at] = static_cast<GifByteType>(qBlue(line[x]));
            }
        }
        int colours = 256;
        GifColorType palette[256] = {};
        if (GifQuantizeBuffer(static_cast<unsigned>(w), static_cast<unsigned>(h), &colours, red.data(),
                              green.data(), blue.data(), indices.data(), palette) == GIF_ERROR)
            throw AnimaticError(QStringLiteral("cannot choose the colours of a GIF picture"));
        ColorMapObject* map = GifMakeMapObject(256, palette);
        if (!map) throw AnimaticError(QStringLiteral("out of memory for a GIF palette"));

        // A delay is at most 655.35 seconds; a longer pane repeats its picture.
        bool ok = true;
        for (qint64 left = ticks; ok && left > 0; left -= 65535) {
            GraphicsControlBlock control{DISPOSE_DO_NOT, false, static_cast<int>(qMin<qint64>(left, 65535)),
                                         NO_TRANSPARENT_COLOR};
            GifByteType extension[4];
            EGifGCBToExtension(&control, extension);
            ok = EGifPutExtension(gif_, GRAPHICS_EXT_FUNC_CODE, 4, extension) != GIF_ERROR &&
                 EGifPutImageDesc(gif_, 0, 0, w, h, false, map) != GIF_ERROR &&
                 EGifPutLine(gif_, indices.data(), static_cast<int>(count)) != GIF_ERROR;
        }
        GifFreeMapObject(map);
        if (!ok) fail();
    }

    void Finish() override {
        int error = 0;
        GifFileType* gif = gif_;
        gif_ = nullptr;
        if (EGifCloseFile(gif, &error) == GIF_ERROR) fail(error);
        if (!file_.flush() || file_.error() != QFileDevice::NoError)
            throw AnimaticError(QStringLiteral("cannot write the GIF file: ") + file_.errorString());
        file_.close();
    }

private:
    [[noreturn]] void fail(int error = 0) {
        if (error == 0 && gif_) error = gif_->Error;
        if (file_.error() != QFileDevice::NoError)
            throw AnimaticError(QStringLiteral("cannot write the GIF file: ") + file_.errorString());
        throw AnimaticError(QStringLiteral("cannot write the GIF file: ") +
                            QString::fromUtf8(GifErrorString(error)));
    }

    QSize size_;
    QFile file_;
    GifFileType* gif_ = nullptr;
};
} // namespace

std::unique_ptr<FrameSink> OpenGif(const QString& path, QSize size) {
    auto sink = std::make_unique<GifSink>(size);
    sink->open(path);
    return sink;
}
