#include "store/suite_tables.h"

#include "store/ledger.h"

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
    for (const auto &[field, type] : fields) {
        table.appendField(field, type, type == FieldType::Text ? textSize : 0);
        table.field(field).allowZeroLength = type == FieldType::Text || type == FieldType::Memo;
    }
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
    return {FattureTable(), SpeseTable()};
}

Database CreateArchiveFile(const QString &path, ArchiveFile file)
{
    Database database = Database::create(path, ArchiveLocale.toString());
    Transaction transaction(database);
    for (const TableDef &table : TablesOf(file))
        database.appendTableDef(table);
    transaction.commit();
    return database;
}

} // namespace saldoro
