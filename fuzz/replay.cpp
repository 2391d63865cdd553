// Runs every fuzz target over its seeds and over the inputs that once made it fail, so that the
// ordinary test suite (and its sanitizer build) keeps every finding fixed.
// Usage: fuzz_replay FUZZ_FOLDER  (the folder holding corpus/ and regressions/)
#include "targets.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <cstdio>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: fuzz_replay FUZZ_FOLDER\n");
        return 2;
    }
    const QDir root(QString::fromLocal8Bit(argv[1]));
    int failures = 0;
    for (const NamedFuzzTarget& target : kFuzzTargets) {
        int inputs = 0;
        for (const char* kind : {"corpus", "regressions"}) {
            QDirIterator it(root.filePath(QStringLiteral("%1/%2").arg(kind, target.name)), QDir::Files);
            while (it.hasNext()) {
                QFile file(it.next());
                if (!file.open(QIODevice::ReadOnly)) continue;
                const QByteArray bytes = file.readAll();
                target.run(reinterpret_cast<const uint8_t*>(bytes.constData()),
                           static_cast<size_t>(bytes.size()));
                ++inputs;
            }
        }
        std::printf("%s: %d inputs\n", target.name, inputs);
        // A target without inputs has nothing to replay: the folder has moved or the seeds are lost.
        if (inputs == 0) ++failures;
    }
    return failures == 0 ? 0 : 1;
}
