#include "dialogs/frmhelp.h"

#include "dialogs/helptexts.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

QStringList HelpTopicNames() {
    return {QStringLiteral("About"),
            QStringLiteral("Auto-Create Html Code"),
            QStringLiteral("Back"),
            QStringLiteral("Board"),
            QStringLiteral("Change Project"),
            QStringLiteral("Clear Item"),
            QStringLiteral("CloseUp"),
            QStringLiteral("Edit Text Window"),
            QStringLiteral("Exit"),
            QStringLiteral("Export As Html"),
            QStringLiteral("Export Tab"),
            QStringLiteral("Flip Horizontally"),
            QStringLiteral("Flip Vertically"),
            QStringLiteral("Footer Text"),
            QStringLiteral("Global Highlight"),
            QStringLiteral("Image Shuffle"),
            QStringLiteral("Label"),
            QStringLiteral("Labels Dock With Panes"),
            QStringLiteral("Labels Show As ALT Tag Property"),
            QStringLiteral("Left Mouse Button"),
            QStringLiteral("Make As Blank"),
            QStringLiteral("Mass Image Import"),
            QStringLiteral("Move Highlight"),
            QStringLiteral("Navigation"),
            QStringLiteral("Next"),
            QStringLiteral("Number Every Pane"),
            QStringLiteral("Open Project"),
            QStringLiteral("Pane"),
            QStringLiteral("Pane Grid Html"),
            QStringLiteral("Pane List"),
            QStringLiteral("Path"),
            QStringLiteral("Picture"),
            QStringLiteral("Preview Tab"),
            QStringLiteral("Properties - Board"),
            QStringLiteral("Properties - Panes"),
            QStringLiteral("Remove All"),
            QStringLiteral("Right Mouse Button"),
            QStringLiteral("Save Project As"),
            QStringLiteral("Scale Panes For"),
            QStringLiteral("Selected"),
            QStringLiteral("Show Board Title"),
            QStringLiteral("Show Border On Panes With URLs"),
            QStringLiteral("Show Footer Text"),
            QStringLiteral("Swap Item"),
            QStringLiteral("Title"),
            QStringLiteral("URL")};
}

frmHelp::frmHelp(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmHelp"));
    setWindowTitle(QStringLiteral("Help"));
    Combo_HelpTopic = new QComboBox(this);
    Combo_HelpTopic->setObjectName(QStringLiteral("Combo_HelpTopic"));
    Combo_HelpTopic->setMaxVisibleItems(16);
    Text1 = new QPlainTextEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setReadOnly(true);
    Text1->setMinimumSize(520, 300);
    Text1->setTabChangesFocus(true);
    Label1 = new QLabel(QStringLiteral("Kelvrin 1 : 2002 Edition - [Orvane Works]"), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Command1 = new QPushButton(QStringLiteral("Okay"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setAutoDefault(false);
    connect(Command1, &QPushButton::clicked, this, &QDialog::accept);
    // Every choice, the program's own at start-up included, shows its topic.
    connect(Combo_HelpTopic, &QComboBox::currentIndexChanged, this, [this] { Combo_HelpTopic_Click(); });

    setAccessibleDescription(QStringLiteral("Explains a topic chosen from the list."));
    Combo_HelpTopic->setAccessibleName(QStringLiteral("Help topic"));
    Text1->setAccessibleName(QStringLiteral("Topic text"));

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(Label1, 1);
    bottom->addWidget(Command1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Combo_HelpTopic);
    layout->addWidget(Text1, 1);
    layout->addLayout(bottom);
}

void frmHelp::Combo_HelpTopic_Click() {
    const QString text = HelpTopicText(Combo_HelpTopic->currentText());
    if (!text.isNull()) Text1->setPlainText(text);
}
