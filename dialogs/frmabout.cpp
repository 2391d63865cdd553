#include "dialogs/frmabout.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

frmAbout::frmAbout(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(QStringLiteral("About"));

    Image1 = new QLabel(this);
    Image1->setObjectName(QStringLiteral("Image1"));
    Image1->setPixmap(QPixmap(QStringLiteral(":/ui/kelvrin-256.png"))
                          .scaled(96, 96, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    Image1->setAlignment(Qt::AlignTop);
    Image1->setAccessibleName(QStringLiteral("Kelvrin icon"));
    const char* lines[3] = {"Kelvrin v1.0 - (2002)", "Written by Orvane Works.",
                            "Pictures read with Qt; JPEG pictures written with libjpeg-turbo."};
    auto* text = new QVBoxLayout;
    for (int i = 0; i < 3; ++i) {
        Label1[i] = new QLabel(QString::fromLatin1(lines[i]), this);
        Label1[i]->setObjectName(QStringLiteral("Label1_%1").arg(i));
        text->addWidget(Label1[i]);
    }
    QFont title = Label1[0]->font();
    title.setBold(true);
    title.setPointSizeF(title.pointSizeF() * 1.3);
    Label1[0]->setFont(title);
    text->addStretch();

    Command1 = new QPushButton(QStringLiteral("Okay"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    connect(Command1, &QPushButton::clicked, this, &QDialog::accept);

    auto* top = new QHBoxLayout;
    top->addWidget(Image1);
    top->addSpacing(12);
    top->addLayout(text);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(Command1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}
