// The benchmark's measuring tool: every figure comes from one run of one command, so that the
// driver (bench/run) can repeat it and take medians.
//
//   kelvrin_bench corpus DIR [--frames N]       make the corpus
//   kelvrin_bench import DIR [--cell N]         the mass import of DIR/Frame001.jpg onwards
//   kelvrin_bench decode-floor DIR [--cell N] [--count N]
//                                               libjpeg-turbo decode only, one thread
//   kelvrin_bench relayout DIR [--cell N]       1000 panes re-scaled to a new cell
//   kelvrin_bench encode-floor DIR [--cell N]   TurboJPEG compression of 1000 cell-size buffers
//   kelvrin_bench make-project DIR OUT [--cell N]
//                                               a 5 x 5 project of 40 boards, every pane with a
//                                               picture: OUT/work (working pictures), OUT/trip.kv1
//   kelvrin_bench save OUT                      Save Project As of that project, to a new folder
//   kelvrin_bench open OUT [--cell N]           Open Project of OUT/trip.kv1, pictures rebuilt
//   kelvrin_bench export OUT                    pages and JPEGs of the 1000 panes, to a new folder
//   kelvrin_bench undo OUT                      undo of a Clear All and of a discarding Board Setup
//                                               on that project (records and pictures, no redraw);
//                                               the slower of the two
//   kelvrin_bench pdf DIR OUT                   the contact sheet PDF of 1000 panes whose pictures
//                                               are DIR's frames, a board a page, to a new folder
//   kelvrin_bench animatic DIR OUT [--frames N] an MP4 of N panes (default 300) of DIR's frames
//                                               at 1280 x 720, 1 s a pane, 24 frames a second
//
// Each measuring command prints "seconds <s>" and "peak-rss <KiB>".
#include "animatic/animatic.h"
#include "corpus.h"
#include "export/htmlexport.h"
#include "export/htmlwords.h"
#include "export/sheetpainter.h"
#include "flows/importsequence.h"
#include "flows/projectopen.h"
#include "flows/projectsave.h"
#include "images/jpegdecode.h"
#include "images/panebatch.h"
#include "images/paneimage.h"
#include "flows/reshape.h"
#include "images/sequence.h"
#include "model/numbers.h"
#include "model/project.h"
#include "model/projectfile.h"
#include "model/prompts.h"
#include "model/undohistory.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <cstdio>
#include <functional>
#include <map>
#include <sys/resource.h>
#include <turbojpeg.h>

