// The benchmark's measuring tool: every figure comes from one run of one command, so that the
// driver (bench/run) can repeat it and take medians.
//
//   kelvrin_bench corpus DIR [--frames N]       make the corpus
//   kelvrin_bench import DIR [--cell N]         the mass import of DIR/Frame001.jpg onwards
//   kelvrin_bench decode-floor DIR [--cell N] [--count N] [--parallel]
//                                               libjpeg-turbo decode only, one thread (or every core)
//   kelvrin_bench relayout DIR [--cell N]       1000 panes re-scaled to a new cell
//   kelvrin_bench encode-floor DIR [--cell N] [--parallel]
//                                               TurboJPEG compression of 1000 cell-size buffers
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
//   kelvrin_bench draw-board DIR [--grid N]     the main window redrawing a full board of working
//                                               pictures, the median of many draws
//   kelvrin_bench startup DIR                   process start to the first board on the screen
//
// Each measuring command prints "seconds <s>" and "peak-rss <KiB>".
#include "animatic/animatic.h"
#include "corpus.h"
#include "dialogs/qtprompts.h"
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
#include "model/workfolder.h"
#include "stage/application.h"
#include "stage/frmmain.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <map>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <turbojpeg.h>
#include <unistd.h>

extern char** environ;

namespace {
struct Args {
    QString command, dir, out;
    int frames = 300, cell = 231, count = 0, grid = 5;
    bool parallel = false;
};

// Runs work(i) for i = 0 to n - 1: one after the other, or spread over every core, each thread
// with its own state made by makeState, the same work a floor measures.
template <typename State, typename MakeState, typename Work>
void spread(bool parallel, int n, const MakeState& makeState, const Work& work) {
    const int threads = parallel ? qMax(1, QThread::idealThreadCount()) : 1;
    std::vector<std::thread> pool;
    const auto run = [&](int t) {
        State state = makeState();
        for (int i = t; i < n; i += threads)
            work(state, i);
    };
    for (int t = 1; t < threads; ++t)
        pool.emplace_back(run, t);
    run(0);
    for (std::thread& thread : pool)
        thread.join();
}

qint64 monotonicNs() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return qint64(now.tv_sec) * 1000000000 + now.tv_nsec;
}

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
    struct Decoder {
        tjhandle h = tjInitDecompress();
        std::vector<unsigned char> buffer;
        ~Decoder() { tjDestroy(h); }
    };
    QElapsedTimer t;
    t.start();
    spread<Decoder>(
        a.parallel, n, [] { return Decoder(); },
        [&](Decoder& d, int i) {
            const QByteArray& bytesIn = data[i % data.size()];
            const auto* bytes = reinterpret_cast<const unsigned char*>(bytesIn.constData());
            const auto size = static_cast<unsigned long>(bytesIn.size());
            int w = 0, hgt = 0, ss = 0, cs = 0;
            tjDecompressHeader3(d.h, bytes, size, &w, &hgt, &ss, &cs);
            const JpegScale s = ChooseJpegScale(QSize(w, hgt), QSize(a.cell, a.cell));
            d.buffer.resize(static_cast<size_t>(s.size.width()) * s.size.height() * 4);
            tjDecompress2(d.h, bytes, size, d.buffer.data(), s.size.width(), 0, s.size.height(), TJPF_BGRX,
                          0);
        });
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
    struct Encoder {
        tjhandle h = tjInitCompress();
        ~Encoder() { tjDestroy(h); }
    };
    QElapsedTimer t;
    t.start();
    spread<Encoder>(
        a.parallel, kMaxPane, [] { return Encoder(); },
        [&](Encoder& e, int i) {
            const QImage& img = pictures[static_cast<size_t>(i) % pictures.size()];
            unsigned char* out = nullptr;
            unsigned long size = 0;
            tjCompress2(e.h, img.constBits(), img.width(), static_cast<int>(img.bytesPerLine()), img.height(),
                        TJPF_BGR, &out, &size, TJSAMP_420, 75, TJFLAG_BOTTOMUP);
            tjFree(out);
        });
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

