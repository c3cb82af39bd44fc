#pragma once

#include "verify/findings.h"

#include <QString>

namespace saldoro {

/**
 * Reads the databases of the project in @p folder (of the machine) without changing anything and
 * applies every check. Missing or damaged files, tables and fields are findings too. The code map
 * is that of the same archive unless @p codes names another file. Throws SaldoroError for a file
 * that can't be looked into just now: locked, or with a change that was broken off.
 */
Findings VerifyProject(const QString &folder, const QString &codes = {});

} // namespace saldoro
