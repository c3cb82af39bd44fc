#include "exchange/import.h"

#include "common/errors.h"
#include "exchange/command_options.h"
#include "exchange/import_losses.h"
#include "exchange/made_files.h"
#include "exchange/project_place.h"
#include "exchange/table_change.h"
#include "platform/machine_path.h"
#include "platform/whole_file.h"
#include "store/archive_paths.h"
#include "store/contract_folders.h"
#include "store/project_open_mark.h"
#include "verify/verification.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** One import from beginning to end. */
class ProjectImport
{
public:
    ProjectImport(const QString &folder, QList<GivenTable> tables, const ImportOptions &options)
        : m_folder(folder)
        , m_tables(std::move(tables))
        , m_options(options)
    {
    }

    ImportOutcome run()
    {
        checkRequest();
        if (!m_outcome.errors.isEmpty())
            return m_outcome;
        openDatabases();
        Transaction transaction(database(m_tables.first()));
        const Findings known = verified().check();
        planChanges();
        if (!m_outcome.errors.isEmpty())
            return m_outcome;
        backUp();
        for (qsizetype at = 0; at < m_tables.size(); ++at) {
            if (m_changes[at].isNeeded)
                WriteChange(database(m_tables[at]), m_tables[at], m_changes[at]);
        }
        check(known);
        if (!m_outcome.errors.isEmpty() || (!m_outcome.refusals.isEmpty() && !m_options.evenSo))
            return m_outcome;
        transaction.commit();
        m_made.keep();
        m_outcome.isDone = true;
        m_outcome.copies = m_copies;
        summarize();
        return m_outcome;
    }

private:
    QString path(ArchiveFile file) const { return ArchiveFilePath(file, m_folder); }
    QString fileName(ArchiveFile file) const { return QFileInfo(path(file)).fileName(); }
    const Database &database(const GivenTable &of) { return m_databases.at(of.table->archive); }
    void addError(const QString &text) { m_outcome.errors.append(FindingOf(text)); }
    void refuse(const QString &text) { m_outcome.refusals.append(FindingOf(text)); }

    bool isGiven(const QString &name) const
    {
        return std::ranges::count(m_tables, TableNamed(name), &GivenTable::table) > 0;
    }

    /** What needs no look into the databases. */
    void checkRequest()
    {
        const QString codesFolder = QFileInfo(path(ArchiveFile::Codes)).path();
        if (!m_options.createProject && !QFileInfo(codesFolder).isDir())
            addError(u"%1: la cartella non c'è; con %2 viene fatta."_s.arg(
                codesFolder, CommandOption::NewProject));
        for (const QString &name : m_options.replacedTables) {
            if (!isGiven(name))
                addError(u"%1 %2: nella cartella non c'è un file di questa tabella."_s.arg(
                    CommandOption::Replace, name));
        }
        for (const ArchiveFile file : ArchiveFileList) {
            if (!Database::hasPlainJournal(path(file)))
                addError(fileName(file) + u": "_s + Database::noPlainJournalProblem());
        }
        if (QFileInfo::exists(m_folder) && IsProjectOpen(m_folder))
            refuse(u"Saldoro ha aperto il progetto, e vi lavorerebbe con i valori di prima: "
                   "chiuderlo."_s);
    }

    /** Makes what is missing and opens all on one connection. */
    void openDatabases()
    {
        if (m_options.createProject) {
            for (const QString &folder : {m_folder, QFileInfo(path(ArchiveFile::Codes)).path()}) {
                if (IsTaken(folder) && !QFileInfo::exists(folder)) // a link to a disk that is away
                    throw DatabaseError(DatabaseFault::FileMissing, folder);
                m_made.makeFolder(folder);
            }
        }
        for (const ArchiveFile file : ArchiveFileList) {
            if (!IsTaken(path(file))) {
                m_made.makeDatabase(path(file), file);
                m_new.insert(file);
            }
        }
        const ArchiveFile first = m_tables.first().table->archive; // one that is to be written
        m_databases.emplace(first, Database::open(path(first)));
        for (const ArchiveFile file : ArchiveFileList) {
            if (file != first)
                m_databases.emplace(file, m_databases.at(first).attach(path(file)));
        }
        const ExchangedTable &codes = *TableNamed(u"Funzioni"_s);
        const bool isNeeded = m_new.contains(ArchiveFile::Codes) || m_options.createProject;
        // An empty code map is left where a first import was broken off.
        if (isNeeded && !isGiven(codes.name()) &&
            StoredRows(m_databases.at(ArchiveFile::Codes), codes.definition).isEmpty())
            m_tables.append({&codes, codes.fieldNames(), codes.name(), StandardCodeRows()});
    }

    Verification verified() const
    {
        Verification verification;
        for (const auto &[file, opened] : m_databases)
            verification.read(opened, file);
        return verification;
    }

    void planChanges()
    {
        for (const GivenTable &given : std::as_const(m_tables)) {
            QStringList errors;
            m_changes.append(ChangeOf(database(given), given, errors));
            for (const QString &error : std::as_const(errors))
                addError(error);
            if (!m_changes.last().isNeeded)
                continue;
            m_changing.insert(given.table->archive);
            if (!m_changes.last().stored.isEmpty())
                checkReplacement(given, m_changes.last());
        }
    }

    void checkReplacement(const GivenTable &given, const TableChange &change)
    {
        const QString &name = given.table->name();
        const QString count = QString::number(change.stored.size());
        if (!m_options.replacedTables.contains(name, Qt::CaseInsensitive))
            addError(u"%1: la tabella contiene già %2 righe; con %3 %4 vengono "
                     "sostituite."_s.arg(given.source, count, CommandOption::Replace, name));
        else if (change.rows.isEmpty())
            refuse(u"%1: la tabella, che contiene %2 righe, resterebbe vuota."_s.arg(given.source,
                                                                                     count));
        if (name == "Funzioni"_L1)
            m_outcome.warnings.append(
                given.source + u": i codici valgono per tutti i progetti, e cambiano per tutti."_s);
    }

