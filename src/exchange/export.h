#pragma once

#include <QString>

namespace saldoro {

/**
 * Writes the eight tables of a project as CSV files in the Italian dialect, in UTF-8 with a mark,
 * and gives rows and total of each as text. Both folders are paths of the machine; that of the
 * files is made when it is not there. Nothing is written when a file is there already (unless
 * @p overwrite) or a stored value can't be told in CSV. Throws SaldoroError.
 */
QString ExportProject(const QString &projectFolder, const QString &csvFolder,
                      bool overwrite = false);

} // namespace saldoro
