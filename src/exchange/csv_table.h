#pragma once

#include "exchange/archive_tables.h"
#include "exchange/cell_rows.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace saldoro {

/** What a file holds for its table. */
struct CsvTable
{
    const ExchangedTable *table = nullptr;
    QString file; ///< its name
    TableRows rows;
    QList<int> lines = {};          ///< that the rows begin on
    QStringList fields = {};        ///< of the table that the rows tell; empty for all of them
    QStringList unknownFields = {}; ///< named in the header and left out
    QStringList warnings = {};      ///< what calls for attention, a line each

    /** "Spese.csv, riga 12"; without lines the rows count from 1. */
    QString rowName(qsizetype row) const;
};

/**
 * Reads the file at @p path (of the machine) for @p table: ";" and the Italian notation, or "," and
 * the international one, below a header that names the fields. What can't be read, or can't be
 * stored in a table that is defined as @p stored, is added to @p errors, one line for each and of
 * each field the first twenty. Throws FileError, and FieldMissing when the definition lacks one of
 * the table's fields.
 */
CsvTable ReadCsvTable(const QString &path, const ExchangedTable &table, const TableDef &stored,
                      QStringList &errors);

/** The rows of cells of a file that may name the fields of @p table in a header, or not. What can't
 *  be read is added to @p errors. Throws FileError. */
QList<CellRow> ReadCsvRows(const QString &path, const ExchangedTable &table, QStringList &errors);

} // namespace saldoro
