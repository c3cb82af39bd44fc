#pragma once

#include "exchange/csv_table.h"

#include <QStringList>

namespace saldoro {

/** What is to be said about the files, one line for each thing. */
struct ImportRemarks
{
    QStringList errors;   ///< nothing is written
    QStringList refusals; ///< nothing is written unless the clerk wants it even so
    QStringList warnings;

    /** @p evenSo: what is refused may be written. */
    bool allowWriting(bool evenSo) const;
    /** All of them with headings, and whether nothing is written; may be empty. */
    QString text(bool evenSo) const;
};

/** Checks the rows of a file: values that are never stored, what stops the program later or
 * confuses a pick, and what calls for attention. @p codes are the rows of the code map that will be
 * in force. */
void CheckRows(const CsvTable &table, const TableRows &codes, ImportRemarks &remarks);

/** The items among @p stored, rows of the contract sheet, that the program has written and that
 *  @p table does not hold: "M0097_3 (Pag. N.3 - Edil Rossi)". */
QStringList LostItems(const CsvTable &table, const TableRows &stored, const TableRows &codes);

} // namespace saldoro
