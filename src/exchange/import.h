#pragma once

#include "exchange/import_outcome.h"
#include "exchange/typed_rows.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace saldoro {

/** How an import goes about a project. */
struct ImportOptions
{
    bool createProject = false; ///< makes the project's folders, and the setting when there is none
    bool evenSo = false;        ///< writes also what is refused
    QStringList replacedTables; ///< tables whose rows the new ones replace
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
ImportOutcome ImportTables(const QString &projectFolder, const QList<GivenTable> &tables,
                           const ImportOptions &options);

/** As ImportTables(), for a project that is not there yet: its folder appears when it is complete,
 *  even if the program dies. */
ImportOutcome CreateProject(const QString &projectFolder, const GivenTable &table, bool evenSo);

} // namespace saldoro
