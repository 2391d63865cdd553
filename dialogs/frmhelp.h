#pragma once

#include <QComboBox>
#include <QDialog>
#include <QStringList>

// "Help": one text per topic.
class frmHelp : public QDialog {
    Q_OBJECT
public:
    explicit frmHelp(QWidget* parent = nullptr);

    QComboBox* Combo_HelpTopic;
};

// The 46 topics in the order of the topic list.
QStringList HelpTopicNames();
