#pragma once

#include "export/contactsheet.h"
#include "images/workingpicturecache.h"
#include "model/project.h"
#include "model/prompts.h"
#include "model/undohistory.h"
#include "stage/panelistwidget.h"
#include "stage/stageview.h"

#include <QAction>
#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>
#include <functional>

class frmAddNew;
class frmOptions;
class frmHTML;
class frmHelp;
class frmMsgBox;
class frmAbout;
class frmCloseUp;
class frmSheet;
class QPrinter;

// The main window: the stage with the current board, the side panel with the board chooser,
// the pane list and the edit row, and the menus. Its handlers read the controls and call the
// core routines on the project it is given.
class frmMain : public QMainWindow {
    Q_OBJECT
public:
    frmMain(Project& project, Prompts& prompts, QWidget* parent = nullptr);
    ~frmMain() override;

    Project& project;
    Prompts& prompts;
    // Every change to the project is a step of this history (frmmain_undo.cpp).
    UndoHistory History;

    // The desktop work area in pixels, the source of every measure of the layout.
    std::function<QRect()> WorkArea;
    // Shows one of the program's dialogs modally and returns when it has closed.
    std::function<void(QDialog&)> ShowModal;
    // Shows a pop-up menu at a point of the screen and returns when it has closed.
    std::function<void(QMenu&, const QPoint&)> ShowPopup;

    // Start-up and shut-down.
    void Form_Load();
    void InitLists();
    void Form_Unload();

    // Controls.
    StageView* picStage;
    QWidget* picSideBar;
    QWidget* Toolbar1;
    QToolButton* ButtonBack; // Toolbar1 button 1, key "Back"
    QToolButton* ButtonNext; // Toolbar1 button 2, key "Next"
    QComboBox* Combo_PageView;
    PaneListWidget* List1;
    QLineEdit* Text1;
    QPushButton* cmdButton;
    QLineEdit* Text2; // a hidden text buffer
    QImage picLoader; // off-screen canvases used while a board is drawn
    // The working pictures of the board on the stage, read again only when their files change.
    WorkingPictureCache BoardPictures;
    QImage tmpPic;

    // Menus; the Pane menu is also the stage's pop-up, Edit List the pane list's.
    QMenu* mnu_File;
    QMenu* mnu_Edit;
    QMenu* mnu_Board;
    QMenu* mnu_Panes;
    QMenu* mnu_HelpMenu;
    QMenu* mnu_EditList;
    QAction* mnu_OpenProject;
    QAction* mnu_SaveAs;
    QAction* mnu_ChangeProject;
    QAction* mnu_ExportHTML;
    QAction* mnu_Print;
    QAction* mnu_ExportPDF;
    QAction* mnu_ExportAnimatic;
    QAction* mnu_Exit;
    QAction* mnu_Undo;
    QAction* mnu_Redo;
    QAction* mnu_BoardChangeProject;
    QAction* mnu_BoardOptions;
    QAction* mnu_RandomShuffle;
    QAction* mnu_Slideshow;
    QAction* mnu_LoadPicture;
    QAction* mnu_MassImage;
    QAction* mnu_FlipHorizontally;
    QAction* mnu_FlipVertically;
    QAction* mnu_MakeBlank;
    QAction* mnu_Closeup;
    QAction* mnu_Options;
    QAction* mnu_Help;
    QAction* mnu_About;
    QAction* mnu_Swap;
    QAction* mnu_Remove;
    QAction* mnu_ClearAll;

    // The other windows of the program.
    frmAddNew* AddNew;
    frmOptions* Options;
    frmHTML* HTML;
    frmHelp* Help;
    frmMsgBox* MsgBox;
    frmAbout* About;
    frmCloseUp* CloseUp;
    frmSheet* Sheet;

    // Layout and stage state.
    qint16 LastWorkAreaWidth = 0;
    float StageSize = 0;     // side of the board square used for drawing and hit testing
    float StageFullSize = 0; // the stage's height as laid out
    float CellSize = 0;      // side of one pane cell
    qint16 SelectedPane = 0;
    int HoverPane = 0;
    bool DragActive = false;
    qint16 SkipNotice = 0; // the operation notice's opt-out for this run
    QString LastFileName;  // the path chosen last in a file dialog
    QString ProjectFile;   // the project's file once opened or saved; names what is made from it

    // Contact sheets (frmmain_sheets.cpp): the PDF's name offered first, and the painting of the
    // sheet on a printer with a progress window that can cancel it.
    QString SheetPdfName() const;
    void PaintSheetOn(QPrinter& printer, const SheetOptions& options, QWidget* progressParent);

    // Layout.
    qint16 LayoutStage();
    void ArrangeMainWindow();

    // Boards.
    void DrawCurrentBoard();
    void DrawBoard(float cellSize, qint16 gridSide, qint16 cell, bool allCells);
    void SnapshotStage();
    int TrackHover(int x, int y, float cellSize, qint16 gridSide);
    void DrawDragLine(qint16 selectedPane, float cellSize, int x, int y, qint16 gridSide);
    void ShowPaneText();
    void Toolbar1_ButtonClick(const QString& key);
    void Combo_PageView_Click();
    // Sets the board chooser's selection as the program does: the chooser's click event follows.
    void SetBoardIndex(int index);

    // Shows a pane as a click on its item in the pane list does: its board, its item and its text.
    void ChoosePane(int pane);

