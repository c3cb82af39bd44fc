#pragma once

#include "exchange/archive_tables.h"
#include "exchange/cell_rows.h"
#include "exchange/cell_values.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>
#include <utility>

namespace saldoro {

/** Which field of a table each cell of a row fills. */
struct CellColumns
{
    // Places of cells that fill no field.
    static constexpr qsizetype Unknown = -1;
    static constexpr qsizetype Nameless = -2;

    QList<qsizetype> places = {}; ///< for each cell the place of its field in the table
    qsizetype firstRow = 0;       ///< the one behind the header; 0 without a header
    QStringList missing = {};     ///< needed fields without a cell
    QStringList unknown = {};     ///< names that are no field's
    QStringList doubled = {};     ///< names that stand twice; the second fills no field
    /** Needed fields that a cell of nearly their name fills, with that name. */
    QList<std::pair<QString, QString>> guesses = {};

    /** How far it is from naming all needed fields: less is better. */
    auto lack() const { return std::pair(missing.size(), guesses.size()); }
};

/** Whether a column of that name may well be meant for a needed field. */
bool MayMean(const QString &name, const QString &field);

/** What the heading of a column of codes begins with, in any letter case; it is meant for `Voce`.
 */
inline constexpr QLatin1StringView CodeHeading("cod");

/** Looks among the first rows for the one that names the needed fields of @p table, by their names
 *  in any letter case or, where no row does, by names much like them ("Descrizione" for Descri). */
CellColumns FindColumns(const QList<CellRow> &rows, const ExchangedTable &table);
inline constexpr qsizetype MostHeaderRows = 20; ///< that are looked at

/** The notation that amounts and days are written in throughout: no value where some cells are of
 *  one and some of the other, or none tells. Cells that are no values do not count. */
std::optional<Notation> ToldNotation(const QList<CellRow> &rows, const CellColumns &columns,
                                     const ExchangedTable &table);

/** Rows for a table, wherever they come from. */
struct GivenTable
{
    const ExchangedTable *table = nullptr;
    QStringList fields;  ///< of the table that the rows name; the others are null
    QString source = {}; ///< name of a file, or of what else the rows come from
    TableRows rows = {};
    QList<int> lines = {}; ///< of the source that the rows begin on

    /** "Spese.csv, riga 12"; without lines the rows count from 1. */
    QString rowName(qsizetype row) const;
};

/**
 * Reads the rows behind the header; those without any value are passed over. @p stored is the
 * table as the archive defines it. A value that it can't hold is a fault; the row then holds an
 * invalid day in its place. A short row is accepted if the missing fields may be null and the last
 * row has all its cells. Without a notation values are read in Italian, and an amount that would be
 * another one in the other notation is a fault.
 *
 * Throws FieldMissing when @p stored lacks one of the table's fields.
 */
GivenTable TypedRowsOf(const QList<CellRow> &rows, const CellColumns &columns,
                       const ExchangedTable &table, TableDef stored,
                       std::optional<Notation> notation, QList<CellFault> &faults);

} // namespace saldoro
