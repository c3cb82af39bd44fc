#include "exchange/import.h"

#include "common/errors.h"
#include "exchange/archive_rows.h"
#include "exchange/import_rules.h"
#include "exchange/import_target.h"
#include "exchange/project_place.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <list>
#include <map>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Paths of the CSV files by the table that each is for. */
using CsvPaths = std::map<const ExchangedTable *, QString>;

const ExchangedTable *tableNamed(const QString &name)
{
    const auto &tables = ExchangedTables();
    const auto found = std::find_if(tables.begin(), tables.end(), [&](const auto &table) {
        return table.name().compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == tables.end() ? nullptr : &*found;
}

CsvPaths csvPaths(const QString &folder, QStringList &errors)
{
    CsvPaths paths;
    for (const QFileInfo &file : QDir(folder).entryInfoList(QDir::Files, QDir::Name)) {
        if (file.suffix().compare("csv"_L1, Qt::CaseInsensitive) != 0)
            continue;
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

bool isSame(const CsvTable &table, const TableRows &rows)
{
    return std::equal(
        table.records.begin(), table.records.end(), rows.begin(), rows.end(),
        [](const CsvRecord &record, const QList<NewValue> &row) { return record.values == row; });
}

/** One import from beginning to end. */
class ProjectImport
{
public:
    ProjectImport(const ImportRequest &request, const QString &folder)
        : m_request(request)
    {
        for (const ArchiveFile file : {ArchiveFile::Codes, ArchiveFile::Contract,
                                       ArchiveFile::Companies, ArchiveFile::Ledger})
            m_targets.try_emplace(file, file, ArchiveFilePath(file, folder));
    }

    /** Reads and checks. */
    void prepare()
    {
        const CsvPaths paths = csvPaths(ExistingFolder(m_request.csvFolder), m_remarks.errors);
        checkFolders();
        for (const QString &name : m_request.replacedTables) {
            if (!paths.contains(tableNamed(name)))
                m_remarks.errors.append(u"--sostituisci "_s + name +
                                        u": nella cartella non c'è un file di questa tabella."_s);
        }
        for (const auto &[table, path] : paths)
            read(*table, path);
        const CodeMap codes = codesInForce();
        for (const CsvTable &table : m_tables)
            CheckRows(table, codes, m_remarks);
    }

    bool isGood() const
    {
        return m_remarks.errors.isEmpty() && (m_request.evenSo || m_remarks.refusals.isEmpty());
    }

    QString remarks() const
    {
        QString text;
        const auto add = [&text](const QString &heading, const QStringList &lines) {
            if (!lines.isEmpty())
                text += heading + u"\n  "_s + lines.join(u"\n  "_s) + u'\n';
        };
        add(u"Avvertimenti:"_s, m_remarks.warnings);
        add(u"Errori:"_s, m_remarks.errors);
        if (!m_request.evenSo)
            add(u"Darebbe problemi più tardi (con --comunque si importa lo stesso):"_s,
                m_remarks.refusals);
        return isGood() ? text : text + u"Niente è stato scritto.\n"_s;
    }

    /** Gives what has been written. */
    QString write()
    {
        for (auto &[file, target] : m_targets)
            target.backUp();
        for (auto &[file, target] : m_targets)
            target.write(m_progress);
        QString done;
        for (auto &[file, target] : m_targets) {
            try {
                target.finish();
            } catch (SaldoroError &error) {
                error.addDetail(u"Prima di questo"_s, done.trimmed());
                throw;
            }
            done += target.report();
        }
        for (const CsvTable &table : m_tables)
            done += summary(table);
        return done;
    }

private:
    void checkFolders()
    {
        for (const auto &[file, target] : m_targets) {
            const QString folder = QFileInfo(target.path()).path();
            if (!m_request.createProject && !QFileInfo(folder).isDir())
                m_remarks.errors.append(folder +
                                        u": la cartella non c'è; con --nuovo viene fatta."_s);
        }
    }

    void read(const ExchangedTable &table, const QString &path)
    {
        ImportTarget &target = m_targets.at(table.archive);
        const std::optional<TableDef> stored = target.storedTable(table, m_remarks.errors);
        if (!stored)
            return;
        const QString step = u"Lettura di "_s + table.name();
        const CsvTable &read = m_tables.emplace_back(ReadCsvTable(
            path, table, *stored, m_remarks.errors,
            [&](qsizetype done, qsizetype whole) { m_progress.show(step, done, whole); }));
        if (!read.unknownFields.isEmpty())
            m_remarks.warnings.append(read.file + u": campi tralasciati: "_s +
                                      read.unknownFields.join(u", "_s) + u'.');
        const TableRows rows = target.storedRows(table);
        if (isSame(read, rows))
            m_same.append(&read);
        else if (rows.isEmpty() || mayReplace(read, rows))
            target.add(read, rows);
    }

    bool mayReplace(const CsvTable &table, const TableRows &rows)
    {
        const QString &name = table.table->name();
        if (!m_request.replacedTables.contains(name, Qt::CaseInsensitive)) {
            m_remarks.errors.append(
                u"%1: la tabella contiene già %2 righe; con --sostituisci %3 vengono sostituite."_s
                    .arg(table.file)
                    .arg(rows.size())
                    .arg(name));
            return false;
        }
        if (name == "Funzioni"_L1)
            m_remarks.warnings.append(
                table.file + u": i codici valgono per tutti i progetti, e cambiano per tutti."_s);
        if (name == "SchedaProgetto"_L1) {
            for (const QString &item : LostItems(table, rows, storedCodes()))
                m_remarks.errors.append(table.file + u": andrebbe persa la voce "_s + item +
                                        u", che ha scritto Saldoro; aggiungerla al file."_s);
        }
        return true;
    }

    CodeMap storedCodes()
    {
        return CodeMapOf(m_targets.at(ArchiveFile::Codes).storedRows(ExchangedTables().front()));
    }

    /** The code map as it will be. */
    CodeMap codesInForce()
    {
        TableRows rows;
        for (const CsvTable &table : m_tables) {
            if (table.table->archive != ArchiveFile::Codes)
                continue;
            for (const CsvRecord &record : table.records)
                rows.append(record.values);
            return CodeMapOf(rows);
        }
        if (m_targets.at(ArchiveFile::Codes).exists())
            return storedCodes();
        for (const CodeMapping &code : StandardCodes())
            rows.append({code.internalCode, code.externalCode, code.description});
        return CodeMapOf(rows);
    }

    QString summary(const CsvTable &table) const
    {
        TableTotal total(*table.table);
        for (const CsvRecord &record : table.records)
            total.add(record.values);
        return TableSummary(*table.table, static_cast<qsizetype>(table.records.size()),
                            total.total()) +
               (m_same.contains(&table) ? u" (c'era già, uguale)\n"_s : u"\n"_s);
    }

    const ImportRequest &m_request;
    ImportRemarks m_remarks;
    std::map<ArchiveFile, ImportTarget> m_targets;
    std::list<CsvTable> m_tables;
    QList<const CsvTable *> m_same; ///< those that the archive holds already
    Progress m_progress;
};

} // namespace

ImportOutcome ImportProject(const ImportRequest &request)
{
    std::optional<ProjectPlace> place;
    if (request.createProject)
        place = PlaceOf(request.projectFolder);
    ProjectImport import(request, place ? place->folder : ExistingFolder(request.projectFolder));
    import.prepare();
    ImportOutcome outcome{import.isGood(), import.remarks(), {}};
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
