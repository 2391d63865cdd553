#include "flows/importsequence.h"
#include "stage/frmmain.h"

#include "stage/progress.h"

#include "dialogs/frmabout.h"
#include "dialogs/frmaddnew.h"
#include "dialogs/frmcloseup.h"
#include "dialogs/frmhelp.h"
#include "dialogs/frmmsgbox.h"
#include "dialogs/frmoptions.h"
#include "flows/reshape.h"
#include "images/paneflip.h"
#include "images/paneimage.h"
#include "images/picture.h"
#include "images/sequence.h"
#include "images/shuffle.h"
#include "model/boardsetup.h"
#include "model/numbers.h"

#include <QFileInfo>

namespace {
// The filter's first entry is what the user has always read in the dialog; the second adds PNG.
const QString kPictureFilter = QStringLiteral("Formats (*.Bmp *.Gif *.Jpg)|*.Bmp;*.Gif;*.Jpg|All pictures "
                                              "(*.Bmp *.Gif *.Jpg *.Png)|*.Bmp;*.Gif;*.Jpg;*.Png");
const QString kImportTitle = QStringLiteral("Kelvrin : Import");

// The dialog opens where the last file was chosen.
FileRequest pictureRequest(const QString& title, const QString& lastFileName) {
    FileRequest request;
    request.title = title;
    request.filter = kPictureFilter;
    request.filterIndex = 1;
    if (!lastFileName.isEmpty()) request.folder = QFileInfo(lastFileName).absolutePath();
    return request;
}
} // namespace

// Single picture.

QString frmMain::AskPicturePath(qint16 paneIndex) {
    const QString path =
        prompts.AskOpenFile(pictureRequest(QStringLiteral("Load Picture ..."), LastFileName));
    if (path.isEmpty()) return kNone;
    LastFileName = path;
    const QString title = QFileInfo(path).fileName();
    // A title shorter than its four-character extension has no stem: read like a cancel.
    if (title.size() < 4) return kNone;
    project.Panes(paneIndex).SourceStem = title.left(title.size() - 4);
    return path;
}

void frmMain::mnu_LoadPicture_Click() {
    const QString path = AskPicturePath(SelectedPane);
    if (path != kNone) {
        Pane& pane = project.Panes(SelectedPane);
        pane.ImageFile = path;
        pane.SourceFile = path;
        CellSize = CInt(StageSize / project.GridSide);
        pane.FlipHorizontal = 0;
        pane.FlipVertical = 0;
        // Not trapped: a picture that cannot be read ends the program with its run-time error.
        StorePaneImage(project, SelectedPane, CellSize, true);
        DrawCurrentBoard();
    }
    project.IsBusy = false;
}

// Mass import.

QString frmMain::AskImageSequence() {
    project.DialogReply.ReDim(7);
    const QString path =
        prompts.AskOpenFile(pictureRequest(QStringLiteral("Mass Image Import ..."), LastFileName));
    if (path.isEmpty()) return kNone;
    LastFileName = path;
    const ImageSequence s = AnalyseSequence(path, QFileInfo(path).fileName());
    project.DialogReply[7] = s.Result;
    if (s.Result != QLatin1String("Success")) return kNone;
    project.DialogReply[1] = s.Path;
    project.DialogReply[2] = s.Folder;
    project.DialogReply[3] = s.Prefix;
    project.DialogReply[4] = Str(s.Zeros);
    project.DialogReply[5] = Str(s.Number);
    project.DialogReply[6] = s.Extension;
    return QStringLiteral("yes");
}

void frmMain::mnu_MassImage_Click() {
    if (AskImageSequence() != kNone) {
        picStage->setCursor(Qt::WaitCursor);
        ImageSequence s;
        s.Folder = project.DialogReply[2];
        s.Prefix = project.DialogReply[3];
        s.Zeros = CInt(project.DialogReply[4]);
        s.Number = CInt(project.DialogReply[5]);
        s.Extension = project.DialogReply[6];
        CellSize = CInt(StageSize / project.GridSide);
        // The redraw moves the selection to the board's first pane; the count is of the panes filled.
        const qint16 firstPane = SelectedPane;
        ImportOutcome outcome;
        {
            ProgressWindow progress(this, project, QStringLiteral("Importing pictures ..."));
            outcome = ImportSequence(project, s, firstPane, CellSize, progress.Callback());
        }
        if (outcome.Halted) {
            picStage->setCursor(Qt::ArrowCursor);
            DrawCurrentBoard();
            prompts.Message(ImportCountMessage(outcome.NextPane, firstPane), MsgIcon::Information,
                            kImportTitle);
        }
    }
    if (project.DialogReply[7] == QLatin1String("error"))
        prompts.Message(NoImagesMessage(), MsgIcon::Information, kImportTitle);
    picStage->setCursor(Qt::ArrowCursor);
    DrawCurrentBoard();
}

// Board setup.

void frmMain::mnu_ChangeProject_Click() {
    ChangeProject();
}

