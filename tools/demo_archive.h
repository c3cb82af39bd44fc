#pragma once

#include <QString>

namespace saldoro {

/** Makes the demo contract (demo_tables.h) as project @p projectCode of the archive below @p root,
 *  a machine path. The project must not be there yet. Throws SaldoroError. */
void MakeDemoProject(const QString &root, const QString &projectCode);

} // namespace saldoro
