#include "store/archive_creation.h"

#include "store/table_definitions.h"

#include <QStringBuilder>

namespace saldoro {

namespace {

/** General sort order, code page 1252. */
constexpr QStringView archiveLocale = u";LANGID=0x0409;CP=1252;COUNTRY=0";

} // namespace

Database CreateLedgerDatabase(const QString &projectFolder)
{
    const QString path = projectFolder % u'\\' % ArchiveFileName::Ledger;
    Database::requireNoJournal(path);
    // The file is made and let go of, then opened as everyone else opens it: whatever stands in
    // the way of that shows here and not at the first payment.
    Database::create(path, archiveLocale.toString());
    Database ledger = Database::open(path);
    for (const TableDef &table : TablesOf(ArchiveFile::Ledger))
        ledger.appendTableDef(table);
    return ledger;
}

Database CreateArchiveFile(const QString &path, ArchiveFile file)
{
    Database database = Database::create(path, archiveLocale.toString());
    Transaction transaction(database);
    for (const TableDef &table : TablesOf(file))
        database.appendTableDef(table);
    transaction.commit();
    return database;
}

} // namespace saldoro
