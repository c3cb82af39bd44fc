#pragma once

#include "exchange/budget_changes.h"
#include "exchange/csv_table.h"
#include "verify/findings.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace saldoro {

/** How an import goes about a project. */
struct ImportOptions
{
    bool createProject = false; ///< makes the project's folders, and the setting when there is none
    bool evenSo = false;        ///< writes also what is refused
    QStringList replacedTables; ///< tables whose rows make way for the new ones
};

/** What has become of it. */
struct ImportOutcome
{
    bool isDone = false;             ///< false: nothing was written
    Findings errors = {};            ///< for which nothing is ever written
    Findings refusals = {};          ///< for which nothing is written unless it is wanted even so
    Findings known = {};             ///< which were there before; no reason to refuse
    QStringList warnings = {};       ///< what was passed over, a line each
    QList<BudgetChange> budget = {}; ///< what changes, or would, where there was a budget
    QStringList copies = {};         ///< paths of the databases as they were, where one has changed
    QString summary = {};            ///< what was written, with rows and total of each table

    /** All of it but the summary, with headings; may be empty. */
    QString remarks() const;
};

/**
 * Fills tables of the project in @p projectFolder (of the machine) with rows from anywhere; only
 * the texts tell where a row came from. Databases that are missing are made. A row goes in in its
 * order and takes over what its table does not name from the stored row of the same key. Tables
 * that are already so are passed over.
 *
 * Everything happens in one transaction over all databases, which ends only when the project has
 * been checked as it will be and a copy stands beside each database that changes. A try that
 * changes nothing leaves nothing. Throws SaldoroError, nothing being written then.
 */
ImportOutcome ImportTables(const QString &projectFolder, const QList<CsvTable> &tables,
                           const ImportOptions &options);

/** Fills tables with the CSV files of a folder (of the machine), each named for its table. Throws
 *  as ImportTables(). */
ImportOutcome ImportFiles(const QString &projectFolder, const QString &csvFolder,
                          const ImportOptions &options);

} // namespace saldoro
