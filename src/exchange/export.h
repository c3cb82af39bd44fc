#pragma once

#include <QString>

namespace saldoro {

/** What is to be written out, and where to; folders of the machine. */
struct ExportRequest
{
    QString projectFolder;
    QString csvFolder; ///< made when it is not there
    bool overwrite = false;
};

/**
 * Writes the eight tables of a project as CSV files in the Italian dialect, in UTF-8 with a mark,
 * and gives rows and total of each as text. Nothing is written when a file is there already (unless
 * it may be replaced) or a stored value can't be told in CSV. Throws SaldoroError.
 */
QString ExportProject(const ExportRequest &request);

} // namespace saldoro
