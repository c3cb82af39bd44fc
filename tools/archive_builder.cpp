#include "archive_builder.h"

#include "common/archive_folders.h"
#include "common/errors.h"
#include "database/table_def.h"
#include "platform/machine_path.h"
#include "store/ledger.h"

#include <QDir>

namespace saldoro {

namespace {

using namespace Qt::StringLiterals;

/** As the suite's own files are made. */
constexpr QStringView SuiteLocale = u";LANGID=0x0409;CP=1252;COUNTRY=0";

constexpr int TextSize = 255;

/** A table of the suite; its text fields accept empty texts. */
TableDef suiteTable(const QString &name,
                    std::initializer_list<std::pair<QString, FieldType>> fields)
{
    TableDef table(name);
    for (const auto &[field, type] : fields) {
        table.appendField(field, type, type == FieldType::Text ? TextSize : 0);
        table.field(field).allowZeroLength = type == FieldType::Text || type == FieldType::Memo;
    }
    return table;
}

void createDatabase(const QString &path, std::initializer_list<TableDef> tables)
{
    Database database = Database::create(path, SuiteLocale.toString());
    for (const TableDef &table : tables) {
        database.appendTableDef(table);
    }
}

void createContract(const ProgramValues &values)
{
    createDatabase(ContractPath(values),
                   {suiteTable(u"SchedaProgetto"_s, {{u"Voce"_s, FieldType::Text},
                                                     {u"Funzione"_s, FieldType::Integer},
                                                     {u"Descri"_s, FieldType::Text},
                                                     {u"Stringa"_s, FieldType::Memo},
                                                     {u"Importo"_s, FieldType::Currency},
                                                     {u"NomeFile"_s, FieldType::Text},
                                                     {u"Link"_s, FieldType::Long}}),
                    suiteTable(u"UltimaPerVariante"_s, {{u"Voce"_s, FieldType::Text},
                                                        {u"Descri"_s, FieldType::Text},
                                                        {u"Importo"_s, FieldType::Currency}})});
}

void createCompanies(const ProgramValues &values)
{
    createDatabase(
        CompaniesPath(values),
        {suiteTable(u"Anag"_s, {{u"ID"_s, FieldType::Long},
                                {u"nominativo"_s, FieldType::Text},
                                {u"TipImprese"_s, FieldType::Text}}),
         suiteTable(u"Partecip"_s, {{u"Nord"_s, FieldType::Long}, {u"AnagRel"_s, FieldType::Long}}),
         suiteTable(u"Manda"_s,
                    {{u"AnagPar"_s, FieldType::Long}, {u"AnagRel"_s, FieldType::Long}})});
}

void createCodes(const ProgramValues &values)
{
    createDatabase(CodesPath(values), {suiteTable(u"Funzioni"_s, {{u"CodInt"_s, FieldType::Text},
                                                                  {u"CodExt"_s, FieldType::Text},
                                                                  {u"Desc"_s, FieldType::Text}})});
}

void makeFolder(const QString &archivePath)
{
    const QString folder = MachinePath(archivePath);
    if (!QDir().mkpath(folder)) {
        throw FileError(folder, u"La cartella non può essere creata."_s,
                        u"Controllare i permessi e lo spazio libero sul disco."_s);
    }
}

ProgramValues projectValues(const QString &root, const QString &projectCode)
{
    ProgramValues values;
    values.ArchiveRoot = root;
    values.ProjectCode = projectCode;
    return values;
}

NewValue amountOrNull(std::optional<Currency> amount)
{
    return amount ? NewValue(*amount) : NewValue();
}

} // namespace

QList<CodeMapping> StandardCodes()
{
    return {
        {u"DA1"_s, u"D0101"_s, u"Impresa appaltatrice"_s},
        {u"P97"_s, u"M0097"_s, u"Mandati di pagamento"_s},
        {u"QDP"_s, u"Q0100"_s, u"Prospetto delle disponibilità per voce di spesa"_s},
        {u"P98"_s, u"Q0198"_s, u"Pagamenti precedenti alle imprese"_s},
        {u"P99"_s, u"Q0199"_s, u"Ultimo pagamento alle imprese"_s},
        {u"P98P"_s, u"Q0298"_s, u"Pagamenti precedenti ai professionisti"_s},
        {u"P99P"_s, u"Q0299"_s, u"Ultimo pagamento ai professionisti"_s},
        {u"QS1A"_s, u"S0101"_s, u"Totale liquidato alle imprese"_s},
        {u"QS1P"_s, u"S0102"_s, u"Totale liquidato ai professionisti"_s},
        {u"QS1T"_s, u"S0103"_s, u"Totale liquidato"_s},
    };
}

RowAppender::RowAppender(const QString &path, const QString &table)
    : m_database(Database::open(path))
    , m_records(m_database.openRecordSet(u"SELECT * FROM "_s + table))
{
}

void RowAppender::add(const FieldList &fields)
{
    m_records.addNew();
    for (const auto &[name, value] : fields) {
        m_records.set(name, value);
    }
    m_records.update();
}

ArchiveBuilder::ArchiveBuilder(ProgramValues values)
    : m_values(std::move(values))
{
}

ArchiveBuilder ArchiveBuilder::ofExisting(const QString &root, const QString &projectCode)
{
    return ArchiveBuilder(projectValues(root, projectCode));
}

ArchiveBuilder::ArchiveBuilder(const QString &root, const QString &projectCode)
    : ArchiveBuilder(projectValues(root, projectCode))
{
    makeFolder(ProjectFolder(m_values));
    makeFolder(root + ArchiveFolders::Tabelle.toString());
    makeFolder(UpdateFolder(m_values));
    createContract(m_values);
    createCompanies(m_values);
    CreateLedgerDatabase(ProjectFolder(m_values));
    if (!ArchivePathExists(CodesPath(m_values))) {
        createCodes(m_values);
    }
}

void ArchiveBuilder::addCode(const QString &internalCode, const QString &externalCode,
                             const QString &description)
{
    RowAppender(CodesPath(m_values), u"Funzioni"_s)
        .add({{u"CodInt"_s, internalCode}, {u"CodExt"_s, externalCode}, {u"Desc"_s, description}});
}

void ArchiveBuilder::addStandardCodes()
{
    RowAppender codes(CodesPath(m_values), u"Funzioni"_s);
    for (const CodeMapping &code : StandardCodes()) {
        codes.add({{u"CodInt"_s, code.internalCode},
                   {u"CodExt"_s, code.externalCode},
                   {u"Desc"_s, code.description}});
    }
}

void ArchiveBuilder::addSheetItem(const FieldList &fields)
{
    RowAppender(ContractPath(m_values), u"SchedaProgetto"_s).add(fields);
}

void ArchiveBuilder::addBudgetItem(const QString &code, const QString &description,
                                   std::optional<Currency> amount)
{
    RowAppender(ContractPath(m_values), u"UltimaPerVariante"_s)
        .add({{u"Voce"_s, code}, {u"Descri"_s, description}, {u"Importo"_s, amountOrNull(amount)}});
}

void ArchiveBuilder::addCompany(qint32 id, const QString &name, const QString &kind)
{
    RowAppender(CompaniesPath(m_values), u"Anag"_s)
        .add({{u"ID"_s, id}, {u"nominativo"_s, name}, {u"TipImprese"_s, kind}});
}

void ArchiveBuilder::addParticipant(qint32 order, qint32 companyId)
{
    RowAppender(CompaniesPath(m_values), u"Partecip"_s)
        .add({{u"Nord"_s, order}, {u"AnagRel"_s, companyId}});
}

void ArchiveBuilder::addPrincipal(qint32 associationId, qint32 companyId)
{
    RowAppender(CompaniesPath(m_values), u"Manda"_s)
        .add({{u"AnagPar"_s, associationId}, {u"AnagRel"_s, companyId}});
}

void ArchiveBuilder::addPayment(const FieldList &fields)
{
    RowAppender(LedgerPath(m_values), u"Fatture"_s).add(fields);
}

void ArchiveBuilder::addAllocation(qint32 paymentNumber, const QString &code,
                                   const QString &description, std::optional<Currency> amount)
{
    RowAppender(LedgerPath(m_values), u"Spese"_s)
        .add({{u"RelNpag"_s, paymentNumber},
              {u"Cod"_s, code},
              {u"Descrizione"_s, description},
              {u"Importo"_s, amountOrNull(amount)}});
}

} // namespace saldoro
