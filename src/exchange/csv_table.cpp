#include "exchange/csv_table.h"

#include "common/errors.h"
#include "common/text_cut.h"
#include "exchange/csv_reader.h"
#include "exchange/csv_values.h"
#include "exchange/progress.h"
#include "platform/legacy_text.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <functional>
#include <utility>

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
    if (cell.isNull())
        return NewValue();
    if (type == FieldType::Currency)
        return AmountOf(cell, dialect);
    if (type == FieldType::Integer || type == FieldType::Long)
        return WholeOf(cell);
    if (type == FieldType::Date && !cell.isEmpty())
        return DayOf(cell, dialect);
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

/** Why the field of the archive can't hold the value; empty when it can. */
QString refusal(const FieldDef &field, const NewValue &value)
{
    const auto fault = RefusalOf(field, value);
    if (!fault)
        return {};
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
    TableReader(const QString &path, const ExchangedTable &table, TableDef stored,
                QStringList &errors)
        : m_result{&table, QFileInfo(path).fileName(), {}}
        , m_errors(errors)
        , m_text(fileText(path))
        , m_dialect(dialectOf(m_text))
    {
        for (const FieldDef &field : table.definition.fields())
            m_stored.append(stored.field(field.name));
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
    void addError(int line, const QString &problem)
    {
        m_errors.append(m_result.file + u", riga "_s + QString::number(line) + u": "_s + problem);
    }

    void readNames(const CsvRow &row)
    {
        for (const QString &cell : row.cells) {
            const QString name = cell.trimmed();
            const qsizetype place = name.isEmpty() ? Nameless : m_result.table->place(name);
            if (place == Unknown)
                m_result.unknownFields.append(name);
            else if (m_places.contains(place) && place != Nameless)
                addError(row.line, u"il campo "_s + name + u" è nominato due volte."_s);
            if (place >= 0)
                m_result.fields.append(m_result.table->definition.fields()[place].name);
            m_places.append(place);
        }
        for (const QString &needed : m_result.table->neededFields) {
            if (!m_places.contains(m_result.table->place(needed)))
                m_errors.append(m_result.file + u": nella prima riga manca il campo "_s + needed +
                                u'.');
        }
    }

    void readRow(const CsvRow &row)
    {
        if (row.cells.size() != m_places.size()) {
            addError(row.line, u"le celle sono %1, e %2 nella prima riga."_s.arg(row.cells.size())
                                   .arg(m_places.size()));
            return;
        }
        m_result.rows.append(TableRow(m_stored.size()));
        m_result.lines.append(row.line);
        for (qsizetype cell = 0; cell < m_places.size(); ++cell) {
            if (m_places[cell] >= 0)
                m_result.rows.last()[m_places[cell]] = value(row.cells[cell], m_places[cell]);
            else if (m_places[cell] == Nameless && !row.cells[cell].isNull())
                addError(row.line, u"la cella %1 sta in una colonna senza nome."_s.arg(cell + 1));
        }
    }

    /** What can't be stored is an error, and its place taken by what no file can tell. */
    NewValue value(const QString &cell, qsizetype place)
    {
        const FieldDef &field = m_result.table->definition.fields()[place];
        std::optional<NewValue> value = valueOf(cell, field.type, m_dialect);
        const QString problem =
            value ? refusal(m_stored[place], *value)
                  : u"«%1» non è %2, o è fuori misura."_s.arg(LeftCharacters(cell, 40),
                                                              expected(field.type, m_dialect));
        if (problem.isEmpty())
            return *std::move(value);
        m_errors.append(m_result.place(m_result.rows.size() - 1, field.name) + problem);
        return QDate();
    }

    // Places of cells that fill no field.
    static constexpr qsizetype Unknown = -1;
    static constexpr qsizetype Nameless = -2;

    CsvTable m_result;
    QList<FieldDef> m_stored; ///< the fields as the archive has them
    QStringList &m_errors;
    QString m_text;
    CsvDialect m_dialect;
    QList<qsizetype> m_places; ///< for each cell that of its field
};

} // namespace

QString CsvTable::place(qsizetype row, const QString &field) const
{
    return u"%1, riga %2, campo %3: "_s.arg(file, QString::number(lines[row]), field);
}

CsvTable ReadCsvTable(const QString &path, const ExchangedTable &table, TableDef stored,
                      QStringList &errors)
{
    return TableReader(path, table, std::move(stored), errors).read();
}

} // namespace saldoro
