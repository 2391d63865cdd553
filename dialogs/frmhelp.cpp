#include "dialogs/frmhelp.h"

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
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Combo_HelpTopic);
}
