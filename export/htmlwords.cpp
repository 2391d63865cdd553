#include "export/htmlwords.h"

#include "model/runtimeerror.h"

#include <QFile>
#include <QHash>

namespace {
QHash<int, QString> readTable() {
    QHash<int, QString> table;
    QFile file(QStringLiteral(":/export/htmlwords.txt"));
    if (!file.open(QIODevice::ReadOnly)) return table;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray& line : lines) {
        const int tab = line.indexOf('\t');
        if (line.startsWith('#') || tab <= 0) continue;
        table.insert(line.left(tab).toInt(), QString::fromUtf8(line.mid(tab + 1)));
    }
    return table;
}
} // namespace

QString LoadResString(int id) {
    // Qt keeps resources of a static library out of the link unless they are pulled in once.
    static const QHash<int, QString> table = [] {
        Q_INIT_RESOURCE(htmlwords);
        return readTable();
    }();
    const auto it = table.find(id);
    if (it == table.end())
        throw RunTimeError(326, QStringLiteral("Resource with identifier '%1' not found").arg(id));
    return *it;
}
