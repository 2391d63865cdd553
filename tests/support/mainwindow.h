#pragma once

#include "stage/frmmain.h"
#include "support/scriptedprompts.h"

#include <QTemporaryDir>
#include <memory>

// The main window started as the program starts it, with scripted prompts, on a project whose
// program and working folders lie in a temporary folder.
struct StartedMain {
    QTemporaryDir dir;
    Project project;
    ScriptedPrompts prompts;
    std::unique_ptr<frmMain> w;

    StartedMain() {
        project.ProgramFolder = dir.path();
        project.WorkFolder = dir.filePath(QStringLiteral("MyProjects"));
        w = std::make_unique<frmMain>(project, prompts);
        w->WorkArea = [] { return QRect(0, 0, 1024, 740); };
        w->Form_Load();
    }
    QString path(const QString& name) const { return dir.filePath(name); }
};
