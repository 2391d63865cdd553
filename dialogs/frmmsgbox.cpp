#include "dialogs/frmmsgbox.h"

#include <QHBoxLayout>
#include <QStyle>
#include <QVBoxLayout>

frmMsgBox::frmMsgBox(Project& project, QWidget* parent) : QDialog(parent), project_(project) {
    setObjectName(QStringLiteral("frmMsgBox"));
    setWindowTitle(QStringLiteral("KV1 : Operation Notice"));

    auto* icon = new QLabel(this);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxInformation).pixmap(32, 32));
    icon->setAlignment(Qt::AlignTop);
    icon->setAccessibleName(QStringLiteral("Information"));
    Label1 = new QLabel(
        QStringLiteral(
            "Panes swap images independent of pane  properties. Click OK to proceed with this operation."),
        this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setWordWrap(true);
    Label1->setMinimumWidth(300);
    Check1 = new QCheckBox(QStringLiteral("Don't show me again this session. Ta."), this);
    Check1->setObjectName(QStringLiteral("Check1"));
    Check1->setAccessibleDescription(QStringLiteral("Image Shuffle asks no more until Kelvrin ends."));
    OKButton = new QPushButton(QStringLiteral("OK"), this);
    OKButton->setObjectName(QStringLiteral("OKButton"));
    OKButton->setDefault(true);
    CancelButton = new QPushButton(QStringLiteral("Cancel"), this);
    CancelButton->setObjectName(QStringLiteral("CancelButton"));
    CancelButton->setAutoDefault(false);
    connect(OKButton, &QPushButton::clicked, this, [this] { OKButton_Click(); });
    connect(CancelButton, &QPushButton::clicked, this, [this] { CancelButton_Click(); });

    auto* text = new QHBoxLayout;
    text->addWidget(icon);
    text->addWidget(Label1, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(Check1);
    buttons->addStretch();
    buttons->addWidget(OKButton);
    buttons->addWidget(CancelButton);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(text);
    layout->addSpacing(8);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void frmMsgBox::OKButton_Click() {
    project_.DialogReply2[1] = QStringLiteral("okay");
    project_.DialogReply2[2] = Check1->isChecked() ? QStringLiteral("1") : QStringLiteral("0");
    accept();
}

void frmMsgBox::CancelButton_Click() {
    project_.DialogReply2[1] = QStringLiteral("cancel");
    project_.DialogReply2[2] = QStringLiteral("cancel");
    Check1->setChecked(false);
    QDialog::reject();
}

void frmMsgBox::reject() {
    CancelButton_Click();
}
