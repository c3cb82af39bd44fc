#pragma once

#include "database/table_def.h"

#include <QString>

namespace saldoro {

/** The statement that creates the table @p table in a file. */
QString CreateTableSql(const TableDef &table);

} // namespace saldoro
