#include "dialogs/frmoptions.h"

#include "dialogs/typinglimit.h"
#include "model/numbers.h"

#include <QGridLayout>
#include <QLabel>

namespace {
constexpr int kFrameLeft = 10, kFrameTop = 8, kFrameWidth = 420, kFrameHeight = 150;
} // namespace

frmOptions::frmOptions(Project& project, QWidget* parent) : QDialog(parent), project_(project) {
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
        LimitTyping(Text1[i], limits[i]);
    }
    Combo_MoveHighlight = new QComboBox(Frame1[0]);
    Combo_MoveHighlight->setObjectName(QStringLiteral("Combo_MoveHighlight"));
    Combo_GridHighlight = new QComboBox(Frame1[1]);
    Combo_GridHighlight->setObjectName(QStringLiteral("Combo_GridHighlight"));

    // Each label names its field for assistive technologies.
    const auto label = [](const char* caption, QWidget* field, QWidget* frame) {
        auto* l = new QLabel(QString::fromLatin1(caption), frame);
        l->setBuddy(field);
        return l;
    };
    auto* board = new QGridLayout(Frame1[0]);
    board->addWidget(label("Title :", Text1[3], Frame1[0]), 0, 0);
    board->addWidget(Text1[3], 0, 1, 1, 2);
    board->addWidget(label("Footer Text :", Text1[2], Frame1[0]), 1, 0);
    board->addWidget(Text1[2], 1, 1, 1, 2);
    board->addWidget(label("Move Highlight", Combo_MoveHighlight, Frame1[0]), 2, 0);
    board->addWidget(Combo_MoveHighlight, 2, 1);
    board->setColumnStretch(2, 1);

    auto* panes = new QGridLayout(Frame1[1]);
    panes->addWidget(label("Label :", Text1[0], Frame1[1]), 0, 0);
    panes->addWidget(Text1[0], 0, 1, 1, 3);
    panes->addWidget(label("URL :", Text1[1], Frame1[1]), 1, 0);
    panes->addWidget(new QLabel(QStringLiteral("http://"), Frame1[1]), 1, 1);
    panes->addWidget(Text1[1], 1, 2, 1, 2);
    panes->addWidget(label("Global Highlight", Combo_GridHighlight, Frame1[1]), 2, 0);
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
    // Top to bottom in either group; the hidden group is skipped.
    QWidget* order[] = {Text1[0],
                        Text1[1],
                        Combo_GridHighlight,
                        Text1[3],
                        Text1[2],
                        Combo_MoveHighlight,
                        Button_acceptOrclose[0],
                        Button_acceptOrclose[1]};
    for (size_t i = 1; i < std::size(order); ++i)
        setTabOrder(order[i - 1], order[i]);
    describe();
    PlaceFrames(true);
}

void frmOptions::describe() {
    setAccessibleDescription(QStringLiteral("The board's title, footer text and move highlight, or the "
                                            "selected pane's label, URL and the global highlight."));
    Text1[0]->setAccessibleDescription(
        QStringLiteral("Shown on the pane under the pointer and as its picture's ALT text; at most 99 "
                       "characters."));
    Text1[1]->setAccessibleDescription(
        QStringLiteral("The address the exported pane links to, usually beginning with http://; at most "
                       "999 characters."));
    Text1[2]->setAccessibleDescription(
        QStringLiteral("Written at the foot of every exported page; at most 256 characters."));
    Text1[3]->setAccessibleDescription(
        QStringLiteral("Written at the top of every exported page; at most 99 characters."));
    Combo_MoveHighlight->setAccessibleDescription(
        QStringLiteral("The colour of the line drawn while a pane is dragged."));
    Combo_GridHighlight->setAccessibleDescription(
        QStringLiteral("The colour of the frame around the pane under the pointer."));
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
        if (MoveHighlightAccepted) MoveHighlightAccepted(project_.MoveHighlightColor);
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
