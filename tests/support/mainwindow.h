#pragma once

#include "images/paneimage.h"
#include "stage/frmmain.h"
#include "support/check.h"
#include "support/scriptedprompts.h"
#include "support/testpictures.h"

#include <QTemporaryDir>
#include <QtTest>
#include <memory>

// The main window started as the program starts it, with scripted prompts, on a project whose
// program and working folders lie in a temporary folder. Pop-up menus are recorded, not shown.
struct StartedMain {
    QTemporaryDir dir;
    Project project;
    ScriptedPrompts prompts;
    std::unique_ptr<frmMain> w;
    QList<QPair<QMenu*, QPoint>> popups;

    explicit StartedMain(bool load = true) {
        project.ProgramFolder = dir.path();
        project.WorkFolder = dir.filePath(QStringLiteral("MyProjects"));
        if (load) start();
    }
    void start() {
        // Settings such as the recent projects go to the test's own folder, never the user's.
        qputenv("XDG_CONFIG_HOME", path(QStringLiteral("config")).toLocal8Bit());
        w = std::make_unique<frmMain>(project, prompts);
        w->WorkArea = [] { return QRect(0, 0, 1024, 740); };
        w->ShowPopup = [this](QMenu& menu, const QPoint& at) { popups.append({&menu, at}); };
        w->Form_Load();
    }
    QString path(const QString& name) const { return dir.filePath(name); }
    // Gives a pane a picture chosen as <stem>.bmp, stored at the current cell size.
    void give(int pane, const QImage& image, const QString& stem) {
        const QString source = path(stem + QStringLiteral(".bmp"));
        QVERIFY(WriteBmp(image, source));
        project.Panes(pane).SourceFile = source;
        project.Panes(pane).SourceStem = stem;
        StorePaneImage(project, static_cast<qint16>(pane), w->CellSize, true);
    }
    // The centre of cell k of the board drawn last.
    QPoint centre(int k) const {
        const Pane& cell = project.Panes(k);
        return {cell.Position[0] + int(w->CellSize) / 2, cell.Position[1] + int(w->CellSize) / 2};
    }
    // Moves the pointer over the stage as the window system does.
    void move(QPoint at, Qt::MouseButtons buttons = Qt::NoButton) {
        QMouseEvent event(QEvent::MouseMove, at, w->picStage->mapToGlobal(at), Qt::NoButton, buttons,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(w->picStage, &event);
    }
};

inline QStringList ItemsOf(const QComboBox* combo) {
    QStringList items;
    for (int i = 0; i < combo->count(); ++i)
        items << combo->itemText(i);
    return items;
}
inline QStringList ItemsOf(const QListWidget* list) {
    QStringList items;
    for (int i = 0; i < list->count(); ++i)
        items << list->item(i)->text();
    return items;
}
