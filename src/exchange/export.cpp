#include "exchange/export.h"

#include "common/date_text.h"
#include "common/errors.h"
#include "common/text_cut.h"
#include "exchange/archive_rows.h"
#include "exchange/csv_values.h"
#include "exchange/progress.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** One table written out, ready for its file. */
struct TableText
{
    QString path;
    QByteArray content = "\xEF\xBB\xBF";
    QString summary;
};

/** Turns a value into the text of its cell. */
struct CellWriter
{
    QString operator()(std::monostate /*null*/) const { return {}; }
    QString operator()(const QString &text) const { return TextCell(text); }
    QString operator()(qint32 number) const { return QString::number(number); }
    QString operator()(Currency amount) const { return AmountCell(amount); }
    QString operator()(QDate day) const { return FormatData(day); }
    QString operator()(double number) const { return QString::number(number); }
};

/** What a row is known by: its place and what its first fields show. */
QString rowName(const ExchangedTable &table, const RecordSet &records, int row)
{
    QStringList shown;
    for (const FieldDef &field : table.definition.fields().first(2))
        shown.append(LeftCharacters(records.field(field.name).textOrEmpty(), 20));
    return u"%1, riga %2 (%3)"_s.arg(table.name(), QString::number(row), shown.join(u' '));
}

/** Writes the records of one table. */
class TableWriting
{
public:
    TableWriting(const ExchangedTable &table, const Database &database, QStringList &unsayable)
        : m_table(table)
        , m_records(database.openRecordSet(u"SELECT * FROM "_s + table.name()))
        , m_unsayable(unsayable)
    {
    }

    void write(TableText &text, Progress &progress)
    {
        QStringList names;
        QList<int> columns;
        for (const FieldDef &field : m_table.definition.fields()) {
            names.append(field.name);
            columns.append(m_records.column(field.name));
        }
        text.content += names.join(u';').toUtf8() + "\r\n";
        TableTotal total(m_table);
        int rows = 0;
        const int whole = m_records.recordCount();
        for (; !m_records.eof(); m_records.moveNext()) {
            const QList<NewValue> values = rowValues(columns, ++rows);
            appendRow(values, text.content);
            total.add(values);
            progress.show(m_table.name(), rows, whole);
        }
        text.summary = TableSummary(m_table, rows, total.total());
    }

private:
    QList<NewValue> rowValues(const QList<int> &columns, int row)
    {
        QList<NewValue> values;
        for (qsizetype place = 0; place < columns.size(); ++place) {
            const FieldDef &field = m_table.definition.fields()[place];
            const std::optional<NewValue> value =
                ExactValue(field, m_records.field(columns[place]));
            if (!value)
                m_unsayable.append(rowName(m_table, m_records, row) + u", campo "_s + field.name);
            values.append(value.value_or(NewValue()));
        }
        if (std::all_of(values.begin(), values.end(),
                        [](const NewValue &value) { return value == NewValue(); }))
            m_unsayable.append(rowName(m_table, m_records, row) + u", che non ha nessun valore"_s);
        return values;
    }

    static void appendRow(const QList<NewValue> &values, QByteArray &content)
    {
        for (qsizetype place = 0; place < values.size(); ++place) {
            if (place > 0)
                content += ';';
            content += std::visit(CellWriter(), values[place]).toUtf8();
        }
        content += "\r\n";
    }

    const ExchangedTable &m_table;
    RecordSet m_records;
    QStringList &m_unsayable;
};

/** Where a table is written to: over a file of that name in any letter case, where it may be. */
QString targetPath(const QDir &folder, const QString &name, bool overwrite)
{
    for (const QString &entry : folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::System)) {
        if (entry.compare(name, Qt::CaseInsensitive) != 0)
            continue;
        if (!overwrite)
            throw FileError(
                folder.filePath(entry), u"Il file c'è già."_s,
                u"Scegliere un'altra cartella, o sostituire i file con --sovrascrivi."_s);
        return folder.filePath(entry);
    }
    return folder.filePath(name);
}

void writeFile(const TableText &table)
{
    QSaveFile file(table.path);
    if (!file.open(QIODevice::WriteOnly) || file.write(table.content) < 0 || !file.commit())
        throw FileError(table.path, u"Il file non può essere scritto: "_s + file.errorString(),
                        u"Controllare i permessi e lo spazio libero sul disco."_s);
}

std::vector<TableText> tableTexts(const QString &project, const QDir &folder, bool overwrite)
{
    std::vector<TableText> texts;
    for (const ExchangedTable &table : ExchangedTables())
        texts.emplace_back().path = targetPath(folder, table.fileName(), overwrite);
    QStringList unsayable;
    std::optional<Database> database;
    Progress progress;
    for (size_t place = 0; place < texts.size(); ++place) {
        const ExchangedTable &table = ExchangedTables()[place];
        const QString path = ArchiveFilePath(table.archive, project);
        if (!database || database->path() != path)
            database = Database::open(path);
        TableWriting(table, *database, unsayable).write(texts[place], progress);
    }
    if (!unsayable.isEmpty())
        throw SaldoroError(u"Questi valori non si possono dire in un file CSV (una data con l'ora, "
                           "byte che non sono testo, un valore di altro tipo):\n  "_s +
                               unsayable.join(u"\n  "_s),
                           u"Nessun file è stato scritto. Correggere i valori nell'archivio."_s);
    return texts;
}

} // namespace

QString ExportProject(const ExportRequest &request)
{
    const QString project = ExistingFolder(request.projectFolder);
    const QDir folder(request.csvFolder);
    const std::vector<TableText> texts = tableTexts(project, folder, request.overwrite);
    if (!folder.mkpath(u"."_s))
        throw FileError(folder.path(), u"La cartella non può essere creata."_s,
                        u"Controllare i permessi e lo spazio libero sul disco."_s);
    QString summary;
    for (const TableText &text : texts) {
        writeFile(text);
        summary += text.summary + u'\n';
    }
    return summary;
}

} // namespace saldoro
