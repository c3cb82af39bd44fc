#include "exchange/creditor_tables.h"

#include "store/archive_paths.h"
#include "store/internal_codes.h"

#include <QMap>

#include <algorithm>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Marks the items of the contract sheet that are professionals. */
constexpr qint32 professionalTag = 17;
const QString memberSeparator = u"; "_s;

ExchangedTable listTable(const QString &name, const QStringList &fields)
{
    constexpr int nameSize = 255;
    TableDef definition(name);
    for (const QString &field : fields)
        definition.appendField(field, FieldType::Memo, field == "Nome"_L1 ? nameSize : 0);
    return {ArchiveFile::Companies, definition, {u"Nome"_s}, {u"Nome"_s}, {u"Nome"_s}};
}

/** A table of the project that rows are added to. */
class GrowingTable
{
public:
    GrowingTable(const QString &folder, const QString &name)
        : m_result{TableNamed(name), u"Elenco dei creditori"_s, {}}
    {
        const Database database = Database::open(ArchiveFilePath(m_result.table->archive, folder));
        m_result.rows = StoredRows(database, m_result.table->definition);
    }

    const TableRows &rows() const { return m_result.rows; }
    const NewValue &value(const TableRow &row, const QString &field) const
    {
        return row[m_result.table->place(field)];
    }
    qint32 number(const TableRow &row, const QString &field) const
    {
        const auto *number = std::get_if<qint32>(&value(row, field));
        return number == nullptr ? 0 : *number;
    }
    qint32 highest(const QString &field) const
    {
        qint32 highest = 0;
        for (const TableRow &row : m_result.rows)
            highest = std::max(highest, number(row, field));
        return highest;
    }
    /** The first row with that text, whatever its letter case; -1 for none. */
    qsizetype find(const QString &field, const QString &text) const
    {
        for (qsizetype row = 0; row < m_result.rows.size(); ++row) {
            if (TextOf(value(m_result.rows[row], field)).compare(text, Qt::CaseInsensitive) == 0)
                return row;
        }
        return -1;
    }

    void add(const QMap<QString, NewValue> &values)
    {
        m_result.rows.append(TableRow(m_result.table->definition.fields().size()));
        change(m_result.rows.size() - 1, values);
    }
    void change(qsizetype row, const QMap<QString, NewValue> &values)
    {
        for (auto value = values.cbegin(); value != values.cend(); ++value)
            m_result.rows[row][m_result.table->place(value.key())] = *value;
        m_isChanged = true;
    }

    /** Adds the table when it has changed. */
    void putInto(QList<CsvTable> &tables)
    {
        for (int line = 1; line <= m_result.rows.size(); ++line)
            m_result.lines.append(line);
        if (m_isChanged)
            tables.append(m_result);
    }

private:
    CsvTable m_result;
    bool m_isChanged = false;
};

/** The row of the code map for the contractor; empty cells when it is not mapped. */
std::pair<QString, QString> contractorCode(const QString &folder)
{
    const GrowingTable codes(folder, u"Funzioni"_s);
    const qsizetype row = codes.find(u"CodInt"_s, InternalCode::Contractor.toString());
    if (row < 0)
        return {};
    return {TextOf(codes.value(codes.rows()[row], u"CodExt"_s)),
            TextOf(codes.value(codes.rows()[row], u"Desc"_s))};
}

/** The number of a company, which is added when it is not there. */
qint32 companyNumber(GrowingTable &companies, const QString &name, const NewValue &kind = {})
{
    if (const qsizetype row = companies.find(u"nominativo"_s, name); row >= 0)
        return companies.number(companies.rows()[row], u"ID"_s);
    const qint32 number = companies.highest(u"ID"_s) + 1;
    companies.add({{u"ID"_s, number}, {u"nominativo"_s, name}, {u"TipImprese"_s, kind}});
    return number;
}

