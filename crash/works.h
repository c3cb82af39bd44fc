#pragma once

#include "archive_state.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

namespace saldoro {

/** One piece of the program's work and, worked out apart from it, what it does to the disk. */
struct Work
{
    QString name;
    /** Does it as the program would. Throws SaldoroError. */
    std::function<void(ProgramValues &values)> perform;
    /** Every state that an archive goes through meanwhile, as it was first of all, in the order of
     *  the writes; brings the archive to the last. */
    std::function<QList<ArchiveState>(TestArchive &archive)> states;
    /** File names of the databases that it changes. */
    QStringList databases;
    /** Whether the same work done again after an error brings it to its end. */
    bool isRepeatable = true;
    /** Takes away from the filled project (see FillProject) what the work does not find there. */
    std::function<void(TestArchive &archive)> prepare = {};
};

/** Puts a contract into the empty @p archive: four cost items, the standard codes and payments 1 to
 *  3, the second to a professional, with a mandate note and allocations to all items. */
void FillProject(const TestArchive &archive);

/** Creating the ledger, the main screen's load and its closing work, saves of both kinds, new and
 *  changed, deletions of a payment and of an allocation, an import. */
QList<Work> AllWorks();

} // namespace saldoro
