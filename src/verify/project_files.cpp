#include "verify/project_files.h"

#include "common/errors.h"
#include "database/database.h"
#include "platform/machine_path.h"
#include "store/ledger.h"
#include "verify/field_checks.h"

#include <QDir>
#include <QFileInfo>

#include <functional>

namespace saldoro {

namespace {

using namespace Qt::StringLiterals;

/** Passes on what can't be a finding: somebody is at work on the file, or stopped in the middle, or
 *  lets nobody read it. */
void throwWhatHinders(const QString &path, const DatabaseError &error)
{
    // What a change that was broken off left behind asks for another change, which is not for a
    // check.
    if (error.fault() == DatabaseFault::ReadOnly && QFileInfo::exists(path + u"-journal"_s))
        throw FileError(path, u"Una modifica dell'archivio è rimasta a metà."_s,
                        u"Aprire una volta il progetto con Saldoro, che la annulla, e ripetere il "
                        "controllo."_s);
    if (error.fault() == DatabaseFault::Locked || error.fault() == DatabaseFault::ReadOnly)
        throw error;
}

void addFault(const QString &path, const DatabaseError &error, Findings &findings)
{
    QString place = QFileInfo(path).fileName();
    for (const QString &label : {u"Tabella"_s, u"Campo"_s}) {
        const QString name = error.detail(label);
        if (!name.isEmpty())
            place += u", "_s + label.toLower() + u' ' + name;
    }
    findings.append({FindingGroup::Files, place, error.problem(), error.remedy()});
}

void checkIntegrity(const QString &path, const Database &database, Findings &findings)
{
    for (const QString &fault : database.integrityReport())
        findings.append({FindingGroup::Files, QFileInfo(path).fileName(),
                         u"il controllo del file segnala: "_s + fault,
                         u"fare una copia del file com'è e rivolgersi all'assistenza, oppure "
                         "rimettere al suo posto una copia di riserva."_s});
}

/** The fields have to be there even when no row shows that they are missing. */
void requireFields(const RecordSet &records, const TableDef &table)
{
    for (const FieldDef &field : table.fields())
        records.column(field.name);
}

/** One database, open as long as its tables are read. A table that can't be read is left out. */
class OpenFile
{
public:
    OpenFile(const QString &path, Findings &findings)
        : m_path(path)
        , m_findings(findings)
    {
        guarded([&] {
            m_database = Database::openReadOnly(path);
            checkIntegrity(path, *m_database, findings);
        });
    }

    /** All records of a query; the function makes one row of each and gets its place from 1. */
    template <typename Row, typename MakeRow>
    std::optional<QList<Row>> rows(const QString &sql, const MakeRow &makeRow)
    {
        std::optional<QList<Row>> result;
        guarded([&] {
            if (!m_database)
                return;
            RecordSet records = m_database->openRecordSet(sql);
            QList<Row> read;
            const auto makeRowOf = makeRow(records);
            for (int place = 1; !records.eof(); records.moveNext(), ++place)
                read.append(makeRowOf(place));
            result = std::move(read);
        });
        return result;
    }

    /** All records of a query whose fields are compared with a table's definition. The function
     *  reads what a row needs; then @p name names the row in findings. */
    template <typename Row, typename Fill>
    std::optional<QList<Row>> checkedRows(const QString &sql, const TableDef &table,
                                          QString (*name)(const Row &), const Fill &fill)
    {
        return rows<Row>(sql, [&](const RecordSet &records) {
            requireFields(records, table);
            return [&](int place) {
                Row row;
                row.row = place;
                fill(records, row);
                CheckFields(records, table, name(row), m_findings);
                return row;
            };
        });
    }

private:
    void guarded(const std::function<void()> &action)
    {
        try {
            action();
        } catch (const DatabaseError &error) {
            throwWhatHinders(m_path, error);
            addFault(m_path, error, m_findings);
        }
    }

