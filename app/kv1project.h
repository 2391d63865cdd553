#pragma once

#include "model/project.h"

#include <QList>
#include <QString>
#include <QTemporaryDir>
#include <memory>

// A project read the way Kelvrin's Open Project reads it, with a working folder of its own that
// goes away with the object: kv1 never touches the pictures of a running Kelvrin.
class ToolProject {
public:
    // Reads the project file; a file that cannot be read is a RunTimeError.
    explicit ToolProject(const QString& path);

    Project& project() { return *project_; }
    const Project& project() const { return *project_; }
    QString path;   // absolute
    QString folder; // ending in "/"
    QString name;   // the file name less its last four characters

    qint16 paneTotal() const; // as the file announces it
    QString pictureFolder() const;
    // Panes up to the pane total whose picture the picture folder does not hold.
    QList<int> missingPictures() const;
    // "3 pictures missing from /p/trip_Data: a-0001.bmp, ..." for missingPictures().
    QString describeMissing(const QList<int>& panes) const;
    // Why Kelvrin's Open Project would stop on this project, or empty when it would not.
    QString whyKelvrinCannotOpen() const;
    // A ToolFailure saying why, when Kelvrin's Open Project would stop on this project.
    void requireOpenable() const;
    // Builds every pane's working picture, cellSize pixels square, as Open Project does.
    void rebuild(float cellSize);
    // rebuild() for a project Kelvrin can open with every picture present; otherwise a
    // ToolFailure saying why, with nothing built.
    void rebuildCompletely(float cellSize);

private:
    QTemporaryDir work_;
    std::unique_ptr<Project> project_;
};
