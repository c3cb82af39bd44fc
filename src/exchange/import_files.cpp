#include "exchange/import_files.h"

#include "common/errors.h"
#include "exchange/csv_table.h"
#include "exchange/export.h"
#include "exchange/project_place.h"
#include "store/archive_paths.h"

#include <QDir>
#include <QFileInfo>

#include <map>
#include <optional>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** The CSV files of a folder by the table that each is for. Errors and warnings about others go to
 *  @p outcome. */
std::map<const ExchangedTable *, QString> csvPaths(const QString &folder, ImportOutcome &outcome)
{
    Findings &errors = outcome.errors;
    std::map<const ExchangedTable *, QString> paths;
    // What has the name and is no file, such as a link to what is missing, is told when it is read.
    constexpr auto any = QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot;
    for (const QFileInfo &file : QDir(folder).entryInfoList({u"*.csv"_s}, any)) {
        const ExchangedTable *table = TableNamed(file.completeBaseName());
        if (table == nullptr)
            errors.append(FindingOf(file.fileName() + u": nessuna tabella ha questo nome."_s));
        else if (!paths.try_emplace(table, file.filePath()).second)
            errors.append(
                FindingOf(file.fileName() + u": un altro file è per la stessa tabella."_s));
    }
    for (const QFileInfo &file : QDir(folder).entryInfoList(QDir::Files)) {
        const ExchangedTable *table = TableNamed(file.baseName()); // of "Spese.csv.txt", too
        const bool isOther = file.suffix().compare("csv"_L1, Qt::CaseInsensitive) != 0;
        if (table == nullptr || !isOther || paths.contains(table))
            continue;
        const QString line =
            file.fileName() + u": non è stato letto, perché non finisce con «.csv»."_s;
        if (paths.empty())
            errors.append(FindingOf(line));
        else
            outcome.warnings.append(line);
    }
    if (!QFileInfo(folder).isReadable())
        throw FileError(folder, u"La cartella non può essere letta."_s,
                        u"Controllare i permessi."_s);
    if (paths.empty() && errors.isEmpty())
        throw FileError(folder, u"Nella cartella non ci sono file CSV."_s,
                        u"Ogni file prende il nome da una tabella, per esempio "
                        "UltimaPerVariante.csv."_s);
    return paths;
}

} // namespace

ImportOutcome ImportFiles(const QString &projectFolder, const QString &csvFolder,
                          const ImportOptions &options)
{
    const QString folder = options.createProject ? ProjectPlaceOf(projectFolder).folder
                                                 : ExistingFolder(projectFolder);
    const QString files = ExistingFolder(csvFolder);
    RefuseUnfinishedExport(files);
    ImportOutcome outcome;
    QList<GivenTable> tables;
    const auto paths = csvPaths(files, outcome);
    for (const auto &[table, path] : paths) {
        const QString database = ArchiveFilePath(table->archive, folder);
        std::optional<TableDef> stored;
        const auto readTable = [&, &csv = path, &table = table] {
            if (QFileInfo::exists(database) && Database::hasPlainJournal(database))
                stored = Database::open(database).tableDef(table->name());
            tables.append(ReadCsvTable(csv, *table, stored.value_or(table->definition), outcome));
        };
        SayingNothingIsWritten(
            [&] { WithDetail(Detail::File, QDir::toNativeSeparators(database), readTable); });
    }
    if (!outcome.errors.isEmpty())
        return outcome;
    const QStringList warnings = outcome.warnings;
    outcome = ImportTables(folder, tables, options);
    outcome.warnings = warnings + outcome.warnings;
    return outcome;
}

} // namespace saldoro
