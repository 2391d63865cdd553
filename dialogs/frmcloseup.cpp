#include "dialogs/frmcloseup.h"

#include <QPixmap>

frmCloseUp::frmCloseUp(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmCloseUp"));
    setWindowTitle(QStringLiteral("CloseUp : "));
    Picture1 = new QLabel(this);
    Picture1->setObjectName(QStringLiteral("Picture1"));
    Picture1->setAlignment(Qt::AlignCenter);
    Picture1->setAccessibleName(QStringLiteral("Close-up picture"));
    setAccessibleDescription(QStringLiteral("The selected pane's picture, enlarged to a square."));
    Command1 = new QPushButton(QStringLiteral("Okay"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    Command1->resize(80, 26);
    connect(Command1, &QPushButton::clicked, this, &QDialog::accept);
}

void frmCloseUp::Arrange(int side) {
    setFixedSize(side, side);
    const int picture = qMax(side - 100, 0);
    Picture1->setGeometry((side - picture) / 2, 10, picture, picture);
    Command1->move(side / 2 - Command1->width() / 2, Picture1->y() + Picture1->height() + 20);
}

void frmCloseUp::ShowPicture(const QImage& picture) {
    Picture1->setPixmap(QPixmap::fromImage(picture));
}