namespace {
struct Args {
    QString command, dir, out;
    int frames = 300, cell = 231, count = 0;
};

QStringList frameFiles(const QString& dir) {
    QStringList files;
    const QStringList patterns{QStringLiteral("*.jpg"), QStringLiteral("*.gif"), QStringLiteral("*.bmp")};
    for (const QString& name : QDir(dir).entryList(patterns, QDir::Files, QDir::Name))
        files << dir + QLatin1Char('/') + name;
    return files;
}

void report(double seconds) {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("seconds %.6f\npeak-rss %ld\n", seconds, usage.ru_maxrss);
}

// Panes 1 to n get the frames in turn, as a mass import or a project would give them.
void assignFrames(Project& project, const QStringList& files, int n) {
    for (int p = 1; p <= n; ++p) {
        Pane& pane = project.Panes(p);
        pane.SourceFile = files[(p - 1) % files.size()];
        pane.SourceStem = QStringLiteral("Frame");
    }
}

// The mass import of a numbered sequence from its first file, as the Pane menu's command runs it;
// a folder without a sequence (the mixed pictures) is loaded file by file into consecutive panes.
int import(const Args& a) {
    QTemporaryDir work;
    Project project;
    project.WorkFolder = work.path();
    const QString first = a.dir + QStringLiteral("/Frame001.jpg");
    QElapsedTimer t;
    if (QFileInfo::exists(first)) {
        const ImageSequence sequence = AnalyseSequence(first, QStringLiteral("Frame001.jpg"));
        t.start();
        const ImportOutcome outcome = ImportSequence(project, sequence, 1, static_cast<float>(a.cell));
        report(t.nsecsElapsed() / 1e9);
        std::printf("panes %d\n", outcome.NextPane - 1);
        return 0;
    }
    const QStringList files = frameFiles(a.dir);
    assignFrames(project, files, static_cast<int>(files.size()));
    t.start();
    StorePaneImages(project, 1, static_cast<int>(files.size()), static_cast<float>(a.cell), true);
    report(t.nsecsElapsed() / 1e9);
    return 0;
}

int decodeFloor(const Args& a) {
    QList<QByteArray> data;
    for (const QString& f : frameFiles(a.dir)) {
        QFile file(f);
        file.open(QIODevice::ReadOnly);
        data << file.readAll();
    }
    const int n = a.count > 0 ? a.count : static_cast<int>(data.size());
    QElapsedTimer t;
    t.start();
    tjhandle h = tjInitDecompress();
    std::vector<unsigned char> buffer;
    for (int i = 0; i < n; ++i) {
        const QByteArray& d = data[i % data.size()];
        const auto* bytes = reinterpret_cast<const unsigned char*>(d.constData());
        int w = 0, hgt = 0, ss = 0, cs = 0;
        tjDecompressHeader3(h, bytes, static_cast<unsigned long>(d.size()), &w, &hgt, &ss, &cs);
        const JpegScale s = ChooseJpegScale(QSize(w, hgt), QSize(a.cell, a.cell));
        buffer.resize(static_cast<size_t>(s.size.width()) * s.size.height() * 4);
        tjDecompress2(h, bytes, static_cast<unsigned long>(d.size()), buffer.data(), s.size.width(), 0,
                      s.size.height(), TJPF_BGRX, 0);
    }
    tjDestroy(h);
    report(t.nsecsElapsed() / 1e9);
    return 0;
}

int relayout(const Args& a) {
    QTemporaryDir work;
    Project project;
    project.WorkFolder = work.path();
    assignFrames(project, frameFiles(a.dir), kMaxPane);
    StorePaneImages(project, 1, kMaxPane, static_cast<float>(a.cell + 20), true);
    QElapsedTimer t;
    t.start();
    StorePaneImages(project, 1, kMaxPane, static_cast<float>(a.cell), false);
    report(t.nsecsElapsed() / 1e9);
    return 0;
}

int encodeFloor(const Args& a) {
    // The same buffers an export compresses: 1000 cell-size pictures, 24-bit, bottom-up.
    const QStringList files = frameFiles(a.dir);
    std::vector<QImage> pictures;
    for (int i = 0; i < qMin<int>(files.size(), 50); ++i)
        pictures.push_back(
            RenderPaneSquare(QImage(files[i]), a.cell, 0, 0).convertToFormat(QImage::Format_BGR888));
    QElapsedTimer t;
    t.start();
    tjhandle h = tjInitCompress();
    for (int i = 0; i < kMaxPane; ++i) {
        const QImage& img = pictures[static_cast<size_t>(i) % pictures.size()];
        unsigned char* out = nullptr;
        unsigned long size = 0;
        tjCompress2(h, img.constBits(), img.width(), static_cast<int>(img.bytesPerLine()), img.height(),
                    TJPF_BGR, &out, &size, TJSAMP_420, 75, TJFLAG_BOTTOMUP);
        tjFree(out);
    }
    tjDestroy(h);
    report(t.nsecsElapsed() / 1e9);
    return 0;
}
// The 1000-pane project of make-project, back in memory with its working pictures in OUT/work.
void loadBuiltProject(Project& project, const QString& out) {
    project.WorkFolder = out + QStringLiteral("/work");
    project.GridSide = 5;
    project.BoardCount = 40;
    for (int p = 1; p <= kMaxPane; ++p) {
        Pane& pane = project.Panes(p);
        pane.SourceStem = QStringLiteral("Frame");
        pane.SourceFile = QStringLiteral("unused");
        pane.ImageFile = PaneImageName(project, p);
        pane.Text = QStringLiteral("Shot %1").arg(p);
    }
    for (int id = 101; id <= 130; ++id)
        project.HtmlWords[static_cast<size_t>(id - 100)] = LoadResString(id);
}

int makeProject(const Args& a) {
    Project project;
    project.WorkFolder = a.out + QStringLiteral("/work");
    QDir().mkpath(project.WorkFolder);
    project.GridSide = 5;
    project.BoardCount = 40;
    assignFrames(project, frameFiles(a.dir), kMaxPane);
    StorePaneImages(project, 1, kMaxPane, static_cast<float>(a.cell), true);
    SaveProjectFile(project, QStringLiteral("trip"), a.out + QStringLiteral("/trip.kv1"),
                    a.out + QLatin1Char('/'), kMaxPane, 40, 5);
    return 0;
}

// A fresh folder for every run, so that no run only replaces what the last one wrote.
QString freshFolder(const QString& out, const char* kind) {
    for (int n = 1;; ++n) {
        const QString f = out + QStringLiteral("/%1-%2").arg(QString::fromLatin1(kind)).arg(n);
        if (!QFileInfo::exists(f) && QDir().mkpath(f)) return f + QLatin1Char('/');
    }
}

int save(const Args& a) {
    Project project;
    loadBuiltProject(project, a.dir);
    const QString folder = freshFolder(a.dir, "save");
    QElapsedTimer t;
    t.start();
    SaveProjectFile(project, QStringLiteral("trip"), folder + QStringLiteral("trip.kv1"), folder, kMaxPane,
                    40, 5);
    report(t.nsecsElapsed() / 1e9);
    return 0;
}

int open(const Args& a) {
    QTemporaryDir work;
    Project project;
    project.WorkFolder = work.path();
    QElapsedTimer t;
    t.start();
    ReadProject(project, a.dir + QStringLiteral("/trip.kv1"), a.dir + QLatin1Char('/'),
                QStringLiteral("trip"));
    RebuildPaneImages(project, static_cast<float>(a.cell));
    report(t.nsecsElapsed() / 1e9);
    return 0;
}

int undo(const Args& a) {
    Project project;
    loadBuiltProject(project, a.dir);
    UndoHistory history(project);
    // What the window would show: every pane's item in the list.
    ShownState shown;
    for (int p = 1; p <= kMaxPane; ++p)
        shown.PaneItems << Format(p, "000") + QStringLiteral(". ") + project.Panes(p).Text;
    history.CaptureShown = [&shown] { return shown; };
    double slowest = 0;
    const auto timeUndo = [&](const QString& caption, const std::function<void()>& command) {
        history.Record(caption, command);
        QElapsedTimer t;
        t.start();
        history.Undo();
        slowest = qMax(slowest, t.nsecsElapsed() / 1e9);
    };
    timeUndo(QStringLiteral("Clear All"), [&] {
        for (int i = 0; i < kMaxPane; ++i)
            project.Panes(i).Text = kToUse;
    });
    timeUndo(QStringLiteral("Change Project"), [&] { ReshapePanes(project, static_cast<float>(a.cell), true); });
    report(slowest);
    return project.Panes(kMaxPane).ImageFile == kNone ? 1 : 0;
}

class Quiet : public Prompts {
public:
    void Message(const QString& text, MsgIcon, const QString&) override {
        std::fprintf(stderr, "%s\n", qPrintable(text));
    }
    QString AskOpenFile(const FileRequest&) override { return {}; }
    QString AskSaveFile(const FileRequest&) override { return {}; }
};

int exportProject(const Args& a) {
    Project project;
    loadBuiltProject(project, a.dir);
    const QString folder = freshFolder(a.dir, "export");
    Quiet prompts;
    QImage canvas;
    QElapsedTimer t;
    t.start();
    HtmlExportOptions options;
    options.GridIndex = 3;
    WebpageState state;
    ExportWebpages(project, options, 40, 5, folder, QStringLiteral("trip"), state);
    const bool ok = ExportPanePictures(project, 40, 5, folder, canvas, prompts);
    report(t.nsecsElapsed() / 1e9);
    return ok ? 0 : 1;
}
int pdf(const Args& a) {
    Project project;
    loadBuiltProject(project, a.out);
    assignFrames(project, frameFiles(a.dir), kMaxPane);
    const QString folder = freshFolder(a.out, "pdf");
    QElapsedTimer t;
    t.start();
    const SheetResult result = WriteSheetPdf(folder + QStringLiteral("sheet.pdf"), project, SheetOptions{});
    report(t.nsecsElapsed() / 1e9);
    return result.complete && result.missing.isEmpty() ? 0 : 1;
}
int animatic(const Args& a) {
    Project project;
    project.GridSide = 5;
    project.BoardCount = static_cast<qint16>((a.frames + 24) / 25);
    const QStringList files = frameFiles(a.dir);
    assignFrames(project, files, a.frames);
    for (int p = 1; p <= a.frames; ++p)
        project.Panes(p).ImageFile = project.Panes(p).SourceFile;
    AnimaticOptions options;
    options.size = QSize(1280, 720);
    options.seconds = 1;
    options.fps = 24;
    QDir().mkpath(a.out);
    QElapsedTimer t;
    t.start();
    const AnimaticResult result = WriteAnimatic(project, options, a.out + QStringLiteral("/animatic.mp4"));
    report(t.nsecsElapsed() / 1e9);
    if (!result.done) std::fprintf(stderr, "%s\n", qPrintable(result.error));
    return result.done ? 0 : 1;
}
} // namespace

