#include "targets.h"

#include "export/htmlexport.h"
#include "images/sequence.h"
#include "model/projectfile.h"

#include <QByteArray>
#include <QString>

namespace {
bool plainDigits(const QString& text) {
    for (const QChar c : text)
        if (c < QLatin1Char('0') || c > QLatin1Char('9')) return false;
    return !text.isEmpty();
}
} // namespace

int FuzzNames(const uint8_t* data, size_t size) {
    const QString title =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString folder = QStringLiteral("/pictures/");
    const QString path = folder + title;

    const ImageSequence s = AnalyseSequence(path, title);
    FuzzCheck(s.Path == path && s.Folder == folder && s.Extension == path.right(4), "the path is split");
    if (s.Result == QLatin1String("Success")) {
        const QString stem = title.left(title.size() - 4);
        FuzzCheck(stem.startsWith(s.Prefix) && s.Prefix.size() >= stem.size() - 3,
                  "the prefix leads the stem");
        FuzzCheck(s.Number >= 1 && s.Number <= 32767 && s.Zeros >= 0 && s.Zeros <= 2, "a usable number");
        // A stem whose examined end is plain digits is the prefix and the number written as the
        // sequence writes it.
        if (plainDigits(stem.right(3)))
            FuzzCheck(s.Prefix + SequenceNumberText(s.Number, s.Zeros) == stem,
                      "the first file is in the sequence");
        for (int k = 1; k <= 1000; k += 333)
            FuzzCheck(!SequenceNumberText(qint64(s.Number) + k, s.Zeros).isEmpty(),
                      "every number is written");
    } else {
        FuzzCheck(s.Result.isEmpty() || s.Result == QLatin1String("error"),
                  "a refused name is error or nothing");
        FuzzCheck(s.Prefix.isEmpty() && s.Number == 0 && s.Zeros == 0, "a refused name leaves no sequence");
    }

    // The project dialogs' answer and the export's target, from the same chosen name.
    ReplyList reply;
    SetPathReply(reply, path);
    FuzzCheck(reply[1] == path && path.startsWith(reply[2]) && reply[2].endsWith(QLatin1Char('/')),
              "the project path is split at its last separator");
    const QString file = path.mid(reply[2].size());
    FuzzCheck(reply[3] == (file.size() > 4 ? file.left(file.size() - 4) : QString()), "the project name");
    const ExportTarget target = ExportTargetOf(path);
    FuzzCheck(target.Path == path && path.startsWith(target.Folder), "the export folder leads the path");
    return 0;
}
