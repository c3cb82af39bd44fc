#include "archive_state.h"

#include "bare_file.h"
#include "database/database.h"
#include "platform/machine_path.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <stdexcept>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QDir projectDir(const ProgramValues &values)
{
    return QDir(MachinePath(ProjectFolder(values)));
}

void copyFolder(const QDir &from, const QDir &to)
{
    const QStringList kinds = {u"*.mdb"_s, u"*.mdb-journal"_s, u"*.rtf"_s};
    for (const QString &name : to.entryList(kinds, QDir::Files))
        QFile::remove(to.filePath(name));
    for (const QString &name : from.entryList(kinds, QDir::Files)) {
        if (!QFile::copy(from.filePath(name), to.filePath(name)))
            throw std::runtime_error("cannot copy " + name.toStdString());
    }
}

} // namespace

ArchiveState ReadState(const TestArchive &archive)
{
    ArchiveState state;
    state[u"UltimaPerVariante"_s] =
        archive.contractRows(u"SELECT * FROM UltimaPerVariante ORDER BY rowid"_s);
    const QString items = archive.contractRows(u"SELECT * FROM SchedaProgetto ORDER BY rowid"_s);
    for (const QString &row : items.split(u'\n', Qt::SkipEmptyParts))
        state[row.section(u'|', 0, 0)] += row;
    if (ArchivePathExists(LedgerPath(archive.values()))) {
        state[u"tabelle"_s] = archive.ledgerRows(u"SELECT name FROM sqlite_master"_s);
        for (const QString &table : state[u"tabelle"_s].split(u'\n', Qt::SkipEmptyParts))
            state[table] =
                archive.ledgerRows(u"SELECT * FROM %1 ORDER BY rowid"_s.arg(table)) + u'\n';
    }
    const QDir folder = projectDir(archive.values());
    for (const QString &name : folder.entryList({u"*.rtf"_s}, QDir::Files)) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            throw std::runtime_error("cannot read " + file.fileName().toStdString());
        state[name] = QString::fromLatin1(file.readAll());
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

QString DatabaseFaults(const ProgramValues &values)
{
    QString faults;
    for (const QString &path :
         {LedgerPath(values), ContractPath(values), CompaniesPath(values), CodesPath(values)}) {
        if (QFileInfo(MachinePath(path)).size() == 0)
            continue;
        Database::open(path).close();
        const QString report = BareFile(path).rows(u"PRAGMA integrity_check"_s);
        if (report != "ok"_L1)
            faults += path + u": "_s + report + u'\n';
    }
    return faults;
}

void CopyProject(const ProgramValues &from, const ProgramValues &to)
{
    const auto tables = [](const ProgramValues &values) {
        return QDir(MachinePath(values.ArchiveRoot + ArchiveFolders::Tabelle.toString()));
    };
    copyFolder(projectDir(from), projectDir(to));
    copyFolder(tables(from), tables(to));
}

void FillProject(TestArchive &archive)
{
    archive.build().addStandardCodes();
    QString contract =
        u"INSERT INTO SchedaProgetto(Voce, Stringa, Link) VALUES('D0101', 'Édil D''Arco', 7);"_s;
    for (int item = 1; item <= 12; ++item)
        contract += u"INSERT INTO UltimaPerVariante(Voce, Descri, Importo) VALUES('A%1', "
                    "'Voce di spesa numero %1 à è', %1 * 10000);"_s.arg(item);
    QString ledger;
    for (int number = 1; number <= 3; ++number) {
        contract += u"INSERT INTO SchedaProgetto(Voce, Stringa) VALUES('M0097_%1', 'Mandato nr.5 "
                    "del 01/02/2021');"_s.arg(number);
        ledger += u"INSERT INTO Fatture SELECT iif(%1 = 2, 'P', 'A'), %1, 'Creditore %1', NULL, "
                  "'2021-0%1-07', NULL, NULL, %1, %1, %1, %1, %1, %1, %1, %1, %1;"_s.arg(number);
        for (int item = 1; item <= 4; ++item)
            ledger +=
                u"INSERT INTO Spese VALUES(%1, 'A%2', 'Voce di spesa', %1 * 10000 + %2 * 100);"_s
                    .arg(number)
                    .arg(item);
    }
    archive.execute(ContractPath(archive.values()), contract);
    archive.execute(CompaniesPath(archive.values()),
                    u"INSERT INTO Anag VALUES(7, 'Édil D''Arco', 'ATI'); "
                    "INSERT INTO Partecip VALUES(1, 7)"_s);
    archive.execute(LedgerPath(archive.values()), ledger);
}

} // namespace saldoro
