#pragma once

#include "database/criterion.h"
#include "database/field_value.h"

#include <QHash>
#include <QList>

#include <map>
#include <memory>
#include <memory_resource>
#include <vector>

namespace saldoro {

class Statement;

/** What is written of a record: the place of the field and the value. */
using RecordChanges = std::map<int, StoredValue>;

/**
 * The records of a record set as read from the file, with what was changed through the set since.
 * Records are numbered from 0 in their order; a removed one keeps its number and is passed over.
 */
class RecordRows
{
public:
    static constexpr int NoRow = -1;

    explicit RecordRows(QList<FieldDef> fields)
        : m_fields(std::move(fields))
    {
    }

    const QList<FieldDef> &fields() const { return m_fields; }

    /** Where the texts of the records lie, as long as these live. */
    std::pmr::memory_resource &texts() const { return *m_texts; }

    /** Adds the current row of @p query, whose fields begin at its column @p first. */
    void read(const Statement &query, int first, qint64 rowId);

    const StoredValue &value(int row, int column) const
    {
        return m_values[static_cast<size_t>(row) * static_cast<size_t>(m_fields.size()) +
                        static_cast<size_t>(column)];
    }
    qint64 rowId(int row) const { return m_rowIds[static_cast<size_t>(row)]; }
    int count() const { return static_cast<int>(m_rowIds.size()); }
    int liveCount() const { return m_liveCount; }

    /** The first record after @p row (NoRow for the very first) that was not removed, or NoRow. */
    int nextLive(int row) const;
    /** The last record that was not removed, or NoRow. */
    int lastLive() const;

    /** Follows what was written: a new record comes last, a changed one stays in its place. */
    void append(const RecordChanges &values, qint64 rowId);
    void replace(int row, const RecordChanges &values);
    void remove(int row);

    /** The first record after @p row whose field meets @p criterion, or NoRow. Whole numbers are
     *  compared with numbers only, texts with the plain text of the value. */
    int nextMatch(int row, int column, const Criterion &criterion);

private:
    using Index = QHash<QByteArray, QList<int>>;

    template <typename Meets>
    int nextThat(int row, int column, const Meets &meets) const;
    QByteArray comparableText(const StoredValue &value, int column) const;
    int nextEqual(int row, int column, const QString &text);
    const Index &indexOf(int column);

    QList<FieldDef> m_fields;
    std::unique_ptr<std::pmr::monotonic_buffer_resource> m_texts =
        std::make_unique<std::pmr::monotonic_buffer_resource>();
    std::vector<StoredValue> m_values; ///< record after record
    std::vector<qint64> m_rowIds;
    int m_liveCount = 0;
    bool m_isWritten = false;    ///< then nothing is indexed any more
    QHash<int, Index> m_indexes; ///< by column: the records of each text, made when first asked for
};

} // namespace saldoro
