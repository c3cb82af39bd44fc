#include "exchange/import.h"

#include "common/errors.h"
#include "database/database.h"
#include "exchange/export.h"
#include "exchange/import_rules.h"
#include "exchange/progress.h"
#include "exchange/project_place.h"
#include "store/project_files.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** The CSV files of a folder by the table that each is for. */
std::map<const ExchangedTable *, QString> csvPaths(const QString &folder, QStringList &errors)
{
    std::map<const ExchangedTable *, QString> paths;
    for (const QFileInfo &file : QDir(folder).entryInfoList({u"*.csv"_s}, QDir::Files)) {
        const ExchangedTable *table = TableNamed(file.completeBaseName());
        if (table == nullptr)
            errors.append(file.fileName() + u": nessuna tabella ha questo nome."_s);
        else if (!paths.try_emplace(table, file.filePath()).second)
            errors.append(file.fileName() + u": un altro file è per la stessa tabella."_s);
    }
    if (paths.empty() && errors.isEmpty())
        throw FileError(folder, u"Nella cartella non ci sono file CSV."_s,
                        u"Ogni file prende il nome da una tabella, per esempio "
                        "UltimaPerVariante.csv."_s);
    return paths;
}

/** What becomes of one table. */
struct TableChange
{
    CsvTable table;
    TableRows seen = {};  ///< the rows that make way
    bool isNeeded = true; ///< false: the table is as its file already
};

void append(const Database &database, const ExchangedTable &table, const TableRows &rows)
{
    const QStringList fields = table.fieldNames();
    RecordSet records = database.openRecordSet(u"SELECT * FROM "_s + table.name());
    Progress progress(u"Scrittura di "_s + table.name());
    for (qsizetype place = 0; place < rows.size(); ++place) {
        records.addNew();
        for (qsizetype field = 0; field < fields.size(); ++field)
            records.set(fields[field], rows[place][field]);
        records.update();
        progress.show(place);
    }
}

/** Puts the rows of files in the place of those that were seen, in one transaction. */
void fill(Database database, const QList<const TableChange *> &changes)
{
    Transaction transaction(database);
    for (const TableChange *change : changes) {
        const ExchangedTable &table = *change->table.table;
        if (StoredRows(database, table.definition) != change->seen)
            throw FileError(database.path(), u"L'archivio è cambiato mentre veniva letto."_s,
                            u"Chiudere Saldoro e ripetere il comando."_s);
        if (!change->seen.isEmpty())
            database.deleteAll(table.name());
        append(database, table, change->table.rows);
    }
    transaction.commit();
}

/** Puts a copy beside a database that can be changed; gives its name. */
QString backUp(const QString &path)
{
    Database database = Database::open(path);
    {
        const Transaction lock(database); // tells what takes no change, or is in use
    }
    return database.backUpBeside();
}

/** Makes a database aside, with all its tables, and renames it. Gives what has been done. */
QString makeFile(ArchiveFile file, const QString &path, const QList<const TableChange *> &changes)
{
    const QString aside = path + u".nuovo"_s;
    const auto removeAside = [&aside] {
        QFile::remove(aside);
        QFile::remove(aside + u"-journal"_s);
    };
    removeAside(); // of an import that was broken off
    try {
        fill(CreateArchiveFile(aside, file), changes);
        if (!QFile::rename(aside, path))
            throw FileError(path, u"L'archivio non può essere creato."_s,
                            u"Controllare i permessi e lo spazio libero sul disco."_s);
    } catch (...) {
        removeAside();
        throw;
    }
    return QFileInfo(path).fileName() + u": creato\n"_s;
}

Findings findingsOf(const QStringList &lines)
{
    Findings findings;
    for (const QString &line : lines)
        findings.append({FindingGroup::Files, line, {}, {}});
    return findings;
}

/** The definition that a table has in the project, or will have; says why it can't be filled. */
std::optional<TableDef> storedDefinition(const QString &folder, const ExchangedTable &table,
                                         QStringList &errors)
{
    const QString path = ArchiveFilePath(table.archive, folder);
    if (!QFileInfo::exists(path))
        return table.definition;
    const Database database = Database::open(path);
    std::optional<TableDef> stored = database.tableDef(table.name());
    if (!stored)
        errors.append(table.fileName() + u": "_s + QFileInfo(path).fileName() +
                      (database.isStoredQuery(table.name())
                           ? u" ha sotto questo nome un'interrogazione, che non si sostituisce."_s
                           : u" non ha questa tabella."_s));
    return stored;
}

