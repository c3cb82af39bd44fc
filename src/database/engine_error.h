#pragma once

#include <QString>

namespace saldoro {

/**
 * Throws the DatabaseError that stands for the result code @p code of the engine; std::bad_alloc
 * when that is out of memory.
 *
 * @param message the engine's own words; names of tables and fields are taken from them.
 * @param path the file, as a path of the machine.
 * @param table the table in work, or empty when several or none.
 */
[[noreturn]] void ThrowEngineError(int code, const QString &message, const QString &path,
                                   const QString &table);

} // namespace saldoro
