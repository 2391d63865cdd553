#include "stage/frmmain.h"

#include "dialogs/frmabout.h"
#include "dialogs/frmaddnew.h"
#include "dialogs/frmcloseup.h"
#include "dialogs/frmhelp.h"
#include "dialogs/frmhtml.h"
#include "dialogs/frmmsgbox.h"
#include "dialogs/frmoptions.h"
#include "dialogs/typinglimit.h"
#include "export/htmlwords.h"
#include "images/jpeglibrary.h"
#include "model/colour.h"
#include "model/numbers.h"
#include "model/recentprojects.h"
#include "model/runtimeerror.h"
#include "model/workfolder.h"
#include "stage/panelistwidget.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFrame>
#include <QGuiApplication>
#include <QMenuBar>
#include <QScreen>
#include <QStyle>
#include <cstdio>

namespace {
// Designed sizes that the layout keeps.
constexpr int kToolbarTop = 2;
constexpr int kToolbarHeight = 42;
constexpr int kToolButtonWidth = 30;
constexpr int kButtonWidth = 60;
constexpr int kRowHeight = 24;
} // namespace

// Resources of a static library are linked in only when pulled in once; this must stay outside
// any namespace.
static void initResources() {
    Q_INIT_RESOURCE(ui);
}

QImage frmMain::BlankPicture() {
    static const QImage blank = [] {
        initResources();
        return QImage(QStringLiteral(":/ui/101.bmp"));
    }();
    return blank;
}

frmMain::frmMain(Project& project, Prompts& prompts, QWidget* parent)
    : QMainWindow(parent), project(project), prompts(prompts) {
    initResources();
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QStringLiteral("Kelvrin 1 : 2002 Edition - [Orvane Works]"));
    QIcon icon(QStringLiteral(":/ui/kelvrin-48.png"));
    icon.addFile(QStringLiteral(":/ui/kelvrin-256.png"));
    setWindowIcon(icon);
    WorkArea = [this] {
        const QScreen* s = screen() ? screen() : QGuiApplication::primaryScreen();
        return s ? s->availableGeometry() : QRect(0, 0, 1024, 740);
    };
    ShowModal = [](QDialog& dialog) { dialog.exec(); };
    ShowPopup = [](QMenu& menu, const QPoint& at) { menu.exec(at); };

    RecentSettingsFile = RecentProjectsFile();
    buildControls();
    buildMenus();
    RefreshRecentMenu();
    setAcceptDrops(true);
    // The text row takes dropped text of its own; files dropped on it are the window's.
    Text1->installEventFilter(this);
    addKeyboardAccess();
    describeControls();

    AddNew = new frmAddNew(project, this);
    Options = new frmOptions(project, this);
    // The drag line takes the move highlight when the board's properties are accepted; a drag
    // only places it.
    Options->MoveHighlightAccepted = [this](qint32 colour) {
        picStage->Line1.BorderColor = ColourOf(colour);
        picStage->update();
    };
    HTML = new frmHTML(project, prompts, this);
    Help = new frmHelp(this);
    MsgBox = new frmMsgBox(project, this);
    About = new frmAbout(this);
    CloseUp = new frmCloseUp(this);

    // The layout follows the desktop's work area, whether the window or the desktop changed.
    if (QScreen* s = QGuiApplication::primaryScreen())
        connect(s, &QScreen::availableGeometryChanged, this, [this] { ArrangeMainWindow(); });
}

frmMain::~frmMain() = default;

