#pragma once

#include "exchange/csv_table.h"

#include <QStringList>

#include <map>

namespace saldoro {

/** What is to be said about the files, one line for each thing. */
struct ImportRemarks
{
    QStringList errors;   ///< nothing is written
    QStringList refusals; ///< nothing is written unless the clerk wants it even so
    QStringList warnings;
};

/** External codes by internal ones, in the letter case that databases compare them in. */
using CodeMap = std::map<QString, QString>;

/** A code as the databases compare it: without regard to letter case. */
QString ComparedCode(const QString &code);

/** The rows of a table `Funzioni` as a map; of codes that occur twice the first counts. */
CodeMap CodeMapOf(const QList<QList<NewValue>> &rows);

/** Checks the rows of a file with each other: what the program could not read, what stops it later
 *  and what confuses a pick. @p codes is the code map that will be in force. */
void CheckRows(const CsvTable &table, const CodeMap &codes, ImportRemarks &remarks);

/** The items of the contract sheet that the program has written and that @p table does not hold:
 *  "M0097_3 (Pag. N.3 - Edil Rossi)". @p stored are the rows of the sheet as it is. */
QStringList LostItems(const CsvTable &table, const QList<QList<NewValue>> &stored,
                      const CodeMap &codes);

} // namespace saldoro
