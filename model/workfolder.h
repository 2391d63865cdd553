#pragma once

#include <QString>

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