    // Pane list and texts.
    qint16 FillLists(qint16 gridSide, qint16 boardCount, float stageSize, bool reset);
    // The pane list from pane 1 to total, with the panes' texts or all "ToUse"; the board
    // chooser "Board 01" to boardCount, its first board selected (its click event follows).
    void RefillPaneList(int total, bool withTexts);
    void RefillBoardChooser(int boardCount);
    void List1_MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers shift, int x, int y);
    void SwapItemText();
    void ResetItemText(bool all, int index);
    void Text1_Change();

    // Stage mouse.
    void picStage_MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers shift, int x, int y);
    void picStage_MouseMove(Qt::MouseButtons buttons, Qt::KeyboardModifiers shift, int x, int y);
    void picStage_MouseUp(Qt::MouseButton button, Qt::KeyboardModifiers shift, int x, int y);

    // Stage keyboard (frmmain_keys.cpp), each key doing what the mouse does on a pane's centre:
    // an arrow, Home or End selects another pane of the board as a click does, Ctrl with an arrow
    // first drags the selected pane onto its neighbour; the Menu key is a right click on the
    // selected pane.
    void picStage_KeyDown(int key, Qt::KeyboardModifiers shift);
    void picStage_MenuKey();
    // Shows the selected pane highlighted, as the pointer over it would.
    void picStage_KeyboardFocusIn();
    // "Pane 5 of board 2: picture sky, label Start, text Hello": the board's accessible
    // description.
    QString SelectedPaneDescription() const;

    // Project file: the file dialogs answer in project.DialogReply; the flows behind
    // "Save Project As" and "Open Project".
    void AskSavePath();
    void AskOpenPath();
    void SaveProject();
    void OpenProject();
    // The Open Project flow from after its dialog, for a path given otherwise: a recent project,
    // a drop, the command line.
    void OpenProjectFile(const QString& path);
    // The project named on the command line. A file that cannot be opened is reported as Open
    // Project reports it, and the program goes on with an empty project.
    void OpenProjectFromCommandLine(const QString& path);
    // The start-up project: one board of 2 x 2 empty panes.
    void StartEmptyProject();

    // Recent projects: kept in RecentSettingsFile, listed in the File menu's "Open Recent".
    QString RecentSettingsFile;
    QMenu* mnu_OpenRecent;
    QAction* mnu_ClearRecent = nullptr;
    void NoteRecentProject(const QString& path);
    void RefreshRecentMenu();

    // Files dropped from other programs (frmmain_drop.cpp): pictures onto a pane of the stage, a
    // project file anywhere on the window.
    // Loads pictures into firstPane and the panes after it with one redraw; one that cannot be read
    // stops the drop there and is reported, and the program goes on.
    void DropPictures(const QStringList& files, qint16 firstPane);
    // The pane under a point of the stage, or 0 outside every pane of the current board.
    int PaneAtStagePoint(QPoint at);

    // Menu commands.
    void mnu_OpenProject_Click();
    void mnu_SaveAs_Click();
    void mnu_ChangeProject_Click();
    void mnu_ExportHTML_Click();
    void mnu_Print_Click();
    void mnu_ExportPDF_Click();
    void mnu_ExportAnimatic_Click();
    void mnu_Exit_Click();
    void mnu_BoardOptions_Click();
    void mnu_RandomShuffle_Click();
    void mnu_Slideshow_Click();
    void mnu_LoadPicture_Click();
    void mnu_MassImage_Click();
    void mnu_FlipHorizontally_Click();
    void mnu_FlipVertically_Click();
    void mnu_MakeBlank_Click();
    void mnu_Closeup_Click();
    void mnu_Options_Click();
    void mnu_Help_Click();
    void mnu_About_Click();
    void mnu_Swap_Click();
    void mnu_Remove_Click();
    void mnu_ClearAll_Click();

    // The label shown on a hovered pane: nothing for "ToUse"; cut to cellSize / 9 characters
    // and "..." when longer.
    static QString HoverLabel(const QString& label, float cellSize);
    // After the export window: every pane picture to a JPEG beside the exported pages.
    void ExportPanePictures();
    // Pane commands and their windows (frmmain_panes.cpp).
    QString AskPicturePath(qint16 paneIndex);
    QString AskImageSequence();
    void ChangeProject();
    void ReshapeProject(qint16 gridSide, qint16 boardCount, float stageSize, bool discard);
    void ShowProperties(qint16 paneIndex, bool boardMode);
    void ShowCloseUp(qint16 paneIndex, float stageSide);
    // The shuffle's random numbers in [0, 1); empty for the clock-seeded source.
    std::function<double()> ShuffleRandom;

    // The blank pane picture, bitmap resource 101.
    static QImage BlankPicture();

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void buildControls();
    void buildMenus();
    QAction* addCommand(QMenu* menu, const char* name, const QString& caption, void (frmMain::*handler)());
    // A command that changes the project: one step of the history, named by its caption.
    QAction* addStep(QMenu* menu, const char* name, const QString& caption, void (frmMain::*handler)());
    void buildEditMenu();
    // What the window shows beside the records, for the history.
    ShownState shownState() const;
    void showState(const ShownState& state);
    void enablePaneCommands();
    void addKeyboardAccess();
    void describeControls();
    // The selected pane's cell on the current board, 1 to GridSide², or 0 when it is on another.
    int selectedCell() const;
    QPoint cellCentre(int cell) const;
    // A left click on the cell's centre: pointer over it, press, release.
    void clickCell(int cell, Qt::KeyboardModifiers shift);
    void OpenChosenProject();
    // Whether a drag of these files may be dropped at a point of the window; highlights the pane
    // that pictures would land in.
    bool acceptsDrag(const QMimeData* data, QPoint windowPoint);
    void clearDropHighlight();
    bool unloaded_ = false;
};
