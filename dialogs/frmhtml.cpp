#include "dialogs/frmhtml.h"

#include "export/htmlexport.h"
#include "model/numbers.h"
#include "model/runtimeerror.h"

#include <QFileInfo>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace {
const QString kNoPath = QStringLiteral("C:\\none");
} // namespace

frmHTML::frmHTML(Project& project, Prompts& prompts, QWidget* parent)
    : QDialog(parent), project(project), prompts(prompts) {
    setObjectName(QStringLiteral("frmHTML"));
    setWindowTitle(QStringLiteral("Html Export"));

    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName(QStringLiteral("SSTab1"));
    auto* exportTab = new QWidget(SSTab1);
    auto* previewTab = new QWidget(SSTab1);
    SSTab1->addTab(exportTab, QStringLiteral("Export"));
    SSTab1->addTab(previewTab, QStringLiteral("preview"));

    Command1 = new QPushButton(QStringLiteral("path"), exportTab);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setAutoDefault(false);
    Text1 = new QLineEdit(kNoPath, exportTab);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setReadOnly(true); // shows the choice; the path button makes it
    auto* pathRow = new QHBoxLayout;
    pathRow->addWidget(Command1);
    pathRow->addWidget(Text1, 1);

    Frame2 = new QGroupBox(QStringLiteral("Scale panes for : "), exportTab);
    Frame2->setObjectName(QStringLiteral("Frame2"));
    auto* scaleRow = new QHBoxLayout(Frame2);
    const char* scales[2] = {"640 x 480", "800 x 600, 1024 x 768"};
    for (int i = 0; i < 2; ++i) {
        Option1[i] = new QRadioButton(QString::fromLatin1(scales[i]), Frame2);
        Option1[i]->setObjectName(QStringLiteral("Option1_%1").arg(i));
        scaleRow->addWidget(Option1[i]);
    }
    scaleRow->addStretch(1);
    Option1[1]->setChecked(true);

    Frame1 = new QGroupBox(QStringLiteral("Structure :"), exportTab);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    auto* structure = new QGridLayout(Frame1);
    const char* captions[6] = {"Labels dock with panes.", "Labels show as ALT tag property.",
                               "Number every pane.",      "Show border on panes with URLs.",
                               "Show board title.",       "Show footer text."};
    for (int i = 0; i < 6; ++i) {
        Check1[i] = new QCheckBox(QString::fromLatin1(captions[i]), Frame1);
        Check1[i]->setObjectName(QStringLiteral("Check1_%1").arg(i));
        Check1[i]->setChecked(true);
        structure->addWidget(Check1[i], i % 3, i / 3);
    }
    Label1 = new QLabel(QStringLiteral("Pane Grid :"), Frame1);
    Label1->setObjectName(QStringLiteral("Label1"));
    Combo_GridSize = new QComboBox(Frame1);
    Combo_GridSize->setObjectName(QStringLiteral("Combo_GridSize"));
    Label1->setBuddy(Combo_GridSize);
    auto* gridRow = new QHBoxLayout;
    gridRow->addWidget(Label1);
    gridRow->addWidget(Combo_GridSize);
    gridRow->addStretch(1);
    structure->addLayout(gridRow, 3, 0, 1, 2);

    Check2 = new QCheckBox(QStringLiteral("Auto-create html code"), exportTab);
    Check2->setObjectName(QStringLiteral("Check2"));
    Check2->setChecked(true);

    auto* exportLayout = new QVBoxLayout(exportTab);
    exportLayout->addLayout(pathRow);
    exportLayout->addWidget(Frame2);
    exportLayout->addWidget(Frame1);
    exportLayout->addWidget(Check2);
    exportLayout->addStretch(1);

    html_code = new QPlainTextEdit(previewTab);
    html_code->setObjectName(QStringLiteral("html_code"));
    html_code->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    html_code->setLineWrapMode(QPlainTextEdit::NoWrap);
    auto* previewLayout = new QVBoxLayout(previewTab);
    previewLayout->addWidget(html_code);

    const char* buttons[2][3] = {{"Close", "Discard", "Button_acceptOrclose_0"},
                                 {"Accept", "Use", "Button_acceptOrclose_1"}};
    auto* buttonRow = new QHBoxLayout;
    buttonRow->addStretch(1);
    for (int i : {1, 0}) {
        Button_acceptOrclose[i] = new QPushButton(QString::fromLatin1(buttons[i][0]), this);
        Button_acceptOrclose[i]->setToolTip(QString::fromLatin1(buttons[i][1]));
        Button_acceptOrclose[i]->setObjectName(QString::fromLatin1(buttons[i][2]));
        Button_acceptOrclose[i]->setAutoDefault(false);
        buttonRow->addWidget(Button_acceptOrclose[i]);
        connect(Button_acceptOrclose[i], &QPushButton::clicked, this,
                [this, i] { Button_acceptOrclose_Click(i); });
    }
    Button_acceptOrclose[1]->setEnabled(false);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(SSTab1);
    layout->addLayout(buttonRow);
    resize(560, 420);

    connect(Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });
    connect(SSTab1, &QTabWidget::currentChanged, this, [this](int tab) { SSTab1_Click(tab); });
    describe();
}

