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

} // namespace saldoro