void frmMain::ChangeProject() {
    project.DialogReply.ReDim(1);
    AddNew->Text_BoardAmount->setText(Format(project.BoardCount, "000"));
    ShowModal(*AddNew);
    if (project.DialogReply[1] == kNone) return;
    project.GridSide = GridSideOfEntry(AddNew->Combo_MatrixSize->currentIndex());
    picStage->setCursor(Qt::WaitCursor);
    picStage->ClearPicture();
    const bool discard = AddNew->Option1[0]->isChecked();
    project.BoardCount = CInt(project.DialogReply[1]);
    project.IsBusy = true;
    ReshapeProject(project.GridSide, project.BoardCount, StageSize, discard);
    project.IsBusy = false;
    picStage->setCursor(Qt::ArrowCursor);
    // Nothing is drawn: the chooser was refilled while busy, so the stage stays cleared, and
    // Back, Next, the text row and the selected pane stay as they were, until the user moves.
}

void frmMain::ReshapeProject(qint16 gridSide, qint16 boardCount, float stageSize, bool discard) {
    CellSize = FillLists(gridSide, boardCount, stageSize, discard);
}

// Flips and blanking.

void frmMain::mnu_FlipHorizontally_Click() {
    const Pane& pane = project.Panes(SelectedPane);
    if (pane.ImageFile != kNone)
        FlipPaneImage(project, SelectedPane, CellSize, pane.Position[0], pane.Position[1], -1);
    DrawCurrentBoard();
}

void frmMain::mnu_FlipVertically_Click() {
    const Pane& pane = project.Panes(SelectedPane);
    if (pane.ImageFile != kNone)
        FlipPaneImage(project, SelectedPane, CellSize, pane.Position[0], pane.Position[1], 0);
    DrawCurrentBoard();
}

void frmMain::mnu_MakeBlank_Click() {
    MakePaneBlank(project, SelectedPane);
    DrawCurrentBoard();
}

// Shuffle.

void frmMain::mnu_RandomShuffle_Click() {
    project.DialogReply2.ReDim(2);
    if (SkipNotice) {
        project.DialogReply2[1] = QStringLiteral("okay");
        project.DialogReply2[2] = QStringLiteral("True");
    } else {
        ShowModal(*MsgBox);
    }
    if (project.DialogReply2[1] != QLatin1String("okay")) return;
    const QString skip = project.DialogReply2[2];
    SkipNotice = (skip == QLatin1String("1") || skip == QLatin1String("True")) ? -1 : 0;
    const qint16 n = CellsPerBoard(project);
    project.DialogReply.ReDim(n);
    const qint16 base = ShufflePanes(project, project.GridSide, Combo_PageView->currentIndex(),
                                     ShuffleRandom ? ShuffleRandom : RandomSource(ClockSeededRandom));
    MoveShuffledPictures(project, base, n);
    DrawCurrentBoard();
}

// Properties.

void frmMain::mnu_BoardOptions_Click() {
    ShowProperties(-1, true);
}

void frmMain::mnu_Options_Click() {
    ShowProperties(SelectedPane, false);
}

void frmMain::ShowProperties(qint16 paneIndex, bool boardMode) {
    Options->PlaceFrames(boardMode);
    // A colour that is not in the list leaves the list's selection as it was.
    const auto select = [](QComboBox* list, qint32 colour) {
        const int entry = list->findData(colour);
        if (entry >= 0) list->setCurrentIndex(entry);
    };
    if (boardMode) {
        Options->Text1[2]->setText(project.FooterText);
        Options->Text1[3]->setText(project.BoardTitle);
        select(Options->Combo_MoveHighlight, project.MoveHighlightColor);
    } else {
        const Pane& pane = project.Panes(paneIndex);
        Options->Text1[0]->setText(pane.Label);
        Options->Text1[1]->setText(pane.Url);
        select(Options->Combo_GridHighlight, project.GlobalHighlightColor);
    }
    project.DialogReply.ReDim(1);
    project.DialogReply[1] = Str(paneIndex);
    ShowModal(*Options);
}

// Close-up.

void frmMain::mnu_Closeup_Click() {
    if (project.Panes(SelectedPane).SourceFile != kNone) ShowCloseUp(SelectedPane, StageFullSize);
    DrawCurrentBoard();
}

void frmMain::ShowCloseUp(qint16 paneIndex, float stageSide) {
    const Pane& pane = project.Panes(paneIndex);
    const int side = CInt(stageSide);
    CloseUp->Arrange(side);
    CloseUp->setWindowTitle(QStringLiteral("CloseUp : ") + pane.SourceStem);
    // Not trapped: a source that has gone ends the program with its run-time error.
    picLoader = LoadPicture(pane.SourceFile);
    CloseUp->ShowPicture(RenderPaneSquare(picLoader, side - 100, pane.FlipHorizontal, pane.FlipVertical));
    ShowModal(*CloseUp);
    picLoader = BlankPicture();
}

// Help and About.

void frmMain::mnu_Help_Click() {
    ShowModal(*Help);
}

void frmMain::mnu_About_Click() {
    ShowModal(*About);
}
