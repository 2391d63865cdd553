#include "dialogs/frmaddnew.h"

#include "model/boardsetup.h"
#include "model/numbers.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

frmAddNew::frmAddNew(Project& project, QWidget* parent) : QDialog(parent), project_(project) {
    setObjectName(QStringLiteral("frmAddNew"));
    setWindowTitle(QStringLiteral("Board Setup"));

    FrameStructure = new QGroupBox(QStringLiteral("Structure :"), this);
    Combo_MatrixSize = new QComboBox(FrameStructure);
    Combo_MatrixSize->setObjectName(QStringLiteral("Combo_MatrixSize"));
    Text_BoardAmount = new QLineEdit(QStringLiteral("001"), FrameStructure);
    Text_BoardAmount->setObjectName(QStringLiteral("Text_BoardAmount"));
    Text_BoardAmount->setFixedWidth(48);
    UpDownControl = new QWidget(FrameStructure);
    UpDownControl->setObjectName(QStringLiteral("UpDownControl"));
    UpDownUp = new QToolButton(UpDownControl);
    UpDownUp->setArrowType(Qt::UpArrow);
    UpDownUp->setToolTip(QStringLiteral("One board more"));
    UpDownDown = new QToolButton(UpDownControl);
    UpDownDown->setArrowType(Qt::DownArrow);
    UpDownDown->setToolTip(QStringLiteral("One board less"));
    auto* steps = new QVBoxLayout(UpDownControl);
    steps->setContentsMargins(0, 0, 0, 0);
    steps->setSpacing(0);
    for (QToolButton* b : {UpDownUp, UpDownDown}) {
        b->setFixedSize(18, 12);
        b->setAutoRepeat(true);
        steps->addWidget(b);
    }
    auto* structure = new QGridLayout(FrameStructure);
    auto* panesLabel = new QLabel(QStringLiteral("Panes :"), FrameStructure);
    panesLabel->setBuddy(Combo_MatrixSize);
    structure->addWidget(panesLabel, 0, 0);
    structure->addWidget(Combo_MatrixSize, 0, 1, 1, 2);
    auto* boardsLabel = new QLabel(QStringLiteral("Boards :"), FrameStructure);
    boardsLabel->setBuddy(Text_BoardAmount);
    structure->addWidget(boardsLabel, 1, 0);
    auto* amount = new QHBoxLayout;
    amount->setSpacing(0);
    amount->addWidget(Text_BoardAmount);
    amount->addWidget(UpDownControl);
    amount->addStretch();
    structure->addLayout(amount, 1, 1, 1, 2);

    FrameProperties = new QGroupBox(QStringLiteral("Properties :"), this);
    Option1[0] = new QRadioButton(QStringLiteral("Discard all items"), FrameProperties);
    Option1[1] = new QRadioButton(QStringLiteral("Keep existing"), FrameProperties);
    // Keeping is the choice that loses nothing.
    Option1[1]->setChecked(true);
    auto* properties = new QVBoxLayout(FrameProperties);
    for (int i = 0; i < 2; ++i) {
        Option1[i]->setObjectName(QStringLiteral("Option1_%1").arg(i));
        properties->addWidget(Option1[i]);
    }

    Label1 = new QLabel(QStringLiteral(" info view"), this);
    Label1->setObjectName(QStringLiteral("Label1"));

    const char* captions[2] = {"Close", "Accept"};
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (int i = 0; i < 2; ++i) {
        Button_acceptOrclose[i] = new QPushButton(QString::fromLatin1(captions[i]), this);
        Button_acceptOrclose[i]->setObjectName(QStringLiteral("Button_acceptOrclose_%1").arg(i));
        Button_acceptOrclose[i]->setAutoDefault(false);
        connect(Button_acceptOrclose[i], &QPushButton::clicked, this,
                [this, i] { Button_acceptOrclose_Click(i); });
        buttons->addWidget(Button_acceptOrclose[i]);
    }
    Button_acceptOrclose[1]->setDefault(true);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(FrameStructure);
    layout->addWidget(FrameProperties);
    layout->addWidget(Label1);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    // Every choice of grid, the program's own included, sets the maximum.
    connect(Combo_MatrixSize, &QComboBox::currentIndexChanged, this, [this] { Combo_MatrixSize_Click(); });
    connect(Text_BoardAmount, &QLineEdit::textChanged, this, [this] { Text_BoardAmount_Change(); });
    connect(UpDownUp, &QToolButton::clicked, this, [this] { UpDownControl_UpClick(); });
    connect(UpDownDown, &QToolButton::clicked, this, [this] { UpDownControl_DownClick(); });
    describe();
}

void frmAddNew::describe() {
    setAccessibleDescription(QStringLiteral("The grid of every board and the number of boards."));
    Combo_MatrixSize->setAccessibleDescription(QStringLiteral("Panes on every board."));
    Text_BoardAmount->setAccessibleDescription(
        QStringLiteral("The number of boards, up to the most the grid allows. Up and Down step it."));
    UpDownControl->setAccessibleName(QStringLiteral("Step the number of boards"));
    UpDownUp->setAccessibleName(UpDownUp->toolTip());
    UpDownDown->setAccessibleName(UpDownDown->toolTip());
    Option1[0]->setAccessibleDescription(QStringLiteral("The new shape starts without pictures."));
    Option1[1]->setAccessibleDescription(QStringLiteral("Panes keep their pictures by number."));
    Text_BoardAmount->installEventFilter(this);
}

bool frmAddNew::eventFilter(QObject* watched, QEvent* event) {
    // Up and Down in the box step it as the buttons beside it do.
    if (watched == Text_BoardAmount && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Up && key->modifiers() == Qt::NoModifier) {
            UpDownControl_UpClick();
            return true;
        }
        if (key->key() == Qt::Key_Down && key->modifiers() == Qt::NoModifier) {
            UpDownControl_DownClick();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmAddNew::Combo_MatrixSize_Click() {
    const int entry = Combo_MatrixSize->currentIndex();
    if (entry < 0) return;
    MaxBoards = MaxBoardsOfEntry(entry);
    Label1->setText(MaxBoardsCaption(entry));
}

void frmAddNew::selectAmount() {
    Text_BoardAmount->setSelection(0, 3);
    if (isVisible()) Text_BoardAmount->setFocus();
}

void frmAddNew::Text_BoardAmount_Change() {
    // Setting the text raises this again; the second pass finds nothing to correct.
    const BoardAmountText corrected = CorrectBoardAmount(Text_BoardAmount->text(), MaxBoards);
    if (corrected.text != Text_BoardAmount->text()) Text_BoardAmount->setText(corrected.text);
    if (corrected.selectAll) selectAmount();
}

void frmAddNew::UpDownControl_DownClick() {
    const QString text = StepBoardAmount(Text_BoardAmount->text(), -1, MaxBoards);
    Text_BoardAmount->setText(text);
    if (text == QLatin1String("001")) selectAmount();
}

void frmAddNew::UpDownControl_UpClick() {
    Text_BoardAmount->setText(StepBoardAmount(Text_BoardAmount->text(), 1, MaxBoards));
}

void frmAddNew::Button_acceptOrclose_Click(int index) {
    if (index == 0) {
        project_.DialogReply[1] = kNone;
        QDialog::reject();
        return;
    }
    project_.DialogReply[1] = Str(AcceptedBoardAmount(Text_BoardAmount->text(), MaxBoards));
    accept();
}

void frmAddNew::reject() {
    Button_acceptOrclose_Click(0);
}
