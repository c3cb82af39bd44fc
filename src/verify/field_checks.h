#pragma once

#include "database/record_set.h"
#include "database/table_def.h"
#include "verify/project_data.h"

namespace saldoro {

/** Reads a field without stopping at a null or at a value of another type. */
Stored<QString> ReadText(const RecordSet &records, int column);
Stored<Currency> ReadAmount(const RecordSet &records, int column);
Stored<qint32> ReadWhole(const RecordSet &records, int column);

/**
 * Compares the values of the current record with the definition of its table: type, number within
 * its range, text no longer than its field, no empty text where none is accepted. @p place names
 * the record. Nulls are not looked at.
 */
void CheckFields(const RecordSet &records, const TableDef &table, const QString &place,
                 Findings &findings);

} // namespace saldoro
