#include "model/undohistory.h"

#include "model/runtimeerror.h"
#include "model/writewatch.h"

#include <QDir>
#include <QUndoStack>
#include <cstdio>
#include <deque>
#include <exception>
#include <set>
#include <vector>

bool ProjectSettings::operator==(const ProjectSettings& o) const {
    return GridSide == o.GridSide && BoardCount == o.BoardCount && BoardTitle == o.BoardTitle &&
           FooterText == o.FooterText && GlobalHighlightColor == o.GlobalHighlightColor &&
           MoveHighlightColor == o.MoveHighlightColor;
}

ProjectSettings SettingsOf(const Project& p) {
    return {p.GridSide,   p.BoardCount,           p.BoardTitle,
            p.FooterText, p.GlobalHighlightColor, p.MoveHighlightColor};
}

bool SamePane(const Pane& a, const Pane& b) {
    return a.Text == b.Text && a.Label == b.Label && a.Url == b.Url && a.FlipHorizontal == b.FlipHorizontal &&
           a.FlipVertical == b.FlipVertical && a.ImageFile == b.ImageFile && a.SourceFile == b.SourceFile &&
           a.SourceStem == b.SourceStem;
}

// One side of a step (before or after the command).
struct StepSide {
    std::vector<std::pair<int, Pane>> panes; // only the records that changed
    ProjectSettings settings;
    ShownState shown;
};

struct PictureChange {
    QString path;
    PictureRef before, after;
};

struct UndoStep {
    StepSide before, after;
    std::vector<PictureChange> pictures;
};

class ProjectStep : public QUndoCommand {
public:
    ProjectStep(UndoHistory& history, const QString& caption, std::shared_ptr<const UndoStep> step)
        : QUndoCommand(caption), history_(history), step_(std::move(step)) {}
    // The command has run already when its step is pushed.
    void redo() override {
        if (pushed_) history_.apply(*step_, true);
        pushed_ = true;
    }
    void undo() override { history_.apply(*step_, false); }
    const std::shared_ptr<const UndoStep>& step() const { return step_; }

private:
    UndoHistory& history_;
    std::shared_ptr<const UndoStep> step_;
    bool pushed_ = false;
};

UndoHistory::UndoHistory(Project& project, int maxSteps, qint64 maxPictureBytes)
    : project_(project), maxPictureBytes_(maxPictureBytes),
      store_([&project] { return project.WorkFolder + QStringLiteral("/Undo"); }),
      stack_(std::make_unique<QUndoStack>()) {
    stack_->setUndoLimit(maxSteps);
}

UndoHistory::~UndoHistory() {
    stack_.reset();
}

void UndoHistory::Record(const QString& caption, const std::function<void()>& command) {
    if (recording_) {
        command();
        return;
    }
    recording_ = true;
    std::vector<Pane> panes(kMaxPane + 1);
    for (int i = 0; i <= kMaxPane; ++i)
        panes[size_t(i)] = project_.Panes(i);
    auto step = std::make_shared<UndoStep>();
    step->before.settings = SettingsOf(project_);
    if (CaptureShown) step->before.shown = CaptureShown();

    // Every working picture the command is about to replace is kept first, once.
    const QString work = QDir::cleanPath(project_.WorkFolder) + QLatin1Char('/');
    std::set<QString> seen;
    std::vector<std::pair<QString, std::optional<PictureRef>>> replaced;
    SetFileReplaceWatcher([&](const QString& path) {
        const QString clean = QDir::cleanPath(path);
        if (project_.WorkFolder.isEmpty() || !clean.startsWith(work) || !seen.insert(clean).second) return;
        replaced.emplace_back(path, store_.Keep(path));
    });
    struct Done {
        bool& recording;
        ~Done() {
            SetFileReplaceWatcher({});
            recording = false;
        }
    } done{recording_};
    command();
    SetFileReplaceWatcher({});

    for (auto& [path, before] : replaced) {
        const std::optional<PictureRef> after = store_.Keep(path);
        // A picture that could not be kept on either side is left as it lies.
        if (before && after && *before != *after) step->pictures.push_back({path, *before, *after});
    }
    for (int i = 0; i <= kMaxPane; ++i) {
        const Pane& now = project_.Panes(i);
        if (SamePane(panes[size_t(i)], now)) continue;
        step->before.panes.emplace_back(i, panes[size_t(i)]);
        step->after.panes.emplace_back(i, now);
    }
    step->after.settings = SettingsOf(project_);
    if (step->pictures.empty() && step->before.panes.empty() && step->before.settings == step->after.settings)
        return;
    if (CaptureShown) step->after.shown = CaptureShown();
    stack_->push(new ProjectStep(*this, caption, std::move(step)));
    trim();
}

void UndoHistory::trim() {
    if (store_.Bytes() <= maxPictureBytes_) return;
    // The stack drops only from the bottom by count; for bytes it is rebuilt without its oldest
    // steps. A step is pushed with everything above it gone, so every step kept is done.
    std::deque<std::pair<QString, std::shared_ptr<const UndoStep>>> kept;
    for (int i = 0; i < stack_->count(); ++i) {
        const auto* step = static_cast<const ProjectStep*>(stack_->command(i));
        kept.emplace_back(step->text(), step->step());
    }
    stack_->clear();
    while (!kept.empty() && store_.Bytes() > maxPictureBytes_)
        kept.pop_front();
    for (auto& [caption, step] : kept)
        stack_->push(new ProjectStep(*this, caption, step));
    store_.RemoveUnused();
}

void UndoHistory::Undo() {
    if (!recording_ && !project_.IsBusy) stack_->undo();
}

void UndoHistory::Redo() {
    if (!recording_ && !project_.IsBusy) stack_->redo();
}

void UndoHistory::Clear() {
    stack_->clear();
    store_.RemoveUnused();
}

void UndoHistory::SetLimits(int maxSteps, qint64 maxPictureBytes) {
    Clear();
    stack_->setUndoLimit(maxSteps);
    maxPictureBytes_ = maxPictureBytes;
}

void UndoHistory::apply(const UndoStep& step, bool after) {
    const StepSide& side = after ? step.after : step.before;
    // Nothing here may end the program: a picture that cannot be put back shows blank.
    try {
        for (const PictureChange& change : step.pictures)
            store_.PutBack(after ? change.after : change.before, change.path);
        for (const auto& [index, pane] : side.panes)
            project_.Panes(index) = pane;
        const ProjectSettings& s = side.settings;
        project_.GridSide = s.GridSide;
        project_.BoardCount = s.BoardCount;
        project_.BoardTitle = s.BoardTitle;
        project_.FooterText = s.FooterText;
        project_.GlobalHighlightColor = s.GlobalHighlightColor;
        project_.MoveHighlightColor = s.MoveHighlightColor;
        if (Show) Show(side.shown);
    } catch (const RunTimeError& error) {
        std::fprintf(stderr, "kelvrin: %s\n", error.what());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "kelvrin: %s\n", error.what());
    }
}
