#pragma once

#include "database/record_set.h"
#include "exchange/csv_reader.h"
#include "store/suite_tables.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace saldoro {

/** A table that a CSV file fills. */
struct ExchangedTable
{
    ArchiveFile archive;
    TableDef definition;
    QStringList neededFields; ///< of a file
    QString summedField;      ///< whose total is told; empty where there is no amount

    const QString &name() const { return definition.name(); }
    QString fileName() const { return name() + QStringLiteral(".csv"); }
};

/** The eight tables, those of one database next to each other. */
const std::vector<ExchangedTable> &ExchangedTables();

/** A row of a file: a value for each field of the table, null where the file has none. */
struct CsvRecord
{
    int line = 0;
    QList<NewValue> values;
};

/** What a file holds for its table. */
struct CsvTable
{
    const ExchangedTable *table = nullptr;
    QString file; ///< its name
    std::vector<CsvRecord> records;
    QStringList unknownFields; ///< named in the first line and left out

    /** Place of a field in the records. */
    int column(const QString &field) const;
    /** "Spese.csv, riga 12, campo Importo: ". */
    QString place(const CsvRecord &record, const QString &field) const;
};

/** Told how much of a file has been read. */
using ReadProgress = std::function<void(qsizetype done, qsizetype whole)>;

/**
 * Reads the file at @p path (of the machine) for @p table. What can't be stored in a table that is
 * defined as @p stored, and what can't be read, is added to @p errors, one line for each. Throws
 * FileError.
 */
CsvTable ReadCsvTable(const QString &path, const ExchangedTable &table, const TableDef &stored,
                      QStringList &errors, const ReadProgress &progress);

} // namespace saldoro
