#include "exchange/import.h"

#include "common/errors.h"
#include "database/database.h"
#include "exchange/import_rules.h"
#include "exchange/progress.h"
#include "exchange/project_place.h"
#include "store/project_files.h"

#include <QDir>
#include <QFileInfo>

#include <functional>
#include <map>
#include <optional>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

const ExchangedTable *tableNamed(const QString &name)
{
    for (const ExchangedTable &table : ExchangedTables()) {
        if (table.name().compare(name, Qt::CaseInsensitive) == 0)
            return &table;
    }
    return nullptr;
}

/** The CSV files of a folder by the table that each is for. */
std::map<const ExchangedTable *, QString> csvPaths(const QString &folder, QStringList &errors)
{
    std::map<const ExchangedTable *, QString> paths;
    for (const QFileInfo &file : QDir(folder).entryInfoList({u"*.csv"_s}, QDir::Files)) {
        const ExchangedTable *table = tableNamed(file.completeBaseName());
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
        if (StoredRows(database, table) != change->seen)
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

/** One import from beginning to end. */
class ProjectImport
{
public:
    ProjectImport(const ImportRequest &request, const QString &folder)
        : m_request(request)
        , m_folder(folder)
    {
    }

    /** Reads and checks. */
    void prepare()
    {
        const auto paths = csvPaths(ExistingFolder(m_request.csvFolder), m_remarks.errors);
        const QString codesFolder = QFileInfo(path(ArchiveFile::Codes)).path();
        if (!m_request.createProject && !QFileInfo(codesFolder).isDir())
            m_remarks.errors.append(codesFolder +
                                    u": la cartella non c'è; con --nuovo viene fatta."_s);
        for (const QString &name : m_request.replacedTables) {
            if (!paths.contains(tableNamed(name)))
                m_remarks.errors.append(u"--sostituisci "_s + name +
                                        u": nella cartella non c'è un file di questa tabella."_s);
        }
        for (const auto &[table, path] : paths)
            read(*table, path);
        if (!exists(ArchiveFile::Codes) && !paths.contains(&codesTable()))
            m_changes.prepend({{&codesTable(), codesTable().fileName(), StandardCodeRows()}});
        // The code map comes first among the tables.
        const bool haveCodes = !m_changes.isEmpty() && &table(m_changes.first()) == &codesTable();
        const TableRows codes = haveCodes ? m_changes.first().table.rows : storedCodes();
        for (const TableChange &change : m_changes)
            CheckRows(change.table, codes, m_remarks);
    }

    const ImportRemarks &remarks() const { return m_remarks; }

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

    void read(const ExchangedTable &table, const QString &csvPath)
    {
        TableDef definition = table.definition;
        TableRows rows;
        const bool isThere = exists(table.archive);
        if (isThere) {
            const Database database = Database::open(path(table.archive));
            const std::optional<TableDef> stored = database.tableDef(table.name());
            if (!stored) {
                m_remarks.errors.append(
                    table.fileName() + u": "_s + QFileInfo(database.path()).fileName() +
                    (database.isStoredQuery(table.name())
                         ? u" ha sotto questo nome un'interrogazione, che non si sostituisce."_s
                         : u" non ha questa tabella."_s));
                return;
            }
            definition = *stored;
            rows = StoredRows(database, table);
        }
        CsvTable read = ReadCsvTable(csvPath, table, std::move(definition), m_remarks.errors);
        if (!read.unknownFields.isEmpty())
            m_remarks.warnings.append(read.file + u": campi tralasciati: "_s +
                                      read.unknownFields.join(u", "_s) + u'.');
        const bool isNeeded = !isThere || read.rows != rows;
        if (isNeeded && !rows.isEmpty())
            checkReplacement(read, rows);
        m_changes.append({std::move(read), std::move(rows), isNeeded});
    }

    void checkReplacement(const CsvTable &table, const TableRows &rows)
    {
        const QString &name = table.table->name();
        if (!m_request.replacedTables.contains(name, Qt::CaseInsensitive)) {
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
                   ? StoredRows(Database::open(path(ArchiveFile::Codes)), codesTable())
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

    const ImportRequest &m_request;
    QString m_folder;
    ImportRemarks m_remarks;
    QList<TableChange> m_changes;
};

} // namespace

ImportOutcome ImportProject(const ImportRequest &request)
{
    std::optional<ProjectPlace> place;
    if (request.createProject)
        place = PlaceOf(request.projectFolder);
    ProjectImport import(request, place ? place->folder : ExistingFolder(request.projectFolder));
    import.prepare();
    ImportOutcome outcome{
        import.remarks().allowWriting(request.evenSo), import.remarks().text(request.evenSo), {}};
    if (!outcome.isDone)
        return outcome;
    if (place)
        MakeFolders(*place);
    outcome.summary = import.write();
    if (place)
        outcome.summary += SettingReport(*place);
    return outcome;
}

} // namespace saldoro
