#include "archive_builder.h"

#include "common/archive_folders.h"
#include "common/errors.h"
#include "platform/machine_path.h"
#include "store/internal_codes.h"
#include "store/ledger.h"
#include "store/suite_tables.h"

#include <QDir>

namespace saldoro {

namespace {

using namespace Qt::StringLiterals;

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
    CreateArchiveFile(ContractPath(m_values), ArchiveFile::Contract);
    CreateArchiveFile(CompaniesPath(m_values), ArchiveFile::Companies);
    CreateLedgerDatabase(ProjectFolder(m_values));
    if (!ArchivePathExists(CodesPath(m_values)))
        CreateArchiveFile(CodesPath(m_values), ArchiveFile::Codes);
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
    for (const UsedCode &used : UsedCodes) {
        codes.add({{u"CodInt"_s, used.code.toString()},
                   {u"CodExt"_s, used.standardItem.toString()},
                   {u"Desc"_s, used.standardDescription.toString()}});
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
