#pragma once

#include "test_archive.h"

#include <QMap>
#include <QString>

namespace saldoro {

/**
 * Everything of a project that the program writes, as texts that can be compared: under the name
 * of a table its rows as stored, one a line, under "tabelle" the names of the ledger's tables,
 * under its key each item of the contract sheet, under its name each document. What a file is not
 * there for has no entry.
 */
using ArchiveState = QMap<QString, QString>;

/** Reads the state of @p archive past the program's own database layer. */
ArchiveState ReadState(const TestArchive &archive);

/** Where two states differ, for a person. */
QString Difference(const ArchiveState &found, const ArchiveState &expected);

/** Opens each database as the program does, which undoes what a crash has left half done, and tells
 *  what is wrong with it then; empty when all are sound. A file without content is passed over. */
QString DatabaseFaults(const ProgramValues &values);

/** Makes the files of the project and of the shared tables of @p to those of @p from: databases,
 *  their journals and documents. Files of the program's that a crash left half-written are named
 *  neither way and stay behind. */
void CopyProject(const ProgramValues &from, const ProgramValues &to);

/** Puts a contract into the empty @p archive: twelve cost items, codes, the contractor, companies,
 *  and payments 1 to 3, the second to a professional, each with allocations to the first four items
 *  and a mandate note. */
void FillProject(TestArchive &archive);

} // namespace saldoro
