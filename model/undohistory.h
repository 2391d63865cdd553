#pragma once

#include "model/picturestore.h"
#include "model/project.h"

#include <QStringList>
#include <functional>
#include <memory>

class QUndoStack;
struct UndoStep;

// What the window shows of a project besides the records: the board chooser, the pane list, the
// selection and the edit row. The pane list is kept as shown, since it does not always follow
// the records (a discarding board setup lists every text as "ToUse").
struct ShownState {
    int BoardItems = 0;
    int Board = 0;
    // A board setup leaves the stage cleared and Back and Next as they were, until the user moves.
    bool BoardDrawn = true;
    bool BackEnabled = false, NextEnabled = false;
    QStringList PaneItems;
    int ListRow = -1;
    qint16 SelectedPane = 0;
    QString EditText;
    quint32 DragLineColour = 0; // the line takes the move highlight only when board Properties is accepted
};

// The project's settings that commands change.
struct ProjectSettings {
    qint16 GridSide = 2;
    qint16 BoardCount = 1;
    QString BoardTitle, FooterText;
    qint32 GlobalHighlightColor = 0, MoveHighlightColor = 0;
    bool operator==(const ProjectSettings& other) const;
};
ProjectSettings SettingsOf(const Project& project);

// Whether two records are the same pane: every field but the cell table (Position), which the
// board redraw fills in.
bool SamePane(const Pane& a, const Pane& b);

// The undo and redo history of one project. A command run through Record becomes one step when
// it changed the project: the records that changed, the settings, what the window showed before
// and after, and every working picture it replaced or created, kept in the picture store.
// Undo and redo put all of it back and never raise a run-time error. The history holds at most
// maxSteps steps and maxPictureBytes of kept pictures; the oldest steps go first.
class UndoHistory {
public:
    static constexpr int kMaxSteps = 100;
    static constexpr qint64 kMaxPictureBytes = qint64(256) << 20;

    explicit UndoHistory(Project& project, int maxSteps = kMaxSteps,
                         qint64 maxPictureBytes = kMaxPictureBytes);
    ~UndoHistory();
    UndoHistory(const UndoHistory&) = delete;
    UndoHistory& operator=(const UndoHistory&) = delete;

    // The steps, for the menu's texts and states; its undo() and redo() are Undo and Redo below.
    QUndoStack& Stack() { return *stack_; }
    // The window's part: what it shows, and showing it again after an undo or redo.
    std::function<ShownState()> CaptureShown;
    std::function<void(const ShownState&)> Show;

    // Runs the command; when it changed the project that is a new step named caption. A command
    // that fails (raises) leaves no step. A command run by another one is part of the outer step.
    void Record(const QString& caption, const std::function<void()>& command);
    bool Recording() const { return recording_; }
    // Refused while a command runs.
    void Undo();
    void Redo();
    // Forgets every step and the pictures kept for them.
    void Clear();
    // Other bounds (for a long session under test); forgets every step.
    void SetLimits(int maxSteps, qint64 maxPictureBytes);
    qint64 StoredPictureBytes() const { return store_.Bytes(); }

private:
    friend class ProjectStep;
    void apply(const UndoStep& step, bool after);
    void trim();
    Project& project_;
    qint64 maxPictureBytes_;
    bool recording_ = false;
    PictureStore store_; // before the stack: the steps release their pictures into it
    std::unique_ptr<QUndoStack> stack_;
};
