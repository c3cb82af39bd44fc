#include "verify/verification.h"

#include "common/errors.h"
#include "platform/machine_path.h"
#include "platform/progress.h"
#include "platform/whole_file.h"
#include "store/table_definitions.h"
#include "verify/allocation_checks.h"
#include "verify/company_checks.h"
#include "verify/contract_checks.h"
#include "verify/payment_checks.h"
#include "verify/value_checks.h"
#include "verify/write_trial.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView stopsSaving = u"il prossimo salvataggio si fermerà qui: ";

/** Throws on what is no finding: the file is in use or has a change that was broken off. */
void throwWhatHinders(const QString &path, const DatabaseError &error)
{
    // Only a program that writes can undo a change that was broken off, and a check does not write.
    if (error.fault() == DatabaseFault::ReadOnly && QFileInfo::exists(Database::journalPath(path)))
        throw FileError(path, u"Una modifica dell'archivio è rimasta a metà."_s,
                        u"Aprire una volta il progetto con Saldoro, che la annulla, e ripetere il "
                        "controllo."_s);
    if (error.fault() == DatabaseFault::Locked || error.fault() == DatabaseFault::ReadOnly)
        throw error;
}

Finding fileFault(const QString &path, const DatabaseError &error)
{
    QString subject = QFileInfo(path).fileName();
    for (const Detail detail : {Detail::Table, Detail::Field}) {
        const QString name = error.detail(detail);
        if (!name.isEmpty())
            subject += u", "_s + LabelOf(detail).toLower() + u' ' + name;
    }
    const QString particulars = error.detail(Detail::Particulars);
    return {FindingGroup::Files, subject,
            error.problem() + (particulars.isEmpty() ? QString() : u" ("_s + particulars + u')'),
            error.remedy()};
}

} // namespace

/** What can't be read becomes a finding; the rest is read all the same. */
template <typename Action>
void Verification::guarded(const QString &path, const Action &action)
{
    try {
        action();
    } catch (const DatabaseError &error) {
        throwWhatHinders(path, error);
        m_ofFiles.append(fileFault(path, error));
    }
}

void Verification::addOfFile(const QString &path, const QString &problem)
{
    m_ofFiles.append({FindingGroup::Files, QFileInfo(path).fileName(), problem,
                      u"rimettere al suo posto una copia di riserva del file, o far rimediare "
                      "all'assistenza."_s});
}

void Verification::read(const Database &database, ArchiveFile file)
{
    guarded(database.path(), [&] {
        if (const QString damage = database.damage(); !damage.isEmpty())
            addOfFile(database.path(), u"il file è danneggiato ("_s + damage + u")."_s);
    });
    for (const TableDef &table : TablesOf(file)) {
        guarded(database.path(), [&] {
            m_tables.insert_or_assign(
                table.name(), ProjectTable{table, StoredRows(database, table, Reading::AsProgram)});
            if (IsWrittenBySaldoro(table.name()) && // for which it must not be a stored query
                !database.openRecordSet(u"SELECT * FROM "_s + table.name()).isUpdatable())
                addOfFile(database.path(),
                          u"nella tabella %1 il programma non può scrivere: è un'interrogazione o "
                          "ha una forma che non conosce."_s.arg(table.name()));
            if (const QStringList triggers = database.triggersOf(table.name()); !triggers.isEmpty())
                addOfFile(
                    database.path(),
                    u"la tabella %1 ha regole proprie (trigger %2), che cambiano da sé ciò che "
                    "si scrive, o altri dati."_s.arg(table.name(), triggers.join(u", "_s)));
        });
    }
}

void Verification::tryWriting(const Database &database, ArchiveFile file)
{
    if (std::ranges::none_of(TablesOf(file), IsWrittenBySaldoro, &TableDef::name))
        return;
    if (!QFileInfo(database.path()).isWritable())
        return m_ofFiles.append(
            fileFault(database.path(), DatabaseError(DatabaseFault::ReadOnly, database.path())));
    try {
        TryWriting(database.copyInMemory(), file);
    } catch (const DatabaseError &error) {
        Finding finding = fileFault(database.path(), error);
        finding.problem.prepend(stopsSaving);
        finding.remedy = u"chiedere a chi ha preparato l'archivio di togliere la regola che lo "
                         "vieta, o di rifare il file."_s;
        m_ofFiles.append(finding);
    }
}

void Verification::tryFolder(const QString &folder)
{
    constexpr qsizetype journal = 65536; // bytes; more than that of a payment
    try {
        const WholeFile trial(AsideName(folder + u"/prova"_s), QByteArray(journal, ' '));
    } catch (const FileError &error) {
        m_ofFiles.append({FindingGroup::Files,
                          u"Cartella "_s + QFileInfo(QDir(folder).absolutePath()).fileName(),
                          stopsSaving.toString() + error.problem(),
                          u"controllare i permessi della cartella e lo spazio sul disco."_s});
    }
}

Findings Verification::check() const
{
    Findings findings = m_ofFiles;
    const CheckedProject project(m_tables);
    for (const auto &rule :
         {CheckValues, CheckCodes, CheckContractor, CheckCompanies, CheckRepeated, CheckBudget,
          CheckItems, CheckPayments, CheckNumbering, CheckAllocatedTotals}) {
        const Progress step(u"Controllo"_s);
        rule(project, findings);
    }
    return findings;
}

Findings VerifyProject(const QString &folder, const QString &codes)
{
    Verification verification;
    for (const ArchiveFile file : ArchiveFileList) {
        const QString path =
            file == ArchiveFile::Codes && !codes.isEmpty() ? codes : ArchiveFilePath(file, folder);
        if (file == ArchiveFile::Ledger && !IsTaken(path) &&
            IsTaken(ArchiveFilePath(ArchiveFile::Contract, folder))) { // it is a project
            verification.m_ofFiles.append(
                {FindingGroup::Files, QFileInfo(path).fileName(),
                 u"non c'è: Saldoro lo fa, vuoto, quando apre il progetto."_s,
                 u"niente, se il progetto è nuovo; se ha già dei pagamenti, rimettere al suo posto "
                 "una copia di riserva del file prima di aprirlo."_s});
            continue;
        }
        verification.guarded(path, [&] {
            if (!Database::hasPlainJournal(path)) // to read it would make the other files
                return verification.addOfFile(path, Database::noPlainJournalProblem());
            const Database database = Database::openReadOnly(path);
            const Transaction together(database, TransactionKind::Reading);
            const qsizetype known = verification.m_ofFiles.size();
            verification.read(database, file);
            if (verification.m_ofFiles.size() == known)
                verification.tryWriting(database, file);
        });
    }
    verification.tryFolder(folder);
    return verification.check();
}

} // namespace saldoro
