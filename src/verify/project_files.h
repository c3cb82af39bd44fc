#pragma once

#include "verify/project_data.h"

#include <QString>

namespace saldoro {

/** Where the databases of a project lie; paths of the machine. */
struct ProjectFiles
{
    QString ledger;
    QString contract;
    QString companies;
    QString codes;
};

/** The files of a project folder, with the code map in the tables folder of the same archive
 *  unless @p codes names another file. Names are looked up whatever their letter case; a file that
 *  is not there keeps its usual name. */
ProjectFiles FilesOfProject(const QString &folder, const QString &codes);

/**
 * Reads the databases without changing anything. Missing or damaged files, tables and fields and
 * values that are not of their type become findings. Throws SaldoroError for a file that can't be
 * looked into just now: locked, or with a change that was broken off.
 */
ProjectData ReadProject(const ProjectFiles &files, Findings &findings);

} // namespace saldoro