// The main window as a desktop of 1920 x 1080 shows it, the board's panes given working pictures
// of its cell size; then the board is drawn again and again as a click or a pane command draws
// it. The figure is the median draw.
int drawBoard(const Args& a) {
    QTemporaryDir dir;
    Project project;
    project.ProgramFolder = dir.path();
    project.WorkFolder = dir.filePath(QStringLiteral("MyProjects"));
    Quiet prompts;
    frmMain window(project, prompts);
    window.WorkArea = [] { return QRect(0, 0, 1920, 1050); };
    window.Form_Load();
    window.setGeometry(window.WorkArea());
    window.show();
    project.GridSide = static_cast<qint16>(a.grid);
    const QStringList files = frameFiles(a.dir);
    const int cells = a.grid * a.grid;
    assignFrames(project, files, cells);
    window.DrawCurrentBoard();
    StorePaneImages(project, 1, cells, window.CellSize, true);
    // Pictures written a moment ago cannot yet be told apart from a rewrite by their file times;
    // a board is drawn long after its pictures were written.
    QThread::msleep(2100);
    window.DrawCurrentBoard();
    std::vector<qint64> draws;
    for (int i = 0; i < 41; ++i) {
        QElapsedTimer t;
        t.start();
        window.DrawCurrentBoard();
        draws.push_back(t.nsecsElapsed());
        QCoreApplication::processEvents();
    }
    std::nth_element(draws.begin(), draws.begin() + draws.size() / 2, draws.end());
    report(draws[draws.size() / 2] / 1e9);
    std::printf("cell %d\n", CInt(window.CellSize));
    window.close();
    return 0;
}

// The child of startup: the program's start-up, as its main() runs it, that prints the moment the
// stage has been painted on the screen for the first time.
int firstBoard(const Args&) {
    KelvrinApplication::setApplicationName(QStringLiteral("kelvrin"));
    QtPrompts prompts;
    Project project;
    project.ProgramFolder = KelvrinApplication::applicationDirPath();
    const WorkFolderClaim workFolder(project.ProgramFolder);
    project.WorkFolder = workFolder.path();
    frmMain window(project, prompts);
    // The offscreen screen is smaller than any desktop the window is laid out for.
    window.WorkArea = [] { return QRect(0, 0, 1920, 1050); };
    prompts.setParent(&window);
    KelvrinApplication::setWindowIcon(window.windowIcon());
    struct FirstPaint : QObject {
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::Paint && !seen) {
                seen = true;
                // Queued, so that it runs once the paint is done and on the screen.
                QTimer::singleShot(0, [] {
                    std::printf("painted %lld\n", static_cast<long long>(monotonicNs()));
                    std::fflush(stdout);
                    QCoreApplication::quit();
                });
            }
            return false;
        }
        bool seen = false;
    } firstPaint;
    window.picStage->installEventFilter(&firstPaint);
    window.Form_Load();
    window.setGeometry(window.WorkArea());
    window.showMaximized();
    KelvrinApplication::exec();
    DeleteWorkFolder(project.WorkFolder);
    return 0;
}

// Starts this tool as first-board and times it from the start of the process to its first board.
int startup(const Args&) {
    int out[2];
    if (pipe(out) != 0) return 1;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, out[0]);
    const QByteArray self = QFile::encodeName(QCoreApplication::applicationFilePath());
    char first[] = "first-board";
    char dot[] = ".";
    char* argv[] = {const_cast<char*>(self.constData()), first, dot, nullptr};
    pid_t child = 0;
    const qint64 start = monotonicNs();
    const int failed = posix_spawn(&child, self.constData(), &actions, nullptr, argv, environ);
    posix_spawn_file_actions_destroy(&actions);
    close(out[1]);
    if (failed) return 1;
    QByteArray said;
    char buffer[256];
    for (ssize_t n; (n = read(out[0], buffer, sizeof buffer)) > 0;)
        said.append(buffer, n);
    close(out[0]);
    int status = 0;
    waitpid(child, &status, 0);
    const qsizetype at = said.indexOf("painted ");
    if (at < 0) return 1;
    const qint64 painted = said.mid(at + 8).trimmed().toLongLong();
    report((painted - start) / 1e9);
    return 0;
}
} // namespace

int main(int argc, char** argv) {
    // No display is needed: the offscreen platform serves the pictures and fonts.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    KelvrinApplication app(argc, argv);
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
        else if (s == QLatin1String("--grid"))
            a.grid = next();
        else if (s == QLatin1String("--parallel"))
            a.parallel = true;
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
        {QStringLiteral("pdf"), pdf},
        {QStringLiteral("animatic"), animatic},
        {QStringLiteral("draw-board"), drawBoard},
        {QStringLiteral("startup"), startup},
        {QStringLiteral("first-board"), firstBoard}};
    const auto it = commands.find(a.command);
    if (it == commands.end() || a.dir.isEmpty()) {
        std::fprintf(stderr, "usage: kelvrin_bench COMMAND DIR [OUT] [options] (see bench/bench.cpp)\n");
        return 2;
    }
    return it->second(a);
}
