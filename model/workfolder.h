#pragma once

#include <QString>
#include <memory>

class QLockFile;

// The working folder holds one BMP per pane picture while the program runs. It is "MyProjects"
// beside the executable; where that folder cannot be written (an installed program), it is
// "MyProjects" in the user's cache folder (~/.cache/kelvrin/MyProjects) instead.

QString WorkFolderIn(const QString& programFolder); // programFolder + "/MyProjects"
QString ChooseWorkFolder(const QString& programFolder);

// Creates the folder when it does not exist; a folder that cannot be created is RunTimeError 75.
void EnsureWorkFolder(const QString& path);
// Removes the folder with everything in it, read-only files included, when it exists;
// a folder that cannot be removed is RunTimeError 75.
void DeleteWorkFolder(const QString& path);

// Holds a working folder for one running program. Two programs started side by side must never
// touch each other's pictures: the first takes the working folder, a second one "MyProjects-2"
// beside it, and so on. Each holds a lock file beside its folder ("MyProjects.lock") for as long
// as it runs; a
// folder whose lock belongs to a program that no longer runs (it crashed) is taken over as it is.
class WorkFolderClaim {
public:
    // Claims the first free folder from ChooseWorkFolder(programFolder) on, creating it;
    // RunTimeError 75 when none can be created.
    explicit WorkFolderClaim(const QString& programFolder);
    ~WorkFolderClaim();
    WorkFolderClaim(const WorkFolderClaim&) = delete;
    WorkFolderClaim& operator=(const WorkFolderClaim&) = delete;

    const QString& path() const { return path_; }

private:
    QString path_;
    std::unique_ptr<QLockFile> lock_;
};
