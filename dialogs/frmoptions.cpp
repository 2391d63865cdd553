#include "dialogs/frmoptions.h"

#include "model/colour.h"
#include "model/numbers.h"

#include <QGridLayout>
#include <QLabel>

namespace {
constexpr int kFrameLeft = 10, kFrameTop = 8, kFrameWidth = 420, kFrameHeight = 150;
} // namespace

frmOptions::frmOptions(Project& project, StageView* stage, QWidget* parent)
    : QDialog(parent), project_(project), stage_(stage) {
    setObjectName(QStringLiteral("frmOptions"));
    setWindowTitle(QStringLiteral("Options :"));

    const char* frameCaptions[2] = {"Board :", "Panes :"};
    for (int i = 0; i < 2; ++i) {
        Frame1[i] = new QGroupBox(QString::fromLatin1(frameCaptions[i]), this);
        Frame1[i]->setObjectName(QStringLiteral("Frame1_%1").arg(i));
        Frame1[i]->setGeometry(kFrameLeft, kFrameTop, kFrameWidth, kFrameHeight);
    }
    const int limits[4] = {99, 999, 256, 99};
    for (int i = 0; i < 4; ++i) {
        Text1[i] = new QLineEdit(kToUse, Frame1[i < 2 ? 1 : 0]);
        Text1[i]->setObjectName(QStringLiteral("Text1_%1").arg(i));
        Text1[i]->setMaxLength(limits[i]);
    }
    Combo_MoveHighlight = new QComboBox(Frame1[0]);
    Combo_MoveHighlight->setObjectName(QStringLiteral("Combo_MoveHighlight"));
    Combo_GridHighlight = new QComboBox(Frame1[1]);
    Combo_GridHighlight->setObjectName(QStringLiteral("Combo_GridHighlight"));

    auto* board = new QGridLayout(Frame1[0]);
    board->addWidget(new QLabel(QStringLiteral("Title :"), Frame1[0]), 0, 0);
    board->addWidget(Text1[3], 0, 1, 1, 2);
    board->addWidget(new QLabel(QStringLiteral("Footer Text :"), Frame1[0]), 1, 0);
    board->addWidget(Text1[2], 1, 1, 1, 2);
    board->addWidget(new QLabel(QStringLiteral("Move Highlight"), Frame1[0]), 2, 0);
    board->addWidget(Combo_MoveHighlight, 2, 1);
    board->setColumnStretch(2, 1);

    auto* panes = new QGridLayout(Frame1[1]);
    panes->addWidget(new QLabel(QStringLiteral("Label :"), Frame1[1]), 0, 0);
    panes->addWidget(Text1[0], 0, 1, 1, 3);
    panes->addWidget(new QLabel(QStringLiteral("URL :"), Frame1[1]), 1, 0);
    panes->addWidget(new QLabel(QStringLiteral("http://"), Frame1[1]), 1, 1);
    panes->addWidget(Text1[1], 1, 2, 1, 2);
    panes->addWidget(new QLabel(QStringLiteral("Global Highlight"), Frame1[1]), 2, 0);
    panes->addWidget(Combo_GridHighlight, 2, 1, 1, 2);
    panes->setColumnStretch(3, 1);

    const char* captions[2] = {"Close", "Accept"};
    for (int i = 0; i < 2; ++i) {
        Button_acceptOrclose[i] = new QPushButton(QString::fromLatin1(captions[i]), this);
        Button_acceptOrclose[i]->setObjectName(QStringLiteral("Button_acceptOrclose_%1").arg(i));
        Button_acceptOrclose[i]->setAutoDefault(false);
        Button_acceptOrclose[i]->setGeometry(kFrameLeft + kFrameWidth - 170 + 85 * i,
                                             kFrameTop + kFrameHeight + 10, 80, 26);
        connect(Button_acceptOrclose[i], &QPushButton::clicked, this,
                [this, i] { Button_acceptOrclose_Click(i); });
    }
    Button_acceptOrclose[1]->setDefault(true);
    setFixedSize(kFrameLeft * 2 + kFrameWidth, kFrameTop + kFrameHeight + 46);
    PlaceFrames(true);
}

void frmOptions::PlaceFrames(bool boardMode) {
    QGroupBox* shown = Frame1[boardMode ? 0 : 1];
    QGroupBox* hidden = Frame1[boardMode ? 1 : 0];
    shown->move(kFrameLeft, kFrameTop);
    shown->show();
    // Out of view and out of the focus chain.
    hidden->move(-kFrameWidth - 2 * kFrameLeft, kFrameTop);
    hidden->hide();
}

void frmOptions::Button_acceptOrclose_Click(int index) {
    if (index == 0) {
        project_.DialogReply[1] = kNone;
        QDialog::reject();
        return;
    }
    if (Frame1[0]->x() >= 0) {
        project_.MoveHighlightColor = Combo_MoveHighlight->currentData().toInt();
        stage_->Line1.BorderColor = ColourOf(project_.MoveHighlightColor);
        stage_->update();
        project_.FooterText = TrimBlanks(Text1[2]->text());
        project_.BoardTitle = TrimBlanks(Text1[3]->text());
    } else {
        Pane& pane = project_.Panes(CInt(project_.DialogReply[1]));
        pane.Label = TrimBlanks(Text1[0]->text());
        pane.Url = TrimBlanks(Text1[1]->text());
        project_.GlobalHighlightColor = Combo_GridHighlight->currentData().toInt();
    }
    accept();
}

void frmOptions::reject() {
    Button_acceptOrclose_Click(0);
}
