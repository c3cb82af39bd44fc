#pragma once

#include "common/program_values.h"

#include <QString>

namespace saldoro {

/**
 * The archive with @p payments payments, of 3 allocations and a mandate note each, over 200 cost
 * items; about half of the payments are of either kind. Made at its first use below the folder
 * that SetBenchFolder() named, and then kept: whoever changes it puts it back.
 */
const ProgramValues &BenchArchive(int payments);

/** Root of an archive with @p contracts copies of the project of 40 payments. */
QString BenchContracts(int contracts);

/** Names the folder, which must be on a disk, and points the per-user setting at it. */
void SetBenchFolder(const QString &folder);

} // namespace saldoro
