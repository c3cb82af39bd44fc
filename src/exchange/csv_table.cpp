#include "exchange/csv_table.h"

#include "common/errors.h"
#include "common/text_cut.h"
#include "database/table_appender.h"
#include "exchange/csv_reader.h"
#include "exchange/csv_values.h"
#include "exchange/progress.h"
#include "platform/legacy_text.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <functional>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Older programs write the Western code page. */
QString fileText(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw FileError(path, u"Il file non può essere letto."_s,
                        u"Controllare i permessi, e che nessun programma lo tenga aperto."_s);
    const QByteArray bytes = file.readAll();
    return TextOfStoredBytes(
        QByteArrayView(bytes).sliced(bytes.startsWith("\xEF\xBB\xBF") ? 3 : 0));
}

/** The first separator outside of quotes in the first line tells. */
CsvDialect dialectOf(const QString &text)
{
    static const QRegularExpression comma(u"\\A(?:\"[^\"]*\"|[^\",;\\n])*+,"_s);
    return comma.match(text).hasMatch() ? CsvDialect::International : CsvDialect::Italian;
}

bool isBlank(const CsvRow &row)
{
    return std::all_of(row.cells.begin(), row.cells.end(), std::mem_fn(&QString::isNull));
}

/** A line "sep=;", which spreadsheets read as a hint. */
bool isHint(const CsvRow &row)
{
    return row.cells.size() == 2 && row.cells[1].isNull() &&
           row.cells[0].compare("sep="_L1, Qt::CaseInsensitive) == 0;
}

/** The value of a cell; no value when it is not written as one of the type. */
std::optional<NewValue> valueOf(const QString &cell, FieldType type, CsvDialect dialect)
{
    const auto orNone = [](const auto &value) {
        return value ? std::optional<NewValue>(*value) : std::nullopt;
    };
    if (cell.isNull())
        return NewValue();
    if (type == FieldType::Currency)
        return orNone(AmountOf(cell, dialect));
    if (type == FieldType::Integer || type == FieldType::Long)
        return orNone(WholeOf(cell));
    if (type == FieldType::Date && !cell.isEmpty())
        return orNone(DayOf(cell, dialect));
    return cell;
}

/** What a cell that could not be read should hold. */
QString expected(FieldType type, CsvDialect dialect)
{
    const bool isItalian = dialect == CsvDialect::Italian;
    if (type == FieldType::Currency)
        return isItalian ? u"un importo come 1.234,56"_s
                         : u"un importo come 1234.56 (e non con tre decimali)"_s;
    if (type == FieldType::Date)
        return isItalian ? u"una data gg/mm/aaaa"_s : u"una data aaaa-mm-gg"_s;
    return u"un numero intero"_s;
}

QString refusal(DatabaseFault fault, const FieldDef &field, const NewValue &value)
{
    const auto *text = std::get_if<QString>(&value);
    if (fault == DatabaseFault::ZeroLengthRefused)
        return u"il testo è vuoto, mentre il campo deve essere pieno o senza valore."_s;
    if (fault == DatabaseFault::FieldTooSmall && text != nullptr)
        return u"il testo ha %1 caratteri e il campo ne tiene %2."_s.arg(CharacterCount(*text))
            .arg(field.size);
    return u"il valore non sta nel campo che l'archivio ha."_s;
}

/** Reads one file into a table. */
class TableReader
{
public:
    TableReader(const QString &path, const ExchangedTable &table, const TableDef &stored,
                QStringList &errors)
        : m_definition(table.definition.fields())
        , m_errors(errors)
        , m_text(fileText(path))
        , m_dialect(dialectOf(m_text))
    {
        m_result.table = &table;
        m_result.file = QFileInfo(path).fileName();
        const ExchangedTable there{table.archive, stored, {}};
        for (const FieldDef &field : m_definition) {
            const qsizetype place = there.place(field.name);
            if (place < 0)
                addError({}, u"la tabella dell'archivio non ha il campo "_s + field.name + u'.');
            m_stored.append(place < 0 ? field : stored.fields()[place]);
        }
    }

