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
    bool createProject = false; ///< makes the project's folders; sets the archives root if unset
    bool evenSo = false;        ///< writes in spite of refusals
    QStringList replacedTables; ///< tables whose rows the new ones replace
};

/**
 * Fills tables, one at least, of the project in @p folder (of the machine) with rows from anywhere;
 * the name of their source appears in messages only. The folder is there, or it is that of a
 * ProjectPlace. Databases that are missing are made. Rows keep their order, and take the fields
 * that they do not name from the stored row of the same key. Tables that hold the rows already are
 * passed over.
 *
 * Everything happens in one transaction over all databases. Before it ends the project is checked
 * as it will be, and a copy is put beside each database that changes. A new project's folder gets
 * its name when it is complete. A refused import leaves no files. If that renaming fails, two
 * things stay: the folders above the project's, and what was written into an existing code map; the
 * error names the copy of the old one. If the process dies, what it has made aside stays, see
 * AsideName(). Throws SaldoroError, also for a new folder whose name can't be a contract's code,
 * and what the watcher of Progress throws; nothing else is written then.
 */
ImportOutcome ImportTables(const QString &folder, const QList<GivenTable> &tables,
                           const ImportOptions &options);

} // namespace saldoro
