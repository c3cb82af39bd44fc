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

#include <algorithm>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** A table as its file is to hold it. */
struct TableFile
{
    QString path;
    QByteArray content;
};

/** The text of a value's cell; texts stand in quotes, which codes made of digits need and the empty
 *  text. */
struct CellText
{
    QString operator()(std::monostate /*null*/) const { return {}; }
    QString operator()(QString text) const { return u'"' + text.replace(u'"', u"\"\""_s) + u'"'; }
    QString operator()(qint32 number) const { return QString::number(number); }
    QString operator()(Currency amount) const { return AmountCell(amount); }
    QString operator()(QDate day) const { return FormatData(day); }
    QString operator()(double /*untold*/) const { return u"?"_s; }
};

QString cellText(const NewValue &value)
{
    return std::visit(CellText(), value);
}

/** Why a file can't tell a row: empty when it can. A row without a value is none of a file. */
QString untold(const ExchangedTable &table, const QList<NewValue> &row)
{
    QStringList fields;
    for (qsizetype place = 0; place < row.size(); ++place) {
        if (std::holds_alternative<double>(row[place]))
            fields.append(u"campo "_s + table.definition.fields()[place].name);
    }
    const bool hasValue = std::any_of(row.begin(), row.end(),
                                      [](const NewValue &value) { return value != NewValue(); });
    return hasValue ? fields.join(u", "_s) : u"nessun valore"_s;
}

QByteArray fileContent(const ExchangedTable &table, const TableRows &rows, QStringList &untolds,
                       Progress &progress)
{
    QStringList names;
    for (const FieldDef &field : table.definition.fields())
        names.append(field.name);
    QByteArray content = "\xEF\xBB\xBF" + names.join(u';').toUtf8() + "\r\n";
    for (qsizetype place = 0; place < rows.size(); ++place) {
        QStringList cells;
        for (const NewValue &value : rows[place])
            cells.append(cellText(value));
        content += cells.join(u';').toUtf8() + "\r\n";
        if (const QString what = untold(table, rows[place]); !what.isEmpty())
            untolds.append(u"%1, riga %2 (%3): "_s.arg(table.name(), QString::number(place + 1),
                                                       LeftCharacters(cells.join(u' '), 60)) +
                           what);
        progress.show(u"Scrittura di"_s, table.name(), place);
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
        const TableRows rows = StoredRows(database, table);
        files.push_back({targetPath(folder, table.fileName(), request.overwrite),
                         fileContent(table, rows, untolds, progress)});
        summary += TableSummary(table, rows);
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
