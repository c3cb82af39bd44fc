#pragma once

#include "database/table_def.h"
#include "store/archive_paths.h"
#include "store/table_rows.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace saldoro {

/** A table that a CSV file fills. */
struct ExchangedTable
{
    TableDef definition;
    /** Fields that a header must name. Which of their values may be missing: typed_rows. */
    QStringList neededFields;
    // Unused in a list that belongs to no database.
    ArchiveFile archive = {};
    QStringList keyFields = {}; ///< that identify a row

    const QString &name() const { return definition.name(); }
    QString fileName() const { return name() + QStringLiteral(".csv"); }
    QStringList fieldNames() const;
    /** Index of a field, by its name in any letter case, among those of a row; -1 for none. */
    qsizetype indexOf(const QString &field) const { return definition.indexOf(field); }
    /** Whether its rows have amounts that add up. */
    bool hasAmounts() const { return indexOf(QStringLiteral("Importo")) >= 0; }
};

/** The eight tables in the order of ArchiveFileList, and of TablesOf() within a database. */
const std::vector<ExchangedTable> &ExchangedTables();

/** The one of that name, in any letter case; null for none. */
const ExchangedTable *TableNamed(const QString &name);

/** The fields that a database has in the table beside those of @p table; none when it lacks the
 *  table. */
QStringList UnknownFields(const Database &database, const ExchangedTable &table);

/** The sum of `Importo` over rows of a table that has it, nulls being 0: "1.234,56", or "fuori
 *  misura". */
QString TotalText(const ExchangedTable &table, const TableRows &rows);

/** The rows of a code map that is made without the suite. */
TableRows StandardCodeRows();

/** Counts rows and, where the table has amounts, adds them up: "Spese: 41 righe, totale Importo
 *  1.234,56". */
QString SummaryOf(const ExchangedTable &table, const TableRows &rows);

} // namespace saldoro
