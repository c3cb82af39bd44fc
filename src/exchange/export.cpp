#include "exchange/export.h"

#include "common/date_text.h"
#include "common/errors.h"
#include "common/text_cut.h"
#include "exchange/archive_tables.h"
#include "exchange/cell_values.h"
#include "exchange/progress.h"
#include "exchange/project_place.h"
#include "store/project_files.h"

#include <QDir>
#include <QSaveFile>

#include <utility>
#include <vector>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Appends a value's cell; texts stand in quotes, which codes made of digits need and the empty
 *  text. */
void appendCell(QString &line, const NewValue &value)
{
    if (const auto *text = std::get_if<QString>(&value))
        line += u'"' + QString(*text).replace(u'"', u"\"\""_s) + u'"';
    else if (const auto *number = std::get_if<qint32>(&value))
        line += QString::number(*number);
    else if (const auto *amount = std::get_if<Currency>(&value))
        line += AmountCell(*amount);
    else if (const auto *day = std::get_if<QDate>(&value))
        line += day->isValid() ? FormatData(*day) : u"?"_s;
}

/** Why a file can't tell a row: empty when it can. A row without a value is none of a file. */
QString untold(const ExchangedTable &table, const TableRow &row)
{
    if (row.count(NewValue()) == row.size())
        return u"nessun valore"_s;
    QStringList fields;
    for (qsizetype place = 0; place < row.size(); ++place) {
        const auto *text = std::get_if<QString>(&row[place]);
        if (row[place] == NewValue(QDate()) || (text != nullptr && text->contains(QChar(0))))
            fields.append(u"campo "_s + table.definition.fields()[place].name);
    }
    return fields.join(u", "_s);
}

/** The content of a table's file. Rows that it can't tell are added to @p untolds. */
QByteArray fileContent(const ExchangedTable &table, const TableRows &rows, QStringList &untolds)
{
    QByteArray content = "\xEF\xBB\xBF" + table.fieldNames().join(u';').toUtf8() + "\r\n";
    Progress progress(u"Scrittura di "_s + table.name());
    QString line;
    for (qsizetype place = 1; place <= rows.size(); ++place) {
        progress.show(place);
        const TableRow &row = rows[place - 1];
        line.truncate(0); // and keeps its room
        for (const NewValue &value : row) {
            appendCell(line, value);
            line += u';';
        }
        line.chop(1);
        content += line.toUtf8() + "\r\n";
        if (const QString what = untold(table, row); !what.isEmpty())
            untolds.append(u"%1, riga %2 (%3): "_s.arg(table.name(), QString::number(place),
                                                       LeftCharacters(line, 60)) +
                           what);
    }
    return content;
}

/** Where a table is written to: over a file of that name in any letter case, where it may be. */
QString targetPath(const QDir &folder, const QString &name, bool overwrite)
{
    const QStringList there = folder.entryList({name}, QDir::AllEntries | QDir::Hidden); // any case
    if (there.isEmpty())
        return folder.filePath(name);
    if (!overwrite)
        throw FileError(folder.filePath(there.first()), u"Il file c'è già."_s,
                        u"Scegliere un'altra cartella, o sostituire i file con --sovrascrivi."_s);
    return folder.filePath(there.first());
}

void writeFile(const QString &path, const QByteArray &content)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) < 0 || !file.commit())
        throw FileError(path, u"Il file non può essere scritto."_s,
                        u"Controllare i permessi e lo spazio libero sul disco."_s);
}

} // namespace

QString ExportProject(const QString &projectFolder, const QString &csvFolder, bool overwrite)
{
    const QString project = ExistingFolder(projectFolder);
    std::vector<std::pair<QString, QByteArray>> files;
    QStringList untolds;
    QString summary;
    for (const ExchangedTable &table : ExchangedTables()) {
        const TableRows rows =
            StoredRows(Database::open(ArchiveFilePath(table.archive, project)), table.definition);
        files.emplace_back(targetPath(csvFolder, table.fileName(), overwrite),
                           fileContent(table, rows, untolds));
        summary += SummaryOf(table, rows) + u'\n';
    }
    if (!untolds.isEmpty())
        throw SaldoroError(u"Questi valori non si possono dire in un file CSV: una data con l'ora, "
                           "un carattere nullo, byte che non sono testo.\n  "_s +
                               untolds.join(u"\n  "_s),
                           u"Nessun file è stato scritto. Correggere i valori nell'archivio."_s);
    MakeFolder(csvFolder);
    for (const auto &[path, content] : files)
        writeFile(path, content);
    return summary;
}

} // namespace saldoro
