#pragma once

#include "test_archive.h"

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

namespace saldoro {

/** Everything of a project that the program writes, in a form that can be compared. */
struct ArchiveState
{
    QString payments;                    ///< rows of Fatture as stored, one a line
    QString allocations;                 ///< rows of Spese
    QMap<QString, QString> items;        ///< rows of SchedaProgetto by Voce
    QMap<QString, QByteArray> documents; ///< whole files by name

    bool operator==(const ArchiveState &) const = default;
};

/** Reads the state of @p archive past the program's own database layer. */
ArchiveState ReadState(const TestArchive &archive);

/** What is wrong with the databases of @p archive themselves; empty when all are sound. */
QStringList DatabaseFaults(const ProgramValues &values);

/** Where two states differ, for a person. */
QString Difference(const ArchiveState &found, const ArchiveState &expected);

/** Makes the files of the project and of the shared tables of @p to those of @p from: databases,
 *  their journals and documents. Files of the program's that a crash left half-written are named
 *  neither way and stay behind. */
void CopyProject(const ProgramValues &from, const ProgramValues &to);

/** Puts a contract into the empty @p archive: twelve cost items, codes, the contractor, companies,
 *  and @p payments payments with allocations and mandate notes. */
void FillProject(TestArchive &archive, int payments);

} // namespace saldoro
