#pragma once

#include "database/database.h"
#include "exchange/csv_table.h"

#include <QList>
#include <QString>

#include <optional>

namespace saldoro {

/** The file of a project in @p folder (a path of the machine), in any letter case; the code map
 * lies beside the projects. One that is not there keeps its usual name. */
QString ArchiveFilePath(ArchiveFile file, const QString &folder);

/** The folder as it was given, or whatever its letter case. Throws FileError when there is none. */
QString ExistingFolder(const QString &given);

/** The stored value of a field, exactly; no value for one that a CSV file can't tell: a day with a
 *  time, bytes that are no text, a value of another type. */
std::optional<NewValue> ExactValue(const FieldDef &field, const FieldValue &stored);

/** "Spese: 41 righe, totale Importo 1.234,56". */
QString TableSummary(const ExchangedTable &table, qsizetype rows, std::optional<Currency> total);

/** Adds up a table's amounts; none once the sum is more than can be told. */
class TableTotal
{
public:
    explicit TableTotal(const ExchangedTable &table);
    /** @param values those of a row, for each field of the table. */
    void add(const QList<NewValue> &values);
    std::optional<Currency> total() const { return m_total; }

private:
    qsizetype m_place = -1;
    std::optional<Currency> m_total;
};

} // namespace saldoro