void frmMain::buildControls() {
    auto* central = new QWidget(this);
    central->setObjectName(QStringLiteral("frmMainClient"));
    setCentralWidget(central);

    picStage = new StageView(central);
    connect(picStage, &StageView::MouseDown, this, &frmMain::picStage_MouseDown);
    connect(picStage, &StageView::MouseMove, this, &frmMain::picStage_MouseMove);
    connect(picStage, &StageView::MouseUp, this, &frmMain::picStage_MouseUp);

    picSideBar = new QWidget(central);
    picSideBar->setObjectName(QStringLiteral("picSideBar"));
    picSideBar->setAutoFillBackground(true);

    Toolbar1 = new QWidget(picSideBar);
    Toolbar1->setObjectName(QStringLiteral("Toolbar1"));
    Toolbar1->setGeometry(6, kToolbarTop, 300, kToolbarHeight);
    auto makeButton = [this](const char* key, QStyle::StandardPixmap icon, const char* tip, int left) {
        auto* b = new QToolButton(Toolbar1);
        b->setObjectName(QString::fromLatin1(key));
        b->setText(QString::fromLatin1(key));
        b->setToolTip(QString::fromLatin1(tip));
        b->setIcon(style()->standardIcon(icon));
        b->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        b->setAutoRaise(true);
        QFont small = b->font();
        small.setPointSizeF(small.pointSizeF() * 0.85);
        b->setFont(small);
        b->setGeometry(left, 0, kToolButtonWidth, kToolbarHeight);
        connect(b, &QToolButton::clicked, this,
                [this, key] { Toolbar1_ButtonClick(QString::fromLatin1(key)); });
        return b;
    };
    ButtonBack = makeButton("Back", QStyle::SP_ArrowLeft, "Navigate last Board", 0);
    ButtonNext = makeButton("Next", QStyle::SP_ArrowRight, "Navigate next Board", kToolButtonWidth);
    auto* separator = new QFrame(Toolbar1);
    separator->setFrameShape(QFrame::VLine);
    separator->setFrameShadow(QFrame::Sunken);
    separator->setGeometry(2 * kToolButtonWidth + 1, 4, 4, kToolbarHeight - 8);
    Combo_PageView = new QComboBox(Toolbar1);
    Combo_PageView->setObjectName(QStringLiteral("Combo_PageView"));
    Combo_PageView->setGeometry(66, (kToolbarHeight - kRowHeight) / 2, 200, kRowHeight);
    connect(Combo_PageView, &QComboBox::activated, this, [this] { Combo_PageView_Click(); });

    List1 = new PaneListWidget(picSideBar);
    List1->setObjectName(QStringLiteral("List1"));
    List1->setUniformItemSizes(true);
    connect(List1, &PaneListWidget::MouseDown, this, &frmMain::List1_MouseDown);

    Text1 = new QLineEdit(picSideBar);
    Text1->setObjectName(QStringLiteral("Text1"));
    LimitTyping(Text1, 256);
    connect(Text1, &QLineEdit::textChanged, this, [this] { Text1_Change(); });

    cmdButton = new QPushButton(QStringLiteral("swap"), picSideBar);
    cmdButton->setObjectName(QStringLiteral("cmdButton"));
    cmdButton->resize(kButtonWidth, kRowHeight);
    cmdButton->setEnabled(false);
    connect(cmdButton, &QPushButton::clicked, this, [this] { SwapItemText(); });

    Text2 = new QLineEdit(central);
    Text2->setObjectName(QStringLiteral("Text2"));
    Text2->hide();
}

QAction* frmMain::addCommand(QMenu* menu, const char* name, const QString& caption,
                             void (frmMain::*handler)()) {
    auto* action = menu->addAction(caption);
    action->setObjectName(QString::fromLatin1(name));
    connect(action, &QAction::triggered, this, [this, handler] { (this->*handler)(); });
    return action;
}

