#include "verify/verification.h"

#include "common/errors.h"
#include "database/database.h"
#include "store/project_files.h"
#include "verify/checks.h"

#include <QFileInfo>

#include <map>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

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

Finding fileFault(const QString &path, const DatabaseError &error)
{
    QString place = QFileInfo(path).fileName();
    for (const QString &label : {u"Tabella"_s, u"Campo"_s}) {
        const QString name = error.detail(label);
        if (!name.isEmpty())
            place += u", "_s + label.toLower() + u' ' + name;
    }
    return {FindingGroup::Files, place, error.problem(), error.remedy()};
}

/** A table as the program opens it: its rows are named and found in that order. */
QString queryOf(const QString &table)
{
    static const std::map<QString, QString> orders{{u"Funzioni"_s, u" ORDER BY CodInt"_s},
                                                   {u"UltimaPerVariante"_s, u" ORDER BY Voce"_s},
                                                   {u"SchedaProgetto"_s, u" ORDER BY VOCE"_s},
                                                   {u"Fatture"_s, u" ORDER BY Npag "_s}};
    const auto order = orders.find(table);
    return u"SELECT * FROM "_s + table + (order == orders.end() ? QString() : order->second);
}

/** One check from beginning to end. */
class Verification
{
public:
    void readFile(ArchiveFile file, const QString &path)
    {
        guarded(path, [&] {
            const Database database = Database::openReadOnly(path);
            for (const TableDef &table : TablesOf(file))
                guarded(path, [&] { readTable(database, table); });
        });
    }

    Findings findings()
    {
        if (m_budget)
            CheckBudget(*m_budget, m_findings);
        if (m_payments)
            CheckNumbering(*m_payments, m_findings);
        if (m_allocations)
            CheckRepeated(*m_allocations, m_findings);
        if (m_allocations && m_payments) {
            CheckOwners(*m_allocations, *m_payments, m_findings);
            CheckInvoices(*m_allocations, *m_payments, m_findings);
        }
        if (m_allocations && m_budget)
            CheckItems(*m_allocations, *m_budget, m_findings);
        return m_findings;
    }

private:
    /** What can't be read becomes a finding; the rest is read all the same. */
    template <typename Action>
    void guarded(const QString &path, const Action &action)
    {
        try {
            action();
        } catch (const DatabaseError &error) {
            throwWhatHinders(path, error);
            m_findings.append(fileFault(path, error));
        }
    }

    void readTable(const Database &database, const TableDef &table)
    {
        RecordSet records = database.openRecordSet(queryOf(table.name()));
        for (const FieldDef &field : table.fields())
            records.column(field.name);
        if (table.name() == "Funzioni"_L1)
            m_contractor = CheckCodes(records, m_findings);
        else if (table.name() == "SchedaProgetto"_L1)
            CheckContractor(records, m_contractor, m_findings);
        else if (table.name() == "UltimaPerVariante"_L1)
            m_budget = ReadBudget(records, table, m_findings);
        else if (table.name() == "Fatture"_L1)
            m_payments = ReadPayments(records, table, m_findings);
        else if (table.name() == "Spese"_L1)
            m_allocations = ReadAllocations(records, table, m_findings);
    }

    Findings m_findings;
    QString m_contractor; ///< code of its item
    // No value: the table could not be read.
    std::optional<QList<CostItem>> m_budget;
    std::optional<QList<PaymentRow>> m_payments;
    std::optional<QList<AllocationRow>> m_allocations;
};

} // namespace

Findings VerifyProject(const QString &folder, const QString &codes)
{
    Verification verification;
    for (const ArchiveFile file : ArchiveFileList)
        verification.readFile(file, file == ArchiveFile::Codes && !codes.isEmpty()
                                        ? codes
                                        : ArchiveFilePath(file, folder));
    return verification.findings();
}

} // namespace saldoro
