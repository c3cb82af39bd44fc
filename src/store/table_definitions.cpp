#include "store/table_definitions.h"

#include <initializer_list>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

constexpr int textSize = 255;

/** A table of the suite; its text fields accept empty texts. */
TableDef suiteTable(const QString &name,
                    std::initializer_list<std::pair<QString, FieldType>> fields)
{
    TableDef table(name);
    for (const auto &[field, type] : fields)
        table.appendField(field, type, textSize,
                          type == FieldType::Text || type == FieldType::Memo);
    return table;
}

QList<TableDef> contractTables()
{
    return {suiteTable(u"SchedaProgetto"_s, {{u"Voce"_s, FieldType::Text},
                                             {u"Funzione"_s, FieldType::Integer},
                                             {u"Descri"_s, FieldType::Text},
                                             {u"Stringa"_s, FieldType::Memo},
                                             {u"Importo"_s, FieldType::Currency},
                                             {u"NomeFile"_s, FieldType::Text},
                                             {u"Link"_s, FieldType::Long}}),
            suiteTable(u"UltimaPerVariante"_s, {{u"Voce"_s, FieldType::Text},
                                                {u"Descri"_s, FieldType::Text},
                                                {u"Importo"_s, FieldType::Currency}})};
}

QList<TableDef> companiesTables()
{
    return {
        suiteTable(u"Anag"_s, {{u"ID"_s, FieldType::Long},
                               {u"nominativo"_s, FieldType::Text},
                               {u"TipImprese"_s, FieldType::Text}}),
        suiteTable(u"Partecip"_s, {{u"Nord"_s, FieldType::Long}, {u"AnagRel"_s, FieldType::Long}}),
        suiteTable(u"Manda"_s, {{u"AnagPar"_s, FieldType::Long}, {u"AnagRel"_s, FieldType::Long}})};
}

TableDef fattureTable()
{
    constexpr bool orEmpty = true;
    TableDef table(u"Fatture"_s);
    table.appendField(u"AziProf"_s, FieldType::Text, 1);
    table.appendField(u"Npag"_s, FieldType::Long);
    table.appendField(u"Creditore"_s, FieldType::Text, LedgerSize::Creditore);
    table.appendField(u"NFat"_s, FieldType::Text, LedgerSize::NFat, orEmpty);
    table.appendField(u"Del"_s, FieldType::Date, 0, orEmpty);
    table.appendField(u"Memo"_s, FieldType::Memo, 0, orEmpty);
    table.appendField(u"Descrizione"_s, FieldType::Text, LedgerSize::Descrizione, orEmpty);
    // A company's payment leaves some null, see invoice/company_amounts and verify/write_trial. The
    // statements need some, see overview/payment_statement and verify/payment_checks.
    for (const QString &amount :
         {u"Aliquota"_s, u"Importo"_s, u"ImportoIVA"_s, u"AliquotaRA"_s, u"ImportoPrest"_s,
          u"Contributo"_s, u"CassaPrev"_s, u"ImportoRA"_s, u"AltriImporti01"_s}) {
        table.appendField(amount, FieldType::Currency);
    }
    return table;
}

TableDef speseTable()
{
    TableDef table(u"Spese"_s);
    table.appendField(u"RelNpag"_s, FieldType::Long);
    table.appendField(u"Cod"_s, FieldType::Text, LedgerSize::Cod);
    table.appendField(u"Descrizione"_s, FieldType::Text, LedgerSize::Descrizione);
    table.appendField(u"Importo"_s, FieldType::Currency);
    return table;
}

} // namespace

QList<TableDef> TablesOf(ArchiveFile file)
{
    switch (file) {
    case ArchiveFile::Codes:
        return {suiteTable(u"Funzioni"_s, {{u"CodInt"_s, FieldType::Text},
                                           {u"CodExt"_s, FieldType::Text},
                                           {u"Desc"_s, FieldType::Text}})};
    case ArchiveFile::Contract:
        return contractTables();
    case ArchiveFile::Companies:
        return companiesTables();
    case ArchiveFile::Ledger:
        break;
    }
    return {fattureTable(), speseTable()};
}

QStringList SettablePaymentFields()
{
    return {u"Del"_s, u"Importo"_s, u"ImportoIVA"_s};
}

QStringList NeededPaymentFields()
{
    return QStringList{u"Npag"_s, u"Creditore"_s} + SettablePaymentFields();
}

} // namespace saldoro