void frmMain::buildMenus() {
    mnu_File = menuBar()->addMenu(QStringLiteral("File"));
    mnu_File->setObjectName(QStringLiteral("mnu_File"));
    mnu_OpenProject = addCommand(mnu_File, "mnu_OpenProject", QStringLiteral("Open Project"),
                                 &frmMain::mnu_OpenProject_Click);
    mnu_SaveAs =
        addCommand(mnu_File, "mnu_SaveAs", QStringLiteral("Save Project As"), &frmMain::mnu_SaveAs_Click);
    mnu_ChangeProject = addCommand(mnu_File, "mnu_ChangeProject", QStringLiteral("Change Project"),
                                   &frmMain::mnu_ChangeProject_Click);
    mnu_File->addSeparator();
    mnu_ExportHTML = addCommand(mnu_File, "mnu_ExportHTML", QStringLiteral("Export As Html"),
                                &frmMain::mnu_ExportHTML_Click);
    mnu_File->addSeparator();
    mnu_OpenRecent = mnu_File->addMenu(QStringLiteral("Open Recent"));
    mnu_OpenRecent->setObjectName(QStringLiteral("mnu_OpenRecent"));
    // Projects can vanish while the program runs: the list is looked at each time it opens.
    connect(mnu_OpenRecent, &QMenu::aboutToShow, this, [this] { RefreshRecentMenu(); });
    mnu_File->addSeparator();
    mnu_Exit = addCommand(mnu_File, "mnu_Exit", QStringLiteral("Exit"), &frmMain::mnu_Exit_Click);

    mnu_Board = menuBar()->addMenu(QStringLiteral("Board"));
    mnu_Board->setObjectName(QStringLiteral("mnu_Board"));
    mnu_BoardChangeProject = addCommand(mnu_Board, "mnu_BoardChangeProject", QStringLiteral("Change Project"),
                                        &frmMain::mnu_ChangeProject_Click);
    mnu_BoardOptions = addCommand(mnu_Board, "mnu_BoardOptions", QStringLiteral("Properties"),
                                  &frmMain::mnu_BoardOptions_Click);
    mnu_Board->addSeparator();
    mnu_RandomShuffle = addCommand(mnu_Board, "mnu_RandomShuffle", QStringLiteral("Image Shuffle"),
                                   &frmMain::mnu_RandomShuffle_Click);

    mnu_Panes = menuBar()->addMenu(QStringLiteral("Pane"));
    mnu_Panes->setObjectName(QStringLiteral("mnu_Panes"));
    mnu_LoadPicture = addCommand(mnu_Panes, "mnu_LoadPicture", QStringLiteral("Picture ..."),
                                 &frmMain::mnu_LoadPicture_Click);
    mnu_MassImage = addCommand(mnu_Panes, "mnu_MassImage", QStringLiteral("Mass Image Import ..."),
                               &frmMain::mnu_MassImage_Click);
    mnu_Panes->addSeparator();
    mnu_FlipHorizontally = addCommand(mnu_Panes, "mnu_FlipHorizontally", QStringLiteral("Flip Horizontally"),
                                      &frmMain::mnu_FlipHorizontally_Click);
    mnu_FlipVertically = addCommand(mnu_Panes, "mnu_FlipVertically", QStringLiteral("Flip Vertically"),
                                    &frmMain::mnu_FlipVertically_Click);
    mnu_MakeBlank = addCommand(mnu_Panes, "mnu_MakeBlank", QStringLiteral("Make as Blank"),
                               &frmMain::mnu_MakeBlank_Click);
    mnu_Panes->addSeparator();
    mnu_Closeup =
        addCommand(mnu_Panes, "mnu_Closeup", QStringLiteral("CloseUp"), &frmMain::mnu_Closeup_Click);
    mnu_Options =
        addCommand(mnu_Panes, "mnu_Options", QStringLiteral("Properties"), &frmMain::mnu_Options_Click);
    for (QAction* a : {mnu_FlipHorizontally, mnu_FlipVertically, mnu_MakeBlank, mnu_Closeup})
        a->setEnabled(false);

    mnu_HelpMenu = menuBar()->addMenu(QStringLiteral("Help"));
    mnu_HelpMenu->setObjectName(QStringLiteral("mnu_HelpMenu"));
    mnu_Help = addCommand(mnu_HelpMenu, "mnu_Help", QStringLiteral("Help"), &frmMain::mnu_Help_Click);
    mnu_About = addCommand(mnu_HelpMenu, "mnu_About", QStringLiteral("About"), &frmMain::mnu_About_Click);

    // Edit List is never in the menu bar: it is the pane list's pop-up.
    mnu_EditList = new QMenu(QStringLiteral("Edit List"), this);
    mnu_EditList->setObjectName(QStringLiteral("mnu_EditList"));
    mnu_Swap = addCommand(mnu_EditList, "mnu_Swap", QStringLiteral("Swap Item"), &frmMain::mnu_Swap_Click);
    mnu_EditList->addSeparator();
    mnu_Remove =
        addCommand(mnu_EditList, "mnu_Remove", QStringLiteral("Remove Item"), &frmMain::mnu_Remove_Click);
    mnu_EditList->addSeparator();
    mnu_ClearAll =
        addCommand(mnu_EditList, "mnu_ClearAll", QStringLiteral("Clear All"), &frmMain::mnu_ClearAll_Click);
    mnu_Swap->setEnabled(false);
    mnu_Remove->setEnabled(false);
}

