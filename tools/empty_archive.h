#pragma once

#include "common/program_values.h"

#include <QString>

namespace saldoro {

/**
 * Makes a project below @p root (a machine path) as the suite would: the folders, its databases
 * with their tables, an empty ledger, and the shared codes where they are not there yet.
 *
 * @return ArchiveRoot and ProjectCode for programs that work on it. Throws SaldoroError.
 */
ProgramValues MakeEmptyArchive(const QString &root, const QString &projectCode);

/** Adds all codes of UsedCodes with their standard items. Throws std::runtime_error. */
void AddStandardCodes(const ProgramValues &values);

} // namespace saldoro
