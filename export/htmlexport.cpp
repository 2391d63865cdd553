#include "export/htmlexport.h"

#include "images/dibsection.h"
#include "images/jpegwriter.h"
#include "images/panebatch.h"
#include "model/numbers.h"
#include "model/prompts.h"
#include "model/runtimeerror.h"

#include <QFileInfo>

ExportTarget ExportTargetOf(const QString& path) {
    const QString title = QFileInfo(path).fileName();
    ExportTarget target;
    target.Path = path;
    target.Folder = path.left(path.size() - title.size());
    target.Stem = title.size() > 4 ? title.left(title.size() - 4) : QString();
    return target;
}

qint16 WebpageCount(qint16 boardCount, qint16 gridSide, int gridIndex) {
    const qint16 total = Mul16(boardCount, Mul16(gridSide, gridSide));
    const int g = PageGridSide(gridIndex);
    const qint16 per = Mul16(g, g);
    if (per >= total) return 1;
    return Add16(total / per, total % per != 0 ? 1 : 0);
}

QStringList ExportWebpages(const Project& project, const HtmlExportOptions& options, qint16 boardCount,
                           qint16 gridSide, const QString& folder, const QString& stem, WebpageState& state,
                           const std::function<void(const WebpageState&, const QString&)>& eachPage) {
    state.PageCount = WebpageCount(boardCount, gridSide, options.GridIndex);
    state.ImageCursor = state.TextCursor = state.TitleCursor = 0;
    // Without auto-create only page 1 is written, built afresh like every other page.
    const qint16 last = options.AutoCreate ? state.PageCount : qint16(1);
    QStringList written;
    for (qint16 page = 1; page <= last; ++page) {
        state.CurrentPage = page;
        const QString text = MakeWebpage(project, options, stem, state);
        WritePage(folder, stem, page, text);
        written << WebpagePath(folder, stem, page);
        if (eachPage) eachPage(state, text);
    }
    return written;
}

QString PanePictureName(const Project& project, const QString& folder, int paneIndex) {
    return folder + project.Panes(paneIndex).SourceStem + QStringLiteral("-") + Format(paneIndex, "000") +
           QStringLiteral(".JPG");
}

bool ExportPanePictures(const Project& project, qint16 boardCount, qint16 gridSide, const QString& folder,
                        QImage& canvas, Prompts& prompts, QStringList* written,
                        const std::function<void(int, int)>& progress) {
    // Pictures are loaded, painted and encoded on every core; the files are written, and any
    // failure told, in pane order here, so the result is that of converting one after another.
    struct Job {
        int pane;
        QString source, target;
    };
    struct Converted {
        bool loaded = false, encoded = false;
        QImage painted;
        QByteArray jpeg;
    };
    try {
        const int last = Mul16(Mul16(gridSide, gridSide), boardCount);
        std::vector<Job> jobs;
        for (int i = 1; i <= last; ++i) {
            const Pane& pane = project.Panes(i);
            if (pane.ImageFile != kNone)
                jobs.push_back({i, pane.ImageFile, PanePictureName(project, folder, i)});
        }
        bool ok = true;
        RenderInOrder<Converted>(
            static_cast<int>(jobs.size()),
            [&jobs](int k) {
                Converted c;
                cDIBSection dib;
                c.loaded = dib.Load(jobs[static_cast<size_t>(k)].source, nullptr);
                if (!c.loaded) return c;
                // The canvas is never shown; it ends holding the last picture, so only that one
                // needs painting.
                if (k + 1 == static_cast<int>(jobs.size())) {
                    c.painted = QImage(dib.dib_width(), dib.dib_height(), QImage::Format_RGB32);
                    dib.PaintPicture(&c.painted, 0, 0, -1, -1, 0, 0, RasterOp::SrcCopy);
                }
                c.encoded = EncodeJPG(dib, c.jpeg);
                return c;
            },
            [&](int k, Converted& c) {
                const Job& job = jobs[static_cast<size_t>(k)];
                if (progress) progress(job.pane, last);
                if (!c.loaded) {
                    // Loading again here is what tells the user, once, on this thread.
                    cDIBSection dib;
                    dib.Load(job.source, &prompts);
                    return ok = false;
                }
                if (!c.painted.isNull()) canvas = c.painted;
                bool saved = c.encoded;
                try {
                    if (saved) WriteJpegFile(c.jpeg, job.target);
                } catch (const RunTimeError&) {
                    saved = false;
                }
                if (!saved) {
                    prompts.Message(kImageSaveFailed, MsgIcon::Exclamation, kHtmlOutputTitle);
                    return ok = false;
                }
                if (written) *written << job.target;
                return true;
            });
        return ok;
    } catch (const RunTimeError&) {
        prompts.Message(kSystemFailed, MsgIcon::Critical, kHtmlOutputTitle);
        return false;
    }
}