    /** Copies what was there before and is to change. */
    void backUp()
    {
        for (const ArchiveFile file : ArchiveFileList) {
            if (m_new.contains(file)) {
                m_done += fileName(file) + u": creato\n"_s;
            } else if (m_changing.contains(file)) {
                m_copies.append(m_databases.at(file).backUpBeside());
                m_made.add(m_copies.last());
                m_done +=
                    u"%1: cambiato; com'era sta in %2\n"_s.arg(fileName(file), m_copies.last());
            }
        }
    }

    /** What the project will be like; @p known was found before. */
    void check(const Findings &known)
    {
        const Verification verification = verified();
        const ProjectTables &tables = verification.tables();
        for (qsizetype at = 0; at < m_tables.size(); ++at) {
            if (!m_changes[at].isNeeded)
                continue;
            const auto written = tables.find(m_tables[at].table->name());
            if (written == tables.end() || !IsWritten(m_tables[at], written->second.rows))
                throw FileError(
                    path(m_tables[at].table->archive),
                    u"L'archivio ha cambiato da sé ciò che vi è stato scritto (trigger)."_s,
                    u"Togliere i trigger dall'archivio, con l'aiuto dell'assistenza."_s);
            m_budget += AddLosses(m_tables[at], m_changes[at], tables, m_outcome);
        }
        QSet<std::pair<QString, QString>> before;
        for (const Finding &finding : known)
            before.insert({finding.subject, finding.problem});
        for (Finding finding : verification.check()) {
            const bool isKnown = before.contains({finding.subject, finding.problem});
            for (const GivenTable &given : std::as_const(m_tables)) {
                if (finding.row >= 0 && finding.row < given.rows.size() &&
                    finding.table == given.table->name())
                    finding.subject.prepend(given.rowName(finding.row) + u": "_s);
            }
            // Values and files that can't be read right are told by each command until they are.
            const bool isPassed = isKnown && finding.group != FindingGroup::Files &&
                                  finding.group != FindingGroup::Values;
            (isPassed ? m_outcome.known : m_outcome.refusals).append(finding);
        }
    }

    void summarize()
    {
        m_outcome.summary = m_done;
        for (qsizetype at = 0; at < m_tables.size(); ++at)
            m_outcome.summary += SummaryOf(*m_tables[at].table, m_changes[at].rows) +
                                 (m_changes[at].isNeeded ? u"\n"_s : u" (c'era già, uguale)\n"_s);
        if (!m_budget.isEmpty())
            m_outcome.summary += u"Voci di spesa cambiate:\n"_s;
        for (const BudgetChange &item : std::as_const(m_budget))
            m_outcome.summary += u"  "_s + item.text() + u'\n';
    }

    MadeFiles m_made; // goes last, when the databases are closed
    QString m_folder;
    QList<GivenTable> m_tables;
    const ImportOptions &m_options;
    std::map<ArchiveFile, Database> m_databases;
    std::set<ArchiveFile> m_new;
    std::set<ArchiveFile> m_changing;
    QList<TableChange> m_changes; ///< of each table
    QStringList m_copies;
    QString m_done;               ///< with the databases
    QList<BudgetChange> m_budget; ///< where there was a budget
    ImportOutcome m_outcome;
};

/** Imports into a folder beside the final one, and renames it when it is complete. */
ImportOutcome newProject(const QString &folder, const QList<GivenTable> &tables,
                         const ImportOptions &options)
{
    if (const QString problem = ContractCodeProblem(QFileInfo(folder).fileName(), {});
        !problem.isEmpty())
        throw FileError(folder, problem, u"Dare alla cartella un altro nome."_s);
    const ProjectOpenMark mark(folder);
    if (mark.isOpenElsewhere())
        throw SaldoroError(u"Un altro programma sta facendo lo stesso progetto."_s,
                           u"Attendere che abbia finito, e riprovare."_s);
    const QString aside = AsideName(folder);
    const QString codes = ArchiveFilePath(ArchiveFile::Codes, folder);
    const bool hadCodes = QFileInfo::exists(codes);
    ImportOutcome outcome = ProjectImport(aside, tables, options).run();
    QString kept; // without copies the code map is new, or as it was
    if (!outcome.copies.isEmpty())
        kept = u"Niente è stato scritto, fuorché la tabella dei codici: com'era sta in "_s +
               outcome.copies.join(u", "_s);
    try {
        if (outcome.isDone)
            WithDetail(Detail::Outcome, kept, [&] { PutInPlace(aside, folder); });
    } catch (...) {
        QDir(aside).removeRecursively();
        if (!hadCodes)
            QFile::remove(codes);
        throw;
    }
    return outcome;
}

} // namespace

ImportOutcome ImportTables(const QString &folder, const QList<GivenTable> &tables,
                           const ImportOptions &options)
{
    ImportOutcome outcome = SayingNothingIsWritten([&] {
        return options.createProject && !IsTaken(folder)
                   ? newProject(folder, tables, options)
                   : ProjectImport(folder, tables, options).run();
    });
    try {
        if (options.createProject && outcome.isDone)
            outcome.summary += AdoptArchivesRoot(ProjectPlaceOf(folder));
    } catch (const SaldoroError &error) {
        outcome.warnings.append(error.message()); // the project has been imported by now
    }
    return outcome;
}

} // namespace saldoro
