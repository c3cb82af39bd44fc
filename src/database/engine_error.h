#pragma once

#include "common/errors.h"

#include <QString>

#include <optional>

namespace saldoro {

/** What keeps the file at @p path (of the machine) from being opened as a database, as far as that
 *  shows from outside. The engine itself takes an empty file for an empty database, and does not
 *  tell a folder, a file without the right to read it and a missing file apart. */
std::optional<DatabaseFault> FileFault(const QString &path);

/**
 * Throws the DatabaseError that stands for the result code @p code of the engine; std::bad_alloc
 * when that is out of memory. The Italian texts are those of common/errors.cpp.
 *
 * @param message the engine's own words, from which names of tables and fields are taken
 * @param path the file, as a path of the machine
 * @param table the table that the action is about; empty for several or none
 */
[[noreturn]] void ThrowEngineError(int code, const QString &message, const QString &path,
                                   const QString &table);

} // namespace saldoro