QStringList membersOf(const TableRow &row)
{
    QStringList members;
    for (const QString &member : TextOf(row[CompanyList().place(u"Mandanti"_s)]).split(u';')) {
        if (!member.trimmed().isEmpty())
            members.append(member.trimmed());
    }
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

KnownCreditors ReadCreditors(const QString &folder)
{
    KnownCreditors known;
    const GrowingTable companies(folder, u"Anag"_s);
    const GrowingTable principals(folder, u"Manda"_s);
    QMap<qint32, QString> names;
    for (const TableRow &row : companies.rows())
        names[companies.number(row, u"ID"_s)] = TextOf(companies.value(row, u"nominativo"_s));
    for (const TableRow &row : companies.rows()) {
        QStringList members;
        for (const TableRow &principal : principals.rows()) {
            if (principals.number(principal, u"AnagPar"_s) == companies.number(row, u"ID"_s))
                members.append(names.value(principals.number(principal, u"AnagRel"_s)));
        }
        known.companies.append(
            {TextOf(companies.value(row, u"nominativo"_s)), members.join(memberSeparator)});
    }
    const GrowingTable sheet(folder, u"SchedaProgetto"_s);
    for (const TableRow &row : sheet.rows()) {
        const QString name = TextOf(sheet.value(row, u"Stringa"_s)).trimmed();
        if (sheet.number(row, u"Funzione"_s) == professionalTag && !name.isEmpty())
            known.professionals.append({name});
    }
    if (const qsizetype row = sheet.find(u"Voce"_s, contractorCode(folder).first); row >= 0)
        known.contractor = names.value(sheet.number(sheet.rows()[row], u"Link"_s));
    return known;
}

QList<CellFault> RepeatedNames(const TableRows &rows, const QList<QStringList> &known)
{
    QStringList names;
    for (const QStringList &cells : known)
        names.append(cells.first());
    QList<CellFault> faults;
    for (int row = 0; row < rows.size(); ++row) {
        const QString name = TextOf(rows[row].first());
        if (names.contains(name, Qt::CaseInsensitive))
            faults.append({row, u"Nome"_s, u"«%1» c'è già."_s.arg(name)});
        names.append(name);
    }
    return faults;
}

QList<CsvTable> TablesWithCreditors(const QString &folder, const TableRows &companies,
                                    const TableRows &professionals, const QString &contractor)
{
    GrowingTable anag(folder, u"Anag"_s);
    GrowingTable participants(folder, u"Partecip"_s);
    GrowingTable principals(folder, u"Manda"_s);
    GrowingTable sheet(folder, u"SchedaProgetto"_s);
    for (const TableRow &company : companies) {
        const QStringList members = membersOf(company);
        const qint32 number = companyNumber(anag, TextOf(company.first()),
                                            members.isEmpty() ? NewValue() : NewValue(u"ATI"_s));
        participants.add(
            {{u"Nord"_s, participants.highest(u"Nord"_s) + 1}, {u"AnagRel"_s, number}});
        for (const QString &member : members)
            principals.add({{u"AnagPar"_s, number}, {u"AnagRel"_s, companyNumber(anag, member)}});
    }
    int free = 1;
    for (const TableRow &professional : professionals) {
        const auto item = [&free] { return u'I' + QString::number(free).rightJustified(2, u'0'); };
        while (sheet.find(u"Voce"_s, item()) >= 0)
            ++free;
        sheet.add({{u"Voce"_s, item()},
                   {u"Funzione"_s, professionalTag},
                   {u"Descri"_s, u"Professionista"_s},
                   {u"Stringa"_s, professional.first()}});
    }
    const auto [item, description] = contractorCode(folder);
    if (!contractor.isEmpty() && !item.isEmpty()) {
        const QMap<QString, NewValue> values{{u"Stringa"_s, contractor},
                                             {u"Link"_s, companyNumber(anag, contractor)}};
        if (const qsizetype row = sheet.find(u"Voce"_s, item); row >= 0)
            sheet.change(row, values);
        else {
            sheet.add({{u"Voce"_s, item}, {u"Funzione"_s, 1}, {u"Descri"_s, description}});
            sheet.change(sheet.rows().size() - 1, values);
        }
    }
    QList<CsvTable> tables;
    for (GrowingTable *table : {&anag, &participants, &principals, &sheet})
        table->putInto(tables);
    return tables;
}

} // namespace saldoro
