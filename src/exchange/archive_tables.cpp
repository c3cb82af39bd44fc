#include "exchange/archive_tables.h"

#include "common/amount_text.h"
#include "common/errors.h"
#include "store/internal_codes.h"
#include "store/table_definitions.h"

#include <map>

namespace saldoro {

using namespace Qt::StringLiterals;

QStringList ExchangedTable::fieldNames() const
{
    QStringList names;
    for (const FieldDef &field : definition.fields())
        names.append(field.name);
    return names;
}

const std::vector<ExchangedTable> &ExchangedTables()
{
    struct Fields
    {
        QString needed;
        QString key;
    };
    static const std::map<QString, Fields> fieldsOf{
        {u"Funzioni"_s, {u"CodInt CodExt Desc"_s, u"CodInt"_s}},
        {u"SchedaProgetto"_s, {u"Voce"_s, u"Voce"_s}},
        {u"UltimaPerVariante"_s, {u"Voce Descri Importo"_s, u"Voce"_s}},
        {u"Anag"_s, {u"ID nominativo"_s, u"ID"_s}},
        {u"Partecip"_s, {u"AnagRel"_s, u"AnagRel"_s}},
        {u"Manda"_s, {u"AnagPar AnagRel"_s, u"AnagPar AnagRel"_s}},
        {u"Fatture"_s, {u"AziProf "_s + NeededPaymentFields().join(u' '), u"AziProf Npag"_s}},
        {u"Spese"_s, {u"RelNpag Cod Importo"_s, u"RelNpag Cod"_s}}};
    static const std::vector<ExchangedTable> tables = [] {
        std::vector<ExchangedTable> result;
        for (const ArchiveFile file : ArchiveFileList) {
            for (const TableDef &table : TablesOf(file)) {
                const auto &[needed, key] = fieldsOf.at(table.name());
                result.push_back({table, needed.split(u' '), file, key.split(u' ')});
            }
        }
        return result;
    }();
    return tables;
}

const ExchangedTable *TableNamed(const QString &name)
{
    for (const ExchangedTable &table : ExchangedTables()) {
        if (table.name().compare(name, Qt::CaseInsensitive) == 0)
            return &table;
    }
    return nullptr;
}

QStringList UnknownFields(const Database &database, const ExchangedTable &table)
{
    QStringList names;
    const auto stored = database.tableDef(table.name());
    for (const FieldDef &field : stored ? stored->fields() : QList<FieldDef>()) {
        if (table.indexOf(field.name) < 0)
            names.append(field.name);
    }
    return names;
}

TableRows StandardCodeRows()
{
    TableRows rows;
    for (const UsedCode &used : UsedCodes)
        rows.append({used.code.toString(), used.standardItem.toString(),
                     used.standardDescription.toString()});
    return rows;
}

QString TotalText(const ExchangedTable &table, const TableRows &rows)
{
    const qsizetype amount = table.indexOf(u"Importo"_s);
    try {
        Currency total;
        for (const TableRow &row : rows)
            total += ValueAs<Currency>(row[amount]).value_or(Currency());
        return FormatImporto(total);
    } catch (const OverflowError &) {
        return u"fuori misura"_s;
    }
}

QString SummaryOf(const ExchangedTable &table, const TableRows &rows)
{
    const QString text = u"%1: %2 %3"_s.arg(table.name())
                             .arg(rows.size())
                             .arg(rows.size() == 1 ? u"riga"_s : u"righe"_s);
    return table.hasAmounts() ? text + u", totale Importo "_s + TotalText(table, rows) : text;
}

} // namespace saldoro