int main(int argc, char** argv) {
    // No display is needed: the offscreen platform serves the pictures and fonts.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const QStringList argsIn = app.arguments().mid(1);
    Args a;
    for (int i = 0; i < argsIn.size(); ++i) {
        const QString& s = argsIn[i];
        auto next = [&] { return i + 1 < argsIn.size() ? argsIn[++i].toInt() : 0; };
        if (s == QLatin1String("--frames"))
            a.frames = next();
        else if (s == QLatin1String("--cell"))
            a.cell = next();
        else if (s == QLatin1String("--count"))
            a.count = next();
        else if (a.command.isEmpty())
            a.command = s;
        else if (a.dir.isEmpty())
            a.dir = s;
        else
            a.out = s;
    }
    const std::map<QString, std::function<int(const Args&)>> commands{
        {QStringLiteral("corpus"),
         [](const Args& x) {
             WriteCorpus(x.dir, x.frames);
             return 0;
         }},
        {QStringLiteral("import"), import},
        {QStringLiteral("decode-floor"), decodeFloor},
        {QStringLiteral("relayout"), relayout},
        {QStringLiteral("encode-floor"), encodeFloor},
        {QStringLiteral("make-project"), makeProject},
        {QStringLiteral("save"), save},
        {QStringLiteral("open"), open},
        {QStringLiteral("export"), exportProject},
        {QStringLiteral("undo"), undo},
        {QStringLiteral("pdf"), pdf}};
        {QStringLiteral("animatic"), animatic}};
    const auto it = commands.find(a.command);
    if (it == commands.end() || a.dir.isEmpty()) {
        std::fprintf(stderr, "usage: kelvrin_bench COMMAND DIR [OUT] [options] (see bench/bench.cpp)\n");
        return 2;
    }
    return it->second(a);
}