QString headed(const QString &heading, const QStringList &lines)
{
    return lines.isEmpty() ? QString() : heading + u"\n  "_s + lines.join(u"\n  "_s) + u'\n';
}

QStringList linesOf(const Findings &findings)
{
    QStringList lines;
    for (const Finding &finding : findings)
        lines.append(finding.place +
                     (finding.problem.isEmpty() ? QString() : u": "_s + finding.problem));
    return lines;
}

/** One import from beginning to end. */
class ProjectImport
{
public:
    ProjectImport(const ImportOptions &options, const QString &folder)
        : m_options(options)
        , m_folder(folder)
    {
    }

    /** Reads and checks. */
    void prepare(const QList<CsvTable> &tables)
    {
        const QString codesFolder = QFileInfo(path(ArchiveFile::Codes)).path();
        if (!m_options.createProject && !QFileInfo(codesFolder).isDir())
            m_remarks.errors.append(codesFolder +
                                    u": la cartella non c'è; con --nuovo viene fatta."_s);
        const auto isGiven = [&tables](const QString &name) {
            return std::any_of(tables.begin(), tables.end(), [&name](const CsvTable &table) {
                return table.table == TableNamed(name);
            });
        };
        for (const QString &name : m_options.replacedTables) {
            if (!isGiven(name))
                m_remarks.errors.append(u"--sostituisci "_s + name +
                                        u": nella cartella non c'è un file di questa tabella."_s);
        }
        for (const CsvTable &table : tables)
            read(table);
        if (!exists(ArchiveFile::Codes) && !isGiven(codesTable().name()))
            m_changes.prepend({{&codesTable(), codesTable().fileName(), StandardCodeRows()}});
        // The code map comes first among the tables.
        const bool haveCodes = !m_changes.isEmpty() && &table(m_changes.first()) == &codesTable();
        const TableRows codes = haveCodes ? m_changes.first().table.rows : storedCodes();
        for (const TableChange &change : m_changes)
            CheckRows(change.table, codes, m_remarks);
    }

    ImportOutcome outcome() const
    {
        return {m_remarks.allowWriting(m_options.evenSo), findingsOf(m_remarks.errors),
                findingsOf(m_remarks.refusals), m_remarks.warnings, m_budget};
    }

    /** Gives what has been written. */
    QString write()
    {
        // What is in the way of one database is told before another one is changed; those that
        // are new are made first.
        std::map<ArchiveFile, QString> copies;
        for (const ArchiveFile file : ArchiveFileList) {
            if (exists(file) && !changesOf(file).isEmpty())
                copies[file] = backUp(path(file));
        }
        QString done;
        const auto add = [&done](const std::function<QString()> &step) {
            WithDetail(
                u"Prima di questo"_s, [&done] { return done.trimmed(); }, [&] { done += step(); });
        };
        for (const ArchiveFile file : ArchiveFileList) {
            if (!exists(file))
                add([&] { return makeFile(file, path(file), changesOf(file)); });
        }
        for (const auto &[file, copy] : copies)
            add([&, file = file, copy = copy] { return changeFile(file, copy); });
        for (const TableChange &change : m_changes)
            done += SummaryOf(table(change), change.table.rows) +
                    (change.isNeeded ? u"\n"_s : u" (c'era già, uguale)\n"_s);
        return done;
    }

private:
    static const ExchangedTable &codesTable() { return ExchangedTables().front(); }
    static const ExchangedTable &table(const TableChange &change) { return *change.table.table; }
    QString path(ArchiveFile file) const { return ArchiveFilePath(file, m_folder); }
    bool exists(ArchiveFile file) const { return QFileInfo::exists(path(file)); }

