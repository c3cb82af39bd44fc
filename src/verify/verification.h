#pragma once

#include "store/archive_paths.h"
#include "verify/findings.h"
#include "verify/project_rows.h"

#include <QString>

namespace saldoro {

/** One check of a project, from its databases as they are when they are read. */
class Verification
{
public:
    /** Reads the tables of a database. What can't be read is a finding, and so are triggers and
     *  tables that can't be written although the program writes them. Throws DatabaseError for a
     *  file that is locked or that can't be read without being changed (Locked, ReadOnly),
     *  FileError for one with a change that was broken off, and what the watcher of Progress
     *  throws. */
    void read(const Database &database, ArchiveFile file);

    /** The tables that could be read. */
    const ProjectTables &tables() const { return m_tables; }
    /** Applies every check; finds what read() found, too. Throws what the watcher of Progress
     *  throws. */
    Findings check() const;

private:
    friend Findings VerifyProject(const QString &folder, const QString &codes);
    template <typename Action>
    void guarded(const QString &path, const Action &action);
    void tryWriting(const Database &database, ArchiveFile file);
    void tryFolder(const QString &folder);
    void addOfFile(const QString &path, const QString &problem);

    ProjectTables m_tables;
    Findings m_ofFiles;
};

/**
 * Reads the databases of the project in @p folder (of the machine) without changing anything and
 * applies every check. What the next save writes is tried on a copy in memory of the ledger and the
 * contract if they were read without a finding; a file that can't be written is a finding, and so
 * is a folder that takes no new file, of which one is made for a moment. Missing or damaged files,
 * tables and fields are findings too. The code map is that of the same archive unless @p codes
 * names another file. Shows its Progress. Throws as Verification::read(), and FileError when the
 * write-ahead log of another database lies beside one.
 */
Findings VerifyProject(const QString &folder, const QString &codes = {});

} // namespace saldoro
