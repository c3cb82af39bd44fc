#include "exchange/creditor_tables.h"

#include "common/errors.h"
#include "database/criterion.h"
#include "database/text_order.h"
#include "exchange/header_row.h"
#include "exchange/made_files.h"
#include "store/archive_paths.h"
#include "store/code_map.h"
#include "store/contract_folders.h"
#include "store/contract_sheet.h"
#include "store/contractor_and_principals.h"
#include "store/creditor_search.h"
#include "store/internal_codes.h"
#include "store/project_open_mark.h"

#include <QHash>

#include <algorithm>
#include <limits>
#include <optional>
#include <set>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

ExchangedTable listTable(const QString &name, const QStringList &fields)
{
    TableDef definition(name);
    for (const QString &field : fields)
        definition.appendField(field, FieldType::Memo);
    return {definition, {u"Nome"_s}};
}

RecordSet recordsOf(const Database &database, const QString &table)
{
    return database.openRecordSet(u"SELECT * FROM "_s + table);
}

/** One more than @p last, which without a value is the highest number in those fields, each behind
 *  its table. */
qint32 nextNumber(std::optional<qint32> &last, const Database &database,
                  const QList<std::pair<QString, QString>> &fields)
{
    if (!last) {
        last = 0;
        for (const auto &[table, field] : fields) {
            RecordSet records = recordsOf(database, table);
            for (; !records.eof(); records.moveNext()) {
                const FieldValue number = records.field(field);
                last = std::max(*last, number.isNull() ? 0 : number.integer());
            }
        }
    }
    if (*last == std::numeric_limits<qint32>::max())
        throw DatabaseError(DatabaseFault::FieldTooSmall, database.path(), fields.first().first,
                            fields.first().second);
    return ++*last;
}

void add(RecordSet &records, const QList<std::pair<QString, NewValue>> &values)
{
    records.addNew();
    for (const auto &[field, value] : values)
        records.set(field, value);
    records.update();
}

QStringList membersOf(const TableRow &row)
{
    QStringList members = TextOf(row[CompanyList().indexOf(u"Mandanti"_s)]).split(u';');
    for (QString &member : members)
        member = member.trimmed();
    members.removeAll(QString());
    return members;
}

/** The register of companies, to which companies are added. */
struct CompanyRegister
{
    const Database &file;
    RecordSet companies = recordsOf(file, u"Anag"_s);
    std::optional<qint32> lastNumber = {};

    /** The number of a company, which is added when it is not there. */
    qint32 numberOf(const QString &name, const NewValue &kind = {})
    {
        companies.findFirst(u"nominativo = '"_s + RaddoppiaApici(name) + u"'"_s);
        if (!companies.noMatch())
            return companies.field(u"ID"_s).integer();
        // Also of companies that are gone: what still refers to them would be the new one's.
        const qint32 number = nextNumber(lastNumber, file,
                                         {{u"Anag"_s, u"ID"_s},
                                          {u"Partecip"_s, u"AnagRel"_s},
                                          {u"Manda"_s, u"AnagRel"_s},
                                          {u"Manda"_s, u"AnagPar"_s}});
        WithDetail(Detail::Creditor, name, [&] {
            add(companies, {{u"ID"_s, number}, {u"nominativo"_s, name}, {u"TipImprese"_s, kind}});
        });
        return number;
    }

    void addParticipants(const TableRows &rows)
    {
        RecordSet participants = recordsOf(file, u"Partecip"_s);
        RecordSet principals = recordsOf(file, u"Manda"_s);
        std::optional<qint32> lastPlace;
        // All by their own kind first: a member may be an association, too.
        for (const TableRow &row : rows)
            numberOf(TextOf(row.first()),
                     membersOf(row).isEmpty() ? NewValue() : AssociationKind.toString());
        for (const TableRow &row : rows) {
            const qint32 number = numberOf(TextOf(row.first()));
            add(participants,
                {{u"Nord"_s, nextNumber(lastPlace, file, {{u"Partecip"_s, u"Nord"_s}})},
                 {u"AnagRel"_s, number}});
            for (const QString &member : membersOf(row))
                add(principals, {{u"AnagPar"_s, number}, {u"AnagRel"_s, numberOf(member)}});
        }
    }
};

void addProfessionals(RecordSet &sheet, const TableRows &rows)
{
    int free = 1;
    for (const TableRow &row : rows) {
        const auto item = [&free] { return u'I' + QString::number(free).rightJustified(2, u'0'); };
        while (FindItem(sheet, item()))
            ++free;
        WriteItem(sheet, item(),
                  {{u"Funzione"_s, ItemTag::Professional},
                   {u"Descri"_s, u"Professionista"_s},
                   {u"Stringa"_s, row.first()}});
    }
}

void setContractor(RecordSet &sheet, CompanyRegister &companies, const QString &contractor,
                   const ProgramValues &values)
{
    const QString item = CodiceEsterno(values, InternalCode::Contractor);
    ItemValues fields{{u"Stringa"_s, contractor}, {u"Link"_s, companies.numberOf(contractor)}};
    if (!FindItem(sheet, item))
        fields += {{u"Funzione"_s, ItemTag::Contractor},
                   {u"Descri"_s, DescrizioneFunzione(values, InternalCode::Contractor)}};
    WriteItem(sheet, item, fields);
}