void frmHTML::describe() {
    setAccessibleDescription(
        QStringLiteral("Exports the project as linked web pages with a JPEG picture of every pane."));
    SSTab1->setAccessibleName(QStringLiteral("Export and preview"));
    Command1->setAccessibleDescription(QStringLiteral("Chooses the folder and name of the first page."));
    Text1->setAccessibleName(QStringLiteral("Page file"));
    Text1->setAccessibleDescription(QStringLiteral("The first page's file, as chosen with the path button."));
    Combo_GridSize->setAccessibleDescription(QStringLiteral("Panes on every exported page."));
    Check2->setAccessibleDescription(
        QStringLiteral("Builds every page from the project; unticked, only the first page is written."));
    html_code->setAccessibleName(QStringLiteral("Page code"));
    html_code->setAccessibleDescription(
        QStringLiteral("The HTML code of the first page, which may be edited."));
    // Tab leaves the code for the buttons instead of typing a tab into it.
    html_code->setTabChangesFocus(true);
}

HtmlExportOptions frmHTML::Options() const {
    HtmlExportOptions options;
    options.GridIndex = Combo_GridSize->currentIndex();
    options.ScaleOption = Option1[0]->isChecked() ? 0 : 1;
    for (size_t i = 0; i < Check1.size(); ++i)
        options.Structure[i] = Check1[i]->isChecked();
    options.AutoCreate = Check2->isChecked();
    return options;
}

void frmHTML::Command1_Click() {
    DialogFileName = QStringLiteral("Untitled.htm");
    FileRequest request;
    request.title = QStringLiteral("Save Project (as html) ...");
    request.filter = QStringLiteral("htm (*.htm)|*.htm");
    request.folder = lastFolder_;
    request.fileName = DialogFileName;
    const QString path = prompts.AskSaveFile(request);
    // A cancelled dialog leaves the window as it was.
    if (path.isEmpty()) return;
    DialogFileName = path;
    lastFolder_ = QFileInfo(path).absolutePath();
    const ExportTarget target = ExportTargetOf(path);
    ReplyList& reply = project.DialogReply;
    reply[1] = target.Path;
    reply[2] = target.Folder;
    if (!QFileInfo(path).fileName().isEmpty()) reply[3] = target.Stem;
    Text1->setText(path);
    Button_acceptOrclose[1]->setEnabled(true);
}

void frmHTML::Button_acceptOrclose_Click(int index) {
    ReplyList& reply = project.DialogReply;
    if (index == 1 && !reply[1].isEmpty()) {
        setCursor(Qt::WaitCursor);
        try {
            ExportWebpages(project, Options(), CInt(reply[4]), CInt(reply[5]), reply[2], reply[3], State,
                           [this](const WebpageState&, const QString& text) {
                               html_code->setPlainText(
                                   QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
                           });
        } catch (const RunTimeError&) {
            // The window stays open with its path, so that another folder or grid can be tried.
            unsetCursor();
            prompts.Message(kSystemFailed, MsgIcon::Critical, kHtmlOutputTitle);
            return;
        }
        unsetCursor();
        resetAndClose(Accepted);
        return;
    }
    reply[1] = kNone;
    resetAndClose(Rejected);
}

void frmHTML::reject() {
    Button_acceptOrclose_Click(0);
}

void frmHTML::resetAndClose(int result) {
    Text1->setText(kNoPath);
    Button_acceptOrclose[1]->setEnabled(false);
    done(result);
}

void frmHTML::SSTab1_Click(int tab) {
    // With auto-create off the preview is left alone, so hand edits survive.
    if (tab != 1 || !Check2->isChecked()) return;
    State.ImageCursor = State.TextCursor = State.TitleCursor = 0;
    MakeWebpage();
}

void frmHTML::MakeWebpage() {
    const QString text = ::MakeWebpage(project, Options(), project.DialogReply[3], State);
    html_code->setPlainText(QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
}
