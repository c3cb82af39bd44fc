#include "exchange/export.h"

#include "common/characters.h"
#include "common/date_text.h"
#include "common/errors.h"
#include "common/legacy_text.h"
#include "common/message_lines.h"
#include "exchange/archive_tables.h"
#include "exchange/cell_values.h"
#include "exchange/command_options.h"
#include "exchange/made_files.h"
#include "platform/machine_path.h"
#include "platform/progress.h"
#include "platform/whole_file.h"
#include "store/archive_paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <vector>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Appends a value's cell, a NUL for one that a cell can't express. Texts stand in quotes, which
 *  codes made of digits need and the empty text. */
void appendCell(QString &line, const NewValue &value)
{
    if (const auto *text = std::get_if<QString>(&value))
        line += u'"' + QString(*text).replace(u'"', u"\"\""_s) + u'"';
    else if (const auto *number = std::get_if<qint32>(&value))
        line += QString::number(*number);
    else if (const auto *amount = std::get_if<Currency>(&value))
        line += AmountCell(*amount);
    else if (const auto *day = std::get_if<QDate>(&value))
        line += day->isValid() ? FormatData(*day) : QString(QChar(0));
}

/** Why a CSV file can't express a row; empty when it can. A row without any value can't be one of a
 *  file. */
QString untold(const ExchangedTable &table, const TableRow &row)
{
    if (row.count(NewValue()) == row.size())
        return u"nessun valore"_s;
    QStringList fields;
    for (qsizetype field = 0; field < row.size(); ++field) {
        if (row[field] == NewValue(QDate()) || TextOf(row[field]).contains(QChar(0)))
            fields.append(u"campo "_s + table.definition.fields()[field].name);
    }
    return fields.join(u", "_s);
}

/** What is to become one file. */
struct TableFile
{
    QByteArray content;
    QStringList untolds; ///< rows that it can't express
    QString summary;
};

TableFile fileOf(const ExchangedTable &table, const TableRows &rows)
{
    TableFile file{Utf8Mark.toByteArray() + table.fieldNames().join(u';').toUtf8() + "\r\n",
                   {},
                   SummaryOf(table, rows)};
    Progress progress(u"Scrittura di "_s + table.name());
    QString line;
    for (qsizetype place = 1; place <= rows.size(); ++place) {
        progress.show(place);
        line.truncate(0); // and keeps its room
        for (const NewValue &value : rows[place - 1]) {
            appendCell(line, value);
            line += u';';
        }
        line.chop(1);
        file.content += line.toUtf8() + "\r\n";
        const TableRow &row = rows[place - 1];
        const bool isEmpty = line.size() == row.size() - 1; // nothing but separators
        if (isEmpty || line.contains(QChar(0)))
            file.untolds.append(u"%1, riga %2 (%3): %4"_s.arg(
                table.name(), QString::number(place),
                LeftCharacters(line.replace(QChar(0), u'?'), 60), untold(table, row)));
    }
    return file;
}

/** The files of all tables, each database as it stands at one moment. */
QList<TableFile> filesOf(const QString &project)
{
    QList<TableFile> files;
    for (const ArchiveFile archive : ArchiveFileList) {
        const Database database = Database::open(ArchiveFilePath(archive, project));
        const Transaction moment(database, TransactionKind::Reading);
        for (const ExchangedTable &table : ExchangedTables()) {
            if (table.archive != archive)
                continue;
            files.append(fileOf(table, StoredRows(database, table.definition)));
            if (const QStringList leftOut = UnknownFields(database, table); !leftOut.isEmpty())
                files.last().summary += u"; colonne tralasciate: "_s + leftOut.join(u", "_s);
        }
    }
    return files;
}

void refuseUntold(const QList<TableFile> &files)
{
    QStringList lines;
    for (const TableFile &file : files)
        lines += FirstLines(file.untolds, u"e altre %1 righe così"_s);
    if (!lines.isEmpty())
        throw SaldoroError(
            u"Questi valori non si possono dire in un file CSV: una data con l'ora, "
            "un carattere nullo, byte che non sono testo, un valore di un altro tipo.\n  "_s +
                lines.join(u"\n  "_s),
            u"Nessun file è stato scritto. Correggere i valori nell'archivio."_s);
}

/** The files of that name in any letter case. */
QStringList filesNamed(const QDir &folder, const QString &name)
{
    return folder.entryList({name}, QDir::AllEntries | QDir::Hidden);
}

/** Where a table is written to: over a file that is there, where it may be. */
QString targetPath(const QDir &folder, const QString &name, bool overwrite)
{
    const QStringList there = filesNamed(folder, name);
    if (there.isEmpty())
        return folder.filePath(name);
    if (!overwrite)
        throw FileError(folder.filePath(there.first()), u"Il file c'è già."_s,
                        u"Scegliere un'altra cartella, o sostituire i file con %1."_s.arg(
                            CommandOption::Overwrite));
    return folder.filePath(there.first());
}

/** A file that stands in the folder while its CSV files are put in place one by one. */
QString markPath(const QString &csvFolder)
{
    return csvFolder + u"/esportazione incompleta.txt"_s;
}

} // namespace

bool HasExportedFiles(const QString &csvFolder)
{
    return QFileInfo::exists(markPath(csvFolder)) ||
           std::ranges::any_of(ExchangedTables(), [&csvFolder](const ExchangedTable &table) {
               return !filesNamed(csvFolder, table.fileName()).isEmpty();
           });
}

void RefuseUnfinishedExport(const QString &csvFolder)
{
    if (QFileInfo::exists(markPath(csvFolder)))
        throw FileError(
            markPath(csvFolder),
            u"Un'esportazione non è arrivata in fondo: i file CSV di questa cartella "
            "possono essere in parte vecchi."_s,
            u"Ripetere esporta con %1 in questa cartella."_s.arg(CommandOption::Overwrite));
}

QString ExportProject(const QString &projectFolder, const QString &csvFolder, bool overwrite)
{
    const QString folder = GivenFolder(csvFolder);
    if (!overwrite)
        RefuseUnfinishedExport(folder);
    QStringList paths;
    for (const ExchangedTable &table : ExchangedTables())
        paths.append(targetPath(folder, table.fileName(), overwrite));
    const QList<TableFile> files = filesOf(ExistingFolder(projectFolder));
    refuseUntold(files);
    MadeFiles made; // goes when no file has come into it
    made.makeFolder(folder);
    QString summary = QFileInfo::exists(markPath(folder))
                          ? u"L'esportazione di prima non era arrivata in fondo.\n"_s
                          : QString();
    std::vector<WholeFile> written;
    for (qsizetype place = 0; place < files.size(); ++place) {
        written.emplace_back(paths[place], files[place].content);
        summary += files[place].summary + u'\n';
    }
    WholeFile(markPath(folder), "Finché c'è questo file, i file CSV sono in parte vecchi.\r\n")
        .replace();
    QStringList replaced;
    WithDetail(
        Detail::FilesReplaced, [&] { return replaced.join(u", "_s); },
        [&] {
            for (size_t place = 0; place < written.size(); ++place) {
                written[place].replace();
                replaced.append(ExchangedTables()[place].fileName());
            }
        });
    QFile::remove(markPath(folder));
    made.keep();
    return summary;
}

} // namespace saldoro
