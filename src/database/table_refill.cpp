#include "database/table_refill.h"

#include "common/errors.h"
#include "database/sql_text.h"

#include <array>
#include <cstddef>
#include <memory_resource>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {
const QLatin1StringView asideName("temp.\"Saldoro aside\"");
}

TableRefill::TableRefill(const Database &database, const QString &table, const QStringList &fields)
    : m_file(database.m_file)
    , m_table(table)
{
    const QString target = QualifiedName(m_file->schema(), table);
    const QList<FieldDef> all = Statement(m_file, u"SELECT * FROM "_s + target, table).fields(0);
    for (const QString &field : fields) {
        const qsizetype at = IndexOfField(all, field);
        if (at < 0)
            throw DatabaseError(DatabaseFault::FieldMissing, m_file->path(), table, field);
        m_fields.append(all[at]);
    }
    // Fields that the file computes are not in this list, and can't be written.
    QStringList others;
    Statement written(
        m_file, u"PRAGMA %1.table_info(%2)"_s.arg(m_file->schema(), QuotedName(table)), table);
    while (written.step()) {
        if (!fields.contains(written.text(1), Qt::CaseInsensitive))
            others.append(QuotedName(written.text(1)));
    }
    if (!others.isEmpty()) {
        if (RowIdName(all).isEmpty()) // nothing left to tell its records apart by
            throw DatabaseError(DatabaseFault::ReadOnly, m_file->path(), table);
        Statement(m_file, u"CREATE TABLE %1 AS SELECT * FROM %2"_s.arg(asideName, target), table)
            .run();
    }
    Database(m_file).deleteAll(table);
    m_insert.emplace(m_file, InsertSql(target, fields), table);
    if (others.isEmpty())
        return;
    QStringList names = others;
    for (const QString &field : fields)
        names.append(QuotedName(field));
    m_carry.emplace(m_file,
                    u"INSERT OR ABORT INTO %1 (%2) SELECT %3%4 FROM %5 WHERE %6 = ?"_s.arg(
                        target, names.join(u", "_s), others.join(u", "_s),
                        u", ?"_s.repeated(fields.size()), asideName, RowIdName(all)),
                    table);
}

TableRefill::~TableRefill()
{
    if (!m_carry)
        return;
    m_carry.reset();
    try {
        Statement(m_file, u"DROP TABLE "_s + asideName).run();
    } catch (const std::exception &) {
        // It goes with the connection at the latest.
    }
}

void TableRefill::add(const QList<NewValue> &values, std::optional<qsizetype> former)
{
    Statement &statement = former && m_carry ? *m_carry : *m_insert;
    std::array<std::byte, 1024> room; // enough for most records
    std::pmr::monotonic_buffer_resource texts(room.data(), room.size());
    for (int at = 0; at < m_fields.size(); ++at) {
        const auto form = StoredForm(m_fields[at], values[at], texts);
        if (const auto *fault = std::get_if<DatabaseFault>(&form))
            throw DatabaseError(*fault, m_file->path(), m_table, m_fields[at].name);
        statement.bind(at + 1, std::get<StoredValue>(form));
    }
    if (former && m_carry)
        statement.bind(static_cast<int>(m_fields.size()) + 1, qint64{*former + 1});
    if (statement.run() != 1)
        throw DatabaseError(DatabaseFault::NotStored, m_file->path(), m_table);
}

} // namespace saldoro
