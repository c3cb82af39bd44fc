#include "exchange/import.h"

#include "common/errors.h"
#include "exchange/import_rules.h"
#include "exchange/import_target.h"
#include "exchange/project_place.h"
#include "store/project_files.h"

#include <QDir>
#include <QFileInfo>

#include <list>
#include <map>
#include <optional>

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

/** One import from beginning to end. */
class ProjectImport
{
public:
    ProjectImport(const ImportRequest &request, const QString &folder)
        : m_request(request)
    {
        for (const ArchiveFile file : ArchiveFileList)
            m_targets.try_emplace(file, file, ArchiveFilePath(file, folder));
    }

    /** Reads and checks. */
    void prepare()
    {
        const auto paths = csvPaths(ExistingFolder(m_request.csvFolder), m_remarks.errors);
        for (const auto &[file, target] : m_targets) {
            const QString folder = QFileInfo(target.path()).path();
            if (!m_request.createProject && !QFileInfo(folder).isDir())
                m_remarks.errors.append(folder +
                                        u": la cartella non c'è; con --nuovo viene fatta."_s);
        }
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
            target.write();
        QString done;
        for (auto &[file, target] : m_targets) {
            try {
                done += target.finish();
            } catch (SaldoroError &error) {
                error.addDetail(u"Prima di questo"_s, done.trimmed());
                throw;
            }
        }
        for (const CsvTable &table : m_tables)
            done += SummaryOf(*table.table, table.rows) +
                    (m_same.contains(&table) ? u" (c'era già, uguale)\n"_s : u"\n"_s);
        return done;
    }

private:
    void read(const ExchangedTable &table, const QString &path)
    {
        ImportTarget &target = m_targets.at(table.archive);
        std::optional<TableDef> stored = table.definition;
        if (target.exists())
            stored = target.opened().tableDef(table.name());
        if (!stored) {
            m_remarks.errors.append(
                table.fileName() + u": "_s + QFileInfo(target.path()).fileName() +
                (target.opened().isStoredQuery(table.name())
                     ? u" ha sotto questo nome un'interrogazione, che non si sostituisce."_s
                     : u" non ha questa tabella."_s));
            return;
        }
        const CsvTable &read =
            m_tables.emplace_back(ReadCsvTable(path, table, *stored, m_remarks.errors));
        if (!read.unknownFields.isEmpty())
            m_remarks.warnings.append(read.file + u": campi tralasciati: "_s +
                                      read.unknownFields.join(u", "_s) + u'.');
        const TableRows rows = target.storedRows(table);
        if (target.exists() && read.rows == rows)
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
        ImportTarget &codes = m_targets.at(ArchiveFile::Codes);
        return CodeMapOf(codes.exists() ? codes.storedRows(ExchangedTables().front())
                                        : StandardCodeRows());
    }

    /** The code map as it will be. */
    CodeMap codesInForce()
    {
        for (const CsvTable &table : m_tables) {
            if (table.table->archive == ArchiveFile::Codes)
                return CodeMapOf(table.rows);
        }
        return storedCodes();
    }

    const ImportRequest &m_request;
    ImportRemarks m_remarks;
    std::list<CsvTable> m_tables;
    QList<const CsvTable *> m_same; ///< those that the archive holds already
    std::map<ArchiveFile, ImportTarget> m_targets;
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
