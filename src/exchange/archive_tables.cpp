#include "exchange/archive_tables.h"

#include "common/amount_text.h"
#include "common/errors.h"
#include "platform/legacy_text.h"
#include "store/internal_codes.h"

#include <map>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

const NewValue Untold = 0.0;

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

NewValue valueOf(const FieldDef &field, const RecordSet &records)
{
    try {
        return valueOf(field.type, records.field(field.name));
    } catch (const DatabaseError &) { // of another type, too large or not there
        return Untold;
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

TableRows StoredRows(const Database &database, const ExchangedTable &table)
{
    TableRows rows;
    RecordSet records = database.openRecordSet(u"SELECT * FROM "_s + table.name());
    for (; !records.eof(); records.moveNext()) {
        QList<NewValue> &row = rows.emplace_back();
        for (const FieldDef &field : table.definition.fields())
            row.append(valueOf(field, records));
    }
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

QString TableSummary(const ExchangedTable &table, const TableRows &rows)
{
    QString text = table.name() + u": "_s + QString::number(rows.size()) +
                   (rows.size() == 1 ? u" riga"_s : u" righe"_s);
    const qsizetype place = table.place(u"Importo"_s);
    if (place < 0)
        return text + u'\n';
    text += u", totale Importo "_s;
    try {
        Currency total;
        for (const QList<NewValue> &row : rows) {
            if (const auto *amount = std::get_if<Currency>(&row[place]))
                total += *amount;
        }
        return text + FormatImporto(total) + u'\n';
    } catch (const OverflowError &) {
        return text + u"fuori misura\n"_s;
    }
}

} // namespace saldoro
