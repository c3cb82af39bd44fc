#include "archive_state.h"

#include "platform/machine_path.h"

#include <QFile>

namespace saldoro {

using namespace Qt::StringLiterals;

ArchiveState ReadState(const TestArchive &archive)
{
    ArchiveState state;
    state[u"UltimaPerVariante"_s] =
        archive.contractRows(u"SELECT * FROM UltimaPerVariante ORDER BY rowid"_s);
    const QString items = archive.contractRows(u"SELECT * FROM SchedaProgetto ORDER BY rowid"_s);
    for (const QString &row : items.split(u'\n', Qt::SkipEmptyParts))
        state[row.section(u'|', 0, 0)] += row;
    if (QFile::exists(MachinePath(LedgerPath(archive.values())))) {
        state[u"tabelle"_s] = archive.ledgerRows(u"SELECT name FROM sqlite_master"_s);
        for (const QString &table : state[u"tabelle"_s].split(u'\n', Qt::SkipEmptyParts))
            state[table] =
                archive.ledgerRows(u"SELECT * FROM %1 ORDER BY rowid"_s.arg(table)) + u'\n';
    }
    const QDir folder(MachinePath(ProjectFolder(archive.values())));
    for (const QString &name : folder.entryList({u"*.rtf"_s}, QDir::Files)) {
        QFile file(folder.filePath(name));
        state[name] = file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll())
                                                     : u"(cannot be read)"_s;
    }
    return state;
}

QString Difference(const ArchiveState &found, const ArchiveState &expected)
{
    QStringList lines;
    for (const QString &key : found.keys() + expected.keys()) {
        if (found.value(key) != expected.value(key))
            lines += key + u": found\n"_s + found.value(key, u"(none)"_s).left(4000) +
                     u"\n    expected\n"_s + expected.value(key, u"(none)"_s).left(4000);
    }
    lines.removeDuplicates();
    return lines.join(u'\n');
}

} // namespace saldoro