    CsvTable read()
    {
        CsvReader reader(m_text, m_dialect == CsvDialect::Italian ? u';' : u',');
        CsvRow row;
        Progress progress(u"Lettura di "_s + m_result.file);
        try {
            while (reader.next(row) && (isBlank(row) || isHint(row)))
                row = {};
            readNames(row);
            while (reader.next(row)) {
                if (!isBlank(row))
                    readRow(row);
                progress.show(m_result.rows.size());
            }
        } catch (const CsvFault &fault) {
            addError(fault.line, fault.problem + u": il resto del file non è stato letto."_s);
        }
        return std::move(m_result);
    }

private:
    void addError(std::optional<int> line, const QString &problem, const QString &field = {})
    {
        QString place = m_result.file;
        if (line)
            place += u", riga "_s + QString::number(*line);
        if (!field.isEmpty())
            place += u", campo "_s + field;
        m_errors.append(place + u": "_s + problem);
    }

    void readNames(const CsvRow &row)
    {
        for (const QString &cell : row.cells) {
            const QString name = cell.trimmed();
            const qsizetype place = name.isEmpty() ? Nameless : m_result.table->place(name);
            if (place == -1)
                m_result.unknownFields.append(name);
            if (place >= 0 && m_places.contains(place))
                addError(row.line, u"il campo "_s + name + u" è nominato due volte."_s);
            m_places.append(place);
        }
        for (const QString &needed : m_result.table->neededFields) {
            if (!m_places.contains(m_result.table->place(needed)))
                addError({}, u"nella prima riga manca il campo "_s + needed + u'.');
        }
    }

    void readRow(const CsvRow &row)
    {
        if (row.cells.size() != m_places.size()) {
            addError(row.line, u"le celle sono %1, e %2 nella prima riga."_s.arg(row.cells.size())
                                   .arg(m_places.size()));
            return;
        }
        TableRow values(m_definition.size());
        for (qsizetype cell = 0; cell < m_places.size(); ++cell) {
            if (m_places[cell] >= 0)
                values[m_places[cell]] = value(row, cell);
            else if (m_places[cell] == Nameless && !row.cells[cell].isNull())
                addError(row.line, u"la cella %1 sta in una colonna senza nome."_s.arg(cell + 1));
        }
        m_result.rows.append(std::move(values));
        m_result.lines.append(row.line);
    }

    /** What can't be stored is an error, and its place taken by what no file can tell. */
    NewValue value(const CsvRow &row, qsizetype place)
    {
        const QString &cell = row.cells[place];
        const FieldDef &field = m_definition[m_places[place]];
        const FieldDef &stored = m_stored[m_places[place]];
        std::optional<NewValue> value = valueOf(cell, field.type, m_dialect);
        const auto fault = value ? RefusalOf(stored, *value) : std::nullopt;
        if (value && !fault)
            return *std::move(value);
        addError(row.line,
                 fault ? refusal(*fault, stored, *value)
                       : u"«%1» non è %2, o è fuori misura."_s.arg(LeftCharacters(cell, 40),
                                                                   expected(field.type, m_dialect)),
                 field.name);
        return QDate();
    }

    static constexpr qsizetype Nameless = -2;

    CsvTable m_result;
    QList<FieldDef> m_definition;
    QList<FieldDef> m_stored; ///< as the archive has the fields of the definition
    QStringList &m_errors;
    QString m_text;
    CsvDialect m_dialect;
    QList<qsizetype> m_places; ///< for each cell its field's place, below 0 when it has none
};

} // namespace

QString CsvTable::place(qsizetype row, const QString &field) const
{
    return u"%1, riga %2, campo %3: "_s.arg(file, QString::number(lines[row]), field);
}

CsvTable ReadCsvTable(const QString &path, const ExchangedTable &table, const TableDef &stored,
                      QStringList &errors)
{
    return TableReader(path, table, stored, errors).read();
}

} // namespace saldoro