    void read(const CsvTable &read)
    {
        TableRows rows;
        const bool isThere = exists(read.table->archive);
        if (isThere)
            rows = StoredRows(Database::open(path(read.table->archive)), read.table->definition);
        m_remarks.warnings.append(read.warnings);
        if (!read.unknownFields.isEmpty())
            m_remarks.warnings.append(read.file + u": campi tralasciati: "_s +
                                      read.unknownFields.join(u", "_s) + u'.');
        const bool isNeeded = !isThere || read.rows != rows;
        if (isNeeded && !rows.isEmpty())
            checkReplacement(read, rows);
        m_changes.append({read, std::move(rows), isNeeded});
        if (read.table->name() == "UltimaPerVariante"_L1 && isThere)
            m_budget = CompareBudget(m_folder, read.rows);
    }

    void checkReplacement(const CsvTable &table, const TableRows &rows)
    {
        const QString &name = table.table->name();
        if (!m_options.replacedTables.contains(name, Qt::CaseInsensitive)) {
            m_remarks.errors.append(
                u"%1: la tabella contiene già %2 righe; con --sostituisci %3 vengono sostituite."_s
                    .arg(table.file)
                    .arg(rows.size())
                    .arg(name));
        } else if (name == "Funzioni"_L1) {
            m_remarks.warnings.append(
                table.file + u": i codici valgono per tutti i progetti, e cambiano per tutti."_s);
        } else if (name == "SchedaProgetto"_L1) {
            for (const QString &item : LostItems(table, rows, storedCodes()))
                m_remarks.errors.append(table.file + u": andrebbe persa la voce "_s + item +
                                        u", che ha scritto Saldoro; aggiungerla al file."_s);
        }
    }

    /** The code map as it is, or will be made. */
    TableRows storedCodes() const
    {
        return exists(ArchiveFile::Codes)
                   ? StoredRows(Database::open(path(ArchiveFile::Codes)), codesTable().definition)
                   : StandardCodeRows();
    }

    QList<const TableChange *> changesOf(ArchiveFile file) const
    {
        QList<const TableChange *> changes;
        for (const TableChange &change : m_changes) {
            if (table(change).archive == file && change.isNeeded)
                changes.append(&change);
        }
        return changes;
    }

    QString changeFile(ArchiveFile file, const QString &copy) const
    {
        fill(Database::open(path(file)), changesOf(file));
        return u"%1: cambiato; com'era sta in %2\n"_s.arg(QFileInfo(path(file)).fileName(), copy);
    }

    const ImportOptions &m_options;
    QString m_folder;
    ImportRemarks m_remarks;
    QList<TableChange> m_changes;
    QList<BudgetChange> m_budget;
};

} // namespace

QString ImportOutcome::remarks() const
{
    return headed(u"Avvertimenti:"_s, warnings) + headed(u"Errori:"_s, linesOf(errors)) +
           headed(u"Darebbe problemi più tardi (con --comunque si importa lo stesso):"_s,
                  isDone ? QStringList() : linesOf(refusals)) +
           (isDone ? QString() : u"Niente è stato scritto.\n"_s);
}

ImportOutcome ImportTables(const QString &projectFolder, const QList<CsvTable> &tables,
                           const ImportOptions &options)
{
    std::optional<ProjectPlace> place;
    if (options.createProject)
        place = PlaceOf(projectFolder);
    ProjectImport import(options, place ? place->folder : ExistingFolder(projectFolder));
    import.prepare(tables);
    ImportOutcome outcome = import.outcome();
    if (!outcome.isDone)
        return outcome;
    if (place)
        MakeFolders(*place);
    outcome.summary = import.write();
    if (place)
        outcome.summary += SettingReport(*place);
    return outcome;
}

ImportOutcome ImportFiles(const QString &projectFolder, const QString &csvFolder,
                          const ImportOptions &options)
{
    const QString folder =
        options.createProject ? PlaceOf(projectFolder).folder : ExistingFolder(projectFolder);
    RefuseMixedFiles(csvFolder);
    QStringList errors;
    QList<CsvTable> tables;
    for (const auto &[table, path] : csvPaths(ExistingFolder(csvFolder), errors)) {
        if (auto definition = storedDefinition(folder, *table, errors))
            tables.append(ReadCsvTable(path, *table, *std::move(definition), errors));
    }
    if (!errors.isEmpty())
        return {false, findingsOf(errors)};
    return ImportTables(projectFolder, tables, options);
}

} // namespace saldoro
