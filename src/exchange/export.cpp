#include "exchange/export.h"

#include "common/date_text.h"
#include "common/errors.h"
#include "common/text_cut.h"
#include "exchange/archive_tables.h"
#include "exchange/csv_values.h"
#include "exchange/progress.h"
#include "store/project_files.h"

#include <QDir>
#include <QSaveFile>

#include <variant>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** A table as its file is to hold it. */
struct TableFile
{
    QString path;
    QByteArray content;
};

/** Appends the text of a value's cell; texts stand in quotes, which codes made of digits need and
 * the empty text. */
struct CellWriter
{
    QString &line;

    void operator()(std::monostate /*null*/) const {}
    void operator()(const QString &text) const
    {
        line += u'"';
        line += text.contains(u'"') ? QString(text).replace(u'"', u"\"\""_s) : text;
        line += u'"';
    }
    void operator()(qint32 number) const { line += QString::number(number); }
    void operator()(Currency amount) const { line += AmountCell(amount); }
    void operator()(QDate day) const { line += day.isValid() ? FormatData(day) : u"?"_s; }
};

/** Why a file can't tell a row: empty when it can. A row without a value is none of a file. */
QString untold(const ExchangedTable &table, const QList<NewValue> &row)
{
    QStringList fields;
    bool hasValue = false;
    for (qsizetype place = 0; place < row.size(); ++place) {
        hasValue = hasValue || !std::holds_alternative<std::monostate>(row[place]);
        if (row[place] == NewValue(QDate()))
            fields.append(u"campo "_s + table.definition.fields()[place].name);
    }
    return hasValue ? fields.join(u", "_s) : u"nessun valore"_s;
}

/** The content of a table's file. Rows that it can't tell are added to @p untolds. */
QByteArray fileContent(const ExchangedTable &table, StoredTable stored, TableSummary &summary,
                       QStringList &untolds, Progress &progress)
{
    QString line;
    for (const FieldDef &field : table.definition.fields())
        line += (line.isEmpty() ? u""_s : u";"_s) + field.name;
    QByteArray content = "\xEF\xBB\xBF" + line.toUtf8() + "\r\n";
    int place = 0;
    for (QList<NewValue> row; stored.next(row); summary.add(row)) {
        progress.show(u"Lettura di"_s, table.name(), ++place);
        line.resize(0);
        for (const NewValue &value : row) {
            std::visit(CellWriter{line}, value);
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

void writeFile(const TableFile &table)
{
    QSaveFile file(table.path);
    if (!file.open(QIODevice::WriteOnly) || file.write(table.content) < 0 || !file.commit())
        throw FileError(table.path, u"Il file non può essere scritto."_s,
                        u"Controllare i permessi e lo spazio libero sul disco."_s);
}

} // namespace

QString ExportProject(const ExportRequest &request)
{
    const QString project = ExistingFolder(request.projectFolder);
    const QDir folder(request.csvFolder);
    std::vector<TableFile> files;
    QStringList untolds;
    QString summary;
    Progress progress;
    for (const ExchangedTable &table : ExchangedTables()) {
        const Database database = Database::open(ArchiveFilePath(table.archive, project));
        TableSummary rows(table);
        files.push_back(
            {targetPath(folder, table.fileName(), request.overwrite),
             fileContent(table, StoredTable(database, table), rows, untolds, progress)});
        summary += rows.text() + u'\n';
    }
    if (!untolds.isEmpty())
        throw SaldoroError(u"Questi valori non si possono dire in un file CSV: una data con l'ora, "
                           "byte che non sono testo.\n  "_s +
                               untolds.join(u"\n  "_s),
                           u"Nessun file è stato scritto. Correggere i valori nell'archivio."_s);
    if (!folder.mkpath(u"."_s))
        throw FileError(folder.path(), u"La cartella non può essere creata."_s,
                        u"Controllare i permessi e lo spazio libero sul disco."_s);
    for (const TableFile &file : files)
        writeFile(file);
    return summary;
}

} // namespace saldoro
