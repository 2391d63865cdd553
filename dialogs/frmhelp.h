#pragma once

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStringList>

// "Help": one text per topic; choosing a topic replaces the text shown.
class frmHelp : public QDialog {
    Q_OBJECT
public:
    explicit frmHelp(QWidget* parent = nullptr);

    QComboBox* Combo_HelpTopic;
    QPlainTextEdit* Text1; // the chosen topic's text, read only
    QLabel* Label1;        // the line about where more is to be found
    QPushButton* Command1; // "Okay"

    // A name that is no topic leaves the text as it is.
    void Combo_HelpTopic_Click();
};

// The 46 topics in the order of the topic list.
QStringList HelpTopicNames();
