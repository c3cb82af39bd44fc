#include "exchange/archive_tables.h"

#include "common/amount_text.h"
#include "common/errors.h"
#include "platform/legacy_text.h"
#include "store/internal_codes.h"

#include <map>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

const NewValue Untold = QDate();

NewValue dayOf(const FieldValue &stored)
{
    constexpr qsizetype DayLength = 10;
    const auto bytes = stored.storedBytes();
    if (!bytes || bytes->isEmpty())
        return bytes ? NewValue(QString()) : Untold;
    const QDate day = bytes->size() == DayLength ? stored.dateOrNone() : QDate();
    return day.isValid() ? NewValue(day) : Untold;
}

/** The field's value, exactly. */
NewValue valueOf(FieldType type, const FieldValue &stored)
{
    if (stored.isNull())
        return {};
    if (type == FieldType::Date)
        return dayOf(stored);
    const auto bytes = stored.storedBytes();
    if (type == FieldType::Text || type == FieldType::Memo)
        return bytes ? NewValue(TextOfUtf8(*bytes)) : Untold;
    return type == FieldType::Currency ? NewValue(stored.currency()) : NewValue(stored.integer());
}

/** Whether the action can be done; not with a value of another type or a field that is not there.
 */
template <typename Action>
bool canDo(const Action &action)
{
    try {
        action();
        return true;
    } catch (const DatabaseError &) {
        return false;
    }
}

} // namespace

qsizetype ExchangedTable::place(const QString &field) const
{
    const auto &fields = definition.fields();
    for (qsizetype place = 0; place < fields.size(); ++place) {
        if (fields[place].name.compare(field, Qt::CaseInsensitive) == 0)
            return place;
    }
    return -1;
}

const std::vector<ExchangedTable> &ExchangedTables()
{
    static const std::map<QString, QString> needed{
        {u"Funzioni"_s, u"CodInt CodExt Desc"_s},
        {u"SchedaProgetto"_s, u"Voce"_s},
        {u"UltimaPerVariante"_s, u"Voce Descri Importo"_s},
        {u"Anag"_s, u"ID nominativo"_s},
        {u"Partecip"_s, u"AnagRel"_s},
        {u"Manda"_s, u"AnagPar AnagRel"_s},
        {u"Fatture"_s, u"AziProf Npag Creditore Del Importo ImportoIVA"_s},
        {u"Spese"_s, u"RelNpag Cod Importo"_s}};
    static const std::vector<ExchangedTable> tables = [] {
        std::vector<ExchangedTable> result;
        for (const ArchiveFile file : ArchiveFileList) {
            for (const TableDef &table : TablesOf(file))
                result.push_back({file, table, needed.at(table.name()).split(u' ')});
        }
        return result;
    }();
    return tables;
}

StoredTable::StoredTable(const Database &database, const ExchangedTable &table)
    : m_fields(table.definition.fields())
    , m_records(database.openRecordSet(u"SELECT * FROM "_s + table.name()))
    , m_columns(m_fields.size(), -1)
{
    for (qsizetype place = 0; place < m_fields.size(); ++place)
        canDo([&] { m_columns[place] = m_records.column(m_fields[place].name); });
}

bool StoredTable::next(QList<NewValue> &row)
{
    if (m_isBegun && !m_records.eof())
        m_records.moveNext();
    m_isBegun = true;
    if (m_records.eof())
        return false;
    row.resize(m_fields.size());
    for (qsizetype place = 0; place < m_fields.size(); ++place) {
        const auto read = [&] {
            row[place] = valueOf(m_fields[place].type, m_records.field(m_columns[place]));
        };
        if (m_columns[place] < 0 || !canDo(read))
            row[place] = Untold;
    }
    return true;
}

TableRows StoredRows(const Database &database, const ExchangedTable &table)
{
    TableRows rows;
    StoredTable stored(database, table);
    for (QList<NewValue> row; stored.next(row);)
        rows.append(row);
    return rows;
}

TableRows StandardCodeRows()
{
    TableRows rows;
    for (const UsedCode &used : UsedCodes)
        rows.append({used.code.toString(), used.standardItem.toString(),
                     used.standardDescription.toString()});
    return rows;
}

TableSummary::TableSummary(const ExchangedTable &table)
    : m_table(table.name())
    , m_place(table.place(u"Importo"_s))
{
}

void TableSummary::add(const QList<NewValue> &row)
{
    ++m_rows;
    const auto *amount = m_place < 0 ? nullptr : std::get_if<Currency>(&row[m_place]);
    qint64 total = 0;
    if (amount == nullptr || !m_total)
        return;
    if (__builtin_add_overflow(m_total->scaled(), amount->scaled(), &total))
        m_total.reset();
    else
        m_total = Currency::fromScaled(total);
}

QString TableSummary::text() const
{
    QString text =
        u"%1: %2 %3"_s.arg(m_table).arg(m_rows).arg(m_rows == 1 ? u"riga"_s : u"righe"_s);
    if (m_place >= 0)
        text += u", totale Importo "_s + (m_total ? FormatImporto(*m_total) : u"fuori misura"_s);
    return text;
}

} // namespace saldoro
