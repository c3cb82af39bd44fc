#include "archive_state.h"

#include "database/database.h"
#include "platform/machine_path.h"

#include <QDir>
#include <QFile>

#include <stdexcept>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QDir projectDir(const ProgramValues &values)
{
    return QDir(MachinePath(ProjectFolder(values)));
}

QDir tablesDir(const ProgramValues &values)
{
    return QDir(MachinePath(values.ArchiveRoot + ArchiveFolders::Tabelle.toString()));
}

QMap<QString, QByteArray> documentsOf(const ProgramValues &values)
{
    QMap<QString, QByteArray> documents;
    const QDir folder = projectDir(values);
    for (const QString &name : folder.entryList({u"*.rtf"_s}, QDir::Files)) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            throw std::runtime_error("cannot read " + file.fileName().toStdString());
        documents.insert(name, file.readAll());
    }
    return documents;
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

template <class Map>
void addDifference(QStringList &lines, const Map &found, const Map &expected)
{
    for (const auto &key : (found.keys() + expected.keys())) {
        if (found.value(key) == expected.value(key))
            continue;
        const auto shown = [&key](const Map &map) {
            return map.contains(key) ? QString(map.value(key)).left(4000) : u"(none)"_s;
        };
        lines += key + u": found "_s + shown(found) + u"\n    expected "_s + shown(expected);
    }
    lines.removeDuplicates();
}

} // namespace

ArchiveState ReadState(const TestArchive &archive)
{
    ArchiveState state;
    state.payments = archive.ledgerRows(u"SELECT * FROM Fatture ORDER BY rowid"_s);
    state.allocations = archive.ledgerRows(u"SELECT * FROM Spese ORDER BY rowid"_s);
    const QString items = archive.contractRows(u"SELECT * FROM SchedaProgetto ORDER BY rowid"_s);
    for (const QString &row : items.split(u'\n', Qt::SkipEmptyParts))
        state.items.insert(row.section(u'|', 0, 0), row);
    state.documents = documentsOf(archive.values());
    return state;
}

QStringList DatabaseFaults(const ProgramValues &values)
{
    QStringList faults;
    for (const QString &path :
         {LedgerPath(values), ContractPath(values), CompaniesPath(values), CodesPath(values)}) {
        for (const QString &fault : Database::open(path).integrityReport())
            faults += path + u": "_s + fault;
    }
    return faults;
}

QString Difference(const ArchiveState &found, const ArchiveState &expected)
{
    QStringList lines;
    if (found.payments != expected.payments)
        lines += u"Fatture: found\n"_s + found.payments + u"\n    expected\n"_s + expected.payments;
    if (found.allocations != expected.allocations)
        lines +=
            u"Spese: found\n"_s + found.allocations + u"\n    expected\n"_s + expected.allocations;
    addDifference(lines, found.items, expected.items);
    addDifference(lines, found.documents, expected.documents);
    return lines.join(u'\n');
}

void CopyProject(const ProgramValues &from, const ProgramValues &to)
{
    copyFolder(projectDir(from), projectDir(to));
    copyFolder(tablesDir(from), tablesDir(to));
}

void FillProject(TestArchive &archive, int payments)
{
    ArchiveBuilder &build = archive.build();
    build.addStandardCodes();
    for (int item = 1; item <= 12; ++item)
        build.addBudgetItem(u"A%1"_s.arg(item), u"Voce di spesa numero %1 à è"_s.arg(item),
                            Currency::fromWhole(qint64{10000} * item));
    build.addSheetItem({{u"Voce"_s, u"D0101"_s}, {u"Stringa"_s, u"Édil D'Arco"_s}, {u"Link"_s, 7}});
    build.addCompany(7, u"Édil D'Arco"_s, u"ATI"_s);
    build.addParticipant(1, 7);
    for (int number = 1; number <= payments; ++number) {
        FieldList fields = {{u"AziProf"_s, number % 2 ? u"A"_s : u"P"_s},
                            {u"Npag"_s, number},
                            {u"Creditore"_s, u"Creditore %1"_s.arg(number)},
                            {u"Del"_s, QDate(2021, number % 12 + 1, 7)}};
        for (const QString &column :
             {u"Aliquota"_s, u"Importo"_s, u"ImportoIVA"_s, u"AliquotaRA"_s, u"ImportoPrest"_s,
              u"Contributo"_s, u"CassaPrev"_s, u"ImportoRA"_s, u"AltriImporti01"_s})
            fields.append({column, Currency::fromWhole(number)});
        build.addPayment(fields);
        for (int item = 1; item <= 4; ++item)
            build.addAllocation(number, u"A%1"_s.arg(item), u"Voce di spesa"_s,
                                Currency::fromWhole(qint64{10} * item + number));
        build.addSheetItem({{u"Voce"_s, u"M0097_%1"_s.arg(number)},
                            {u"Stringa"_s, u"Mandato nr.5 del 01/02/2021"_s}});
    }
}

} // namespace saldoro
