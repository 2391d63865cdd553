#pragma once

#include <QString>

// A numbered picture sequence (Image01.bmp, Image02.bmp, ...) taken from the one file the user
// chose. The import that fills consecutive panes from it is flows/importsequence.h.

struct ImageSequence {
    QString Path;      // the chosen file's full path
    QString Folder;    // the path less the file name, so it ends with "/"
    QString Prefix;    // the name stem without its number
    int Zeros = 0;     // leading zeros written before the number: 0, 1 or 2
    int Number = 0;    // the first number
    QString Extension; // the last four characters of the path, as typed, dot included
    // "Success" when the name carries a usable number, "error" when it does not, and empty when
    // reading the name failed (a digit followed by something that is not a number, or no stem).
    QString Result;
};

// Reads the sequence from a chosen file's full path and file name (its title). Only the last
// three characters of the stem (the title less its four-character extension) are looked at:
// "0" counts as a leading zero, the first of "1" to "9" starts the number, and what follows
// that digit is read as part of the number.
ImageSequence AnalyseSequence(const QString& path, const QString& title);

// The number as the files of the sequence write it: plain, or at least two or three digits for
// one or two leading zeros.
QString SequenceNumberText(qint64 number, int zeros);

// The file to load for a path of the sequence. The path itself when it exists; otherwise the file
// whose extension differs from the path's only in upper and lower case (Image02.JPG for
// Image02.jpg), so that a sequence is found as it would be on a file system that ignores case.
// When neither exists the path is returned unchanged and loading it reports the missing file.
QString FindSequenceFile(const QString& path);
