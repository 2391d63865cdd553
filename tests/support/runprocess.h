#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

// A program run to its end: its exit status and what it wrote.
struct Run {
    int status;
    QString out, err;
};

inline Run run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(-1);
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}
