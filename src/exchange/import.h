#pragma once

#include <QString>
#include <QStringList>

namespace saldoro {

/** What is to be read in, and where to; folders of the machine. */
struct ImportRequest
{
    QString csvFolder;
    QString projectFolder;
    bool createProject = false; ///< makes the project's folders, and the setting when there is none
    bool evenSo = false;        ///< also what stops the program later or confuses a pick
    QStringList replacedTables; ///< tables whose rows make way for those of the file
};

/** What has become of it. */
struct ImportOutcome
{
    bool isDone = false; ///< false: the files would not do, and nothing was written
    QString remarks;     ///< all that is wrong or calls for attention, a line each; may be empty
    QString summary;     ///< what was written, with rows and total of each table
};

/**
 * Fills the tables of a project from the CSV files of a folder, each named for its table. Databases
 * that are missing are made. Everything is read and checked first, then a copy put beside each
 * database that is to change; then each changes as a whole, the new ones first. Tables that are
 * already as in their file are passed over, so an import that was broken off goes on when it is run
 * again.
 *
 * Throws SaldoroError for what is not the fault of the files.
 */
ImportOutcome ImportProject(const ImportRequest &request);

} // namespace saldoro