    QString m_path;
    Findings &m_findings;
    std::optional<Database> m_database;
};

QStringList nullFields(const RecordSet &records, const TableDef &table)
{
    QStringList nulls;
    for (const FieldDef &field : table.fields()) {
        if (records.field(field.name).isNull())
            nulls.append(field.name);
    }
    return nulls;
}

void readPayments(OpenFile &ledger, ProjectData &data)
{
    const TableDef table = FattureTable();
    data.payments = ledger.checkedRows<PaymentRow>(
        u"SELECT * FROM Fatture ORDER BY Npag "_s, table, PaymentName,
        [&table](const RecordSet &records, PaymentRow &row) {
            row.number = ReadWhole(records, records.column(u"Npag"_s));
            row.kind = ReadText(records, records.column(u"AziProf"_s));
            row.creditor = ReadText(records, records.column(u"Creditore"_s));
            row.amount = ReadAmount(records, records.column(u"Importo"_s));
            row.vat = ReadAmount(records, records.column(u"ImportoIVA"_s));
            row.other = ReadAmount(records, records.column(u"AltriImporti01"_s));
            row.nulls = nullFields(records, table);
        });
}

void readAllocations(OpenFile &ledger, ProjectData &data)
{
    data.allocations = ledger.checkedRows<AllocationRow>(
        u"SELECT * FROM Spese"_s, SpeseTable(), AllocationName,
        [](const RecordSet &records, AllocationRow &row) {
            row.payment = ReadWhole(records, records.column(u"RelNpag"_s));
            row.code = ReadText(records, records.column(u"Cod"_s));
            row.amount = ReadAmount(records, records.column(u"Importo"_s));
        });
}

/** The budget's fields with the types that the program reads them as. */
TableDef budgetTable()
{
    TableDef table(u"UltimaPerVariante"_s);
    for (const QString &name : {u"Voce"_s, u"Descri"_s}) {
        table.appendField(name, FieldType::Text);
        table.field(name).allowZeroLength = true;
    }
    table.appendField(u"Importo"_s, FieldType::Currency);
    return table;
}

void readBudget(OpenFile &contract, ProjectData &data)
{
    data.budget = contract.checkedRows<BudgetRow>(
        u"SELECT * FROM UltimaPerVariante ORDER BY Voce"_s, budgetTable(), BudgetName,
        [](const RecordSet &records, BudgetRow &row) {
            row.code = ReadText(records, records.column(u"Voce"_s));
            row.description = ReadText(records, records.column(u"Descri"_s));
        });
}

void readSheet(OpenFile &contract, ProjectData &data)
{
    data.sheet = contract.rows<SheetRow>(
        u"SELECT * FROM SchedaProgetto ORDER BY VOCE"_s, [](const RecordSet &records) {
            for (const QString &name : {u"Funzione"_s, u"Descri"_s, u"Importo"_s, u"NomeFile"_s})
                records.column(name);
            const int code = records.column(u"Voce"_s);
            const int text = records.column(u"Stringa"_s);
            const int link = records.column(u"Link"_s);
            return [&records, code, text, link](int /*place*/) {
                return SheetRow{records.field(code).textOrEmpty(),
                                records.field(text).textOrEmpty(), ReadWhole(records, link)};
            };
        });
}

/** A table of links to companies, of which only the fields matter. */
void requireTable(OpenFile &companies, const QString &table, const QString &field)
{
    companies.rows<int>(u"SELECT * FROM "_s + table, [&field](const RecordSet &records) {
        records.column(field);
        records.column(u"AnagRel"_s);
        return [](int place) { return place; };
    });
}

void readCompanies(const QString &path, ProjectData &data, Findings &findings)
{
    OpenFile companies(path, findings);
    const auto ids =
        companies.rows<Stored<qint32>>(u"SELECT * FROM Anag"_s, [](const RecordSet &records) {
            records.column(u"nominativo"_s);
            records.column(u"TipImprese"_s);
            const int id = records.column(u"ID"_s);
            return [&records, id](int /*place*/) { return ReadWhole(records, id); };
        });
    requireTable(companies, u"Partecip"_s, u"Nord"_s);
    requireTable(companies, u"Manda"_s, u"AnagPar"_s);
    if (!ids)
        return;
    data.companies.emplace();
    for (const Stored<qint32> &id : *ids) {
        if (id.value)
            data.companies->insert(*id.value);
    }
}

void readCodes(const QString &path, ProjectData &data, Findings &findings)
{
    OpenFile codes(path, findings);
    data.codes = codes.rows<CodeRow>(
        u"SELECT * FROM Funzioni ORDER BY CodInt"_s, [](const RecordSet &records) {
            const int internalCode = records.column(u"CodInt"_s);
            const int externalCode = records.column(u"CodExt"_s);
            const int description = records.column(u"Desc"_s);
            return [&records, internalCode, externalCode, description](int /*place*/) {
                return CodeRow{records.field(internalCode).textOrEmpty(),
                               ReadText(records, externalCode), ReadText(records, description)};
            };
        });
}

} // namespace

ProjectFiles FilesOfProject(const QString &folder, const QString &codes)
{
    const QString base = QDir(folder).absolutePath();
    const auto found = [](const QString &path) { return MachinePath(QDir::cleanPath(path)); };
    return {found(base + u"/Saldoro.mdb"_s), found(base + u"/Appalto.mdb"_s),
            found(base + u"/AZIDB.mdb"_s),
            codes.isEmpty() ? found(base + u"/../../TABELLE/chiavi.mdb"_s)
                            : QFileInfo(codes).absoluteFilePath()};
}

ProjectData ReadProject(const ProjectFiles &files, Findings &findings)
{
    ProjectData data;
    {
        OpenFile ledger(files.ledger, findings);
        readPayments(ledger, data);
        readAllocations(ledger, data);
    }
    {
        OpenFile contract(files.contract, findings);
        readBudget(contract, data);
        readSheet(contract, data);
    }
    readCompanies(files.companies, data, findings);
    readCodes(files.codes, data, findings);
    return data;
}

} // namespace saldoro