void frmMain::Form_Load() {
    project.IsBusy = true;
    InitLists();
    StageFullSize = StageSize = LayoutStage();
    StageSize -= 15;
    EnsureWorkFolder(project.WorkFolder);
    project.GridSide = 2;
    project.BoardCount = 1;
    ResetPanes(project);
    List1->clear();
    for (int i = 1; i <= PaneTotal(project); ++i)
        List1->addItem(Format(i, "000") + QStringLiteral(". ToUse"));
    SkipNotice = 0;
    // From here on a failure is trapped: a missing JPEG encoder must not keep the program from
    // starting. Exporting pictures reports it when it is needed.
    try {
        if (JpegLibraryVersion().isEmpty())
            std::fprintf(stderr, "kelvrin: the JPEG library could not be started; "
                                 "exported pictures cannot be written.\n");
        DrawCurrentBoard();
    } catch (const RunTimeError& error) {
        std::fprintf(stderr, "kelvrin: %s\n", error.what());
    }
    project.IsBusy = false;
}

void frmMain::InitLists() {
    project.IsBusy = true;

    AddNew->Combo_MatrixSize->clear();
    AddNew->Combo_MatrixSize->addItems(
        {QStringLiteral("2 x 2"), QStringLiteral("3 x 3"), QStringLiteral("4 x 4"), QStringLiteral("5 x 5")});
    AddNew->Combo_MatrixSize->setCurrentIndex(0);

    Combo_PageView->clear();
    Combo_PageView->addItem(QStringLiteral("Board ") + Format(1, "00"));
    SetBoardIndex(0);

    // The names of the move highlight list do not describe their colours; both are kept as they are.
    struct ColourItem {
        const char* name;
        qint32 value;
    };
    const ColourItem moveItems[] = {
        {"Blue - Light", 255}, {"Blue - Dark", 65535}, {"Yellow", 16711680}, {"Pink", 65280}};
    Options->Combo_MoveHighlight->clear();
    for (const auto& item : moveItems)
        Options->Combo_MoveHighlight->addItem(QString::fromLatin1(item.name), item.value);
    Options->Combo_MoveHighlight->setCurrentIndex(3);

    const ColourItem gridItems[] = {{"Black", 0},     {"White", 16777215}, {"Red", 255},
                                    {"Green", 65280}, {"Blue", 16711680},  {"Yellow", 65535}};
    Options->Combo_GridHighlight->clear();
    for (const auto& item : gridItems)
        Options->Combo_GridHighlight->addItem(QString::fromLatin1(item.name), item.value);
    Options->Combo_GridHighlight->setCurrentIndex(3);

    project.MoveHighlightColor = 65280;
    project.GlobalHighlightColor = 65280;

    Help->Combo_HelpTopic->clear();
    Help->Combo_HelpTopic->addItems(HelpTopicNames());
    Help->Combo_HelpTopic->setCurrentIndex(0);

    HTML->Combo_GridSize->clear();
    HTML->Combo_GridSize->addItems(
        {QStringLiteral("2 x 2"), QStringLiteral("3 x 3"), QStringLiteral("4 x 4"), QStringLiteral("5 x 5")});
    HTML->Combo_GridSize->setCurrentIndex(0);

    for (int i = 101; i <= 130; ++i)
        project.HtmlWords[static_cast<size_t>(i - 100)] = LoadResString(i);

    HTML->Check2->setChecked(true);

    project.IsBusy = false;
}

void frmMain::Form_Unload() {
    if (unloaded_) return;
    unloaded_ = true;
    DeleteWorkFolder(project.WorkFolder);
    // Ends every event loop, a dialog's included: nothing is saved and nobody is asked.
    QCoreApplication::quit();
}

void frmMain::closeEvent(QCloseEvent* event) {
    event->accept();
    Form_Unload();
}

void frmMain::mnu_Exit_Click() {
    close();
}

void frmMain::SetBoardIndex(int index) {
    Combo_PageView->setCurrentIndex(index);
    Combo_PageView_Click();
}
