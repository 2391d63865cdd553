#include "stage/frmmain.h"

#include <QShortcut>

void frmMain::addKeyboardAccess() {
    // Mnemonics let the menus be opened from the keyboard (Alt+F and so on); the captions read
    // as before.
    mnu_File->setTitle(QStringLiteral("&File"));
    mnu_Board->setTitle(QStringLiteral("&Board"));
    mnu_Panes->setTitle(QStringLiteral("&Pane"));
    mnu_HelpMenu->setTitle(QStringLiteral("&Help"));

    mnu_OpenProject->setShortcut(QKeySequence::Open);
    mnu_SaveAs->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+S")));
    mnu_ExportHTML->setShortcut(QKeySequence(QStringLiteral("Ctrl+E")));
    mnu_Exit->setShortcut(QKeySequence(QStringLiteral("Ctrl+Q")));
    mnu_Help->setShortcut(QKeySequence::HelpContents);

    // Back and Next live on the toolbar, not in a menu.
    auto* back = new QShortcut(QKeySequence(Qt::Key_PageUp), this);
    connect(back, &QShortcut::activated, this, [this] { Toolbar1_ButtonClick(QStringLiteral("Back")); });
    auto* next = new QShortcut(QKeySequence(Qt::Key_PageDown), this);
    connect(next, &QShortcut::activated, this, [this] { Toolbar1_ButtonClick(QStringLiteral("Next")); });
}
