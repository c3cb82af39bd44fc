#pragma once

#include "test_archive.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

namespace saldoro {

/** One piece of the program's work. */
struct Work
{
    QString name;
    /** Does it as the program would. Throws SaldoroError. */
    std::function<void(ProgramValues &values)> perform;
    /** What it changes, write by write: patterns for the keys of an ArchiveState (see
     *  fault_trial.h). */
    QStringList writes;
    /** File names of the databases that it changes. */
    QStringList databases;
    /** Whether the same work done again after an error brings it to its end. */
    bool isRepeatable = true;
    /** Makes of the FilledProject() what the work is to find. */
    std::function<void(TestArchive &archive)> prepare = {};
    /** Copies of databases as they were that it leaves beside them. */
    int copies = 0;
    /** A file that stands in the project's folder as long as its files are partly old. */
    QString mark = {};
};

/** A project with payments 1 and 2, the latter to a professional, with a mandate note and four
 *  allocations. */
TestArchive FilledProject();

/** Creating the ledger, the main screen's load and its closing work, saves of both kinds, new and
 *  changed, deletions of a payment and of an allocation, imports into a project and into a new one,
 *  an export, values set. */
QList<Work> AllWorks();

} // namespace saldoro
