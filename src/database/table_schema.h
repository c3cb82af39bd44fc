#pragma once

#include "database/column_info.h"

#include <QString>

#include <memory>
#include <vector>

namespace saldoro {

class DatabaseFile;

/** Whether the file has a table (not a stored query) of that name, letter case ignored. */
bool HasTable(const std::shared_ptr<DatabaseFile> &file, const QString &table);

/** Adds to @p columns of @p table which of them refuse empty texts. */
void CompleteColumns(const std::shared_ptr<DatabaseFile> &file, const QString &table,
                     std::vector<ColumnInfo> &columns);

} // namespace saldoro