/** The names of each company's members, in their order, by its number. */
QHash<QString, QStringList> registeredMembers(const Database &database)
{
    QHash<QString, QStringList> members;
    RecordSet records =
        database.openRecordSet(u"SELECT Manda.AnagPar, Anag.nominativo FROM Anag INNER JOIN Manda "
                               "ON Anag.ID = Manda.AnagRel ORDER BY Anag.nominativo"_s);
    for (; !records.eof(); records.moveNext())
        members[records.field(u"AnagPar"_s).textOrEmpty()].append(
            records.field(u"nominativo"_s).textOrEmpty());
    return members;
}

} // namespace

const ExchangedTable &CompanyList()
{
    static const ExchangedTable table = listTable(u"Imprese"_s, {u"Nome"_s, u"Mandanti"_s});
    return table;
}

const ExchangedTable &ProfessionalList()
{
    static const ExchangedTable table = listTable(u"Professionisti"_s, {u"Nome"_s});
    return table;
}

QList<CellFault> NameFaults(const TableRows &rows, const QStringList &known)
{
    std::set<QString, TextOrder> names(known.begin(), known.end());
    QList<CellFault> faults;
    for (int row = 1; row <= rows.size(); ++row) {
        const QString name = TextOf(rows[row - 1].first());
        if (!names.insert(name).second)
            faults.append({row, u"Nome"_s, u"«%1» c'è già."_s.arg(name)});
        if (IsNameHeading(name))
            faults.append(
                {row, u"Nome"_s, u"«%1» intitola una colonna: tralasciare la riga."_s.arg(name)});
    }
    return faults;
}

QList<CellFault> CompanyFaults(const TableRows &rows, const KnownCreditors &known)
{
    const std::set<QString, TextOrder> registered(known.companies.begin(), known.companies.end());
    QList<CellFault> faults = NameFaults(rows, known.participants);
    for (int row = 1; row <= rows.size(); ++row) {
        const QString name = TextOf(rows[row - 1].first());
        const QStringList members = membersOf(rows[row - 1]);
        std::set<QString, TextOrder> told{name};
        for (const QString &member : members) {
            if (!told.insert(member).second)
                faults.append(
                    {row, u"Mandanti"_s,
                     (AreEqualTexts(member, name) ? u"«%1» non può essere mandante di sé stessa."_s
                                                  : u"la mandante «%1» è scritta due volte."_s)
                         .arg(member)});
        }
        if (!members.isEmpty() && registered.contains(name))
            faults.append(
                {row, u"Mandanti"_s,
                 u"«%1» è già in archivio e resta com'è: togliere le mandanti."_s.arg(name)});
    }
    return faults;
}

KnownCreditors ReadCreditors(const ProgramValues &values)
{
    KnownCreditors known;
    const QString item = CodiceEsterno(values, InternalCode::Contractor);
    RecordSet sheet = OpenContractSheet(values);
    const bool hasContractor = FindItem(sheet, item);
    if (hasContractor)
        known.contractor = sheet.field(u"Stringa"_s).textOrEmpty();
    const Database database = Database::open(CompaniesPath(values));
    const QHash<QString, QStringList> members = registeredMembers(database);
    RecordSet companies = recordsOf(database, u"Anag"_s);
    for (; !companies.eof(); companies.moveNext()) {
        const QString name = companies.field(u"nominativo"_s).textOrEmpty();
        if (name.isEmpty())
            continue;
        // What has no number, or one that is none, has no members either.
        const bool isNumbered =
            !companies.field(u"ID"_s).isNull() && companies.field(u"ID"_s).isOfItsKind();
        known.companies.append(name);
        known.members.append(
            isNumbered ? members.value(companies.field(u"ID"_s).text()).join(u"; "_s) : QString());
        if (hasContractor && isNumbered && AreEqualTexts(name, known.contractor) &&
            sheet.field(u"Link"_s).textOrEmpty() == companies.field(u"ID"_s).text())
            known.isContractorLinked = true;
    }
    known.participants = ParticipatingCompanies(values, {});
    known.professionals = ProfessionalCreditors(values);
    return known;
}

QStringList AddCreditors(const ProgramValues &values, const TableRows &companies,
                         const TableRows &professionals, const QString &contractor)
{
    RequireClosed(ContractFolder(values.ArchiveRoot, values.ProjectCode));
    for (const QString &path : {ContractPath(values), CompaniesPath(values)})
        Database::requirePlainJournal(path);
    const Database contract = Database::open(ContractPath(values));
    const Database companyFile = contract.attach(CompaniesPath(values));
    Transaction transaction(contract);
    const KnownCreditors known = ReadCreditors(values);
    if (!CompanyFaults(companies, known).isEmpty() ||
        !NameFaults(professionals, known.professionals).isEmpty())
        throw SaldoroError(u"Imprese e professionisti sono cambiati nel frattempo."_s,
                           u"Chiudere questa finestra e aprirla di nuovo."_s);
    MadeFiles copies;
    QStringList paths;
    for (const Database *database : {&contract, &companyFile}) {
        paths.append(database->backUpBeside());
        copies.add(paths.last());
    }
    RecordSet sheet = recordsOf(contract, u"SchedaProgetto"_s);
    CompanyRegister registered{companyFile};
    registered.addParticipants(companies);
    addProfessionals(sheet, professionals);
    if (!contractor.isEmpty())
        setContractor(sheet, registered, contractor, values);
    transaction.commit();
    copies.keep();
    return paths;
}

} // namespace saldoro
