#pragma once

#include <QString>

namespace saldoro {

/**
 * Writes the eight tables of a project as CSV files in the Italian notation, in UTF-8 with a mark,
 * each database as it stands at one moment. Returns one line for each table: rows, total, columns
 * left out. A first line tells of an earlier export that was cut short. Both folders are as
 * GivenFolder() takes them; that of the files is made when it is not there.
 *
 * Throws SaldoroError, with no file changed, for a file that is there already or the mark of an
 * export that was cut short (unless @p overwrite), for a stored value that a CSV cell can't
 * express, and for a file that can't be written whole or evidently can't be replaced; also what the
 * watcher of Progress throws. If a renaming fails or the process dies, every file is the old or the
 * new one, never half of one. A mark then stays in the folder, and the error names the files that
 * are new.
 */
QString ExportProject(const QString &projectFolder, const QString &csvFolder,
                      bool overwrite = false);

/** Whether the folder has files that an export replaces, or the mark of an export that did not come
 *  to its end. */
bool HasExportedFiles(const QString &csvFolder);

/** Throws FileError when the folder has the mark of an export that did not come to its end. */
void RefuseUnfinishedExport(const QString &csvFolder);

} // namespace saldoro
