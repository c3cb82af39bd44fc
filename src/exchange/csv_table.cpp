#include "exchange/csv_table.h"

#include "common/text_cut.h"
#include "database/table_appender.h"
#include "exchange/csv_values.h"
#include "platform/legacy_text.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <map>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** What a file must name, and which amount is added up. */
struct TableNeeds
{
    QStringList fields;
    QString summedField;
};

const std::map<QString, TableNeeds> &tableNeeds()
{
    static const std::map<QString, TableNeeds> needs{
        {u"Funzioni"_s, {{u"CodInt"_s, u"CodExt"_s, u"Desc"_s}, {}}},
        {u"SchedaProgetto"_s, {{u"Voce"_s}, u"Importo"_s}},
        {u"UltimaPerVariante"_s, {{u"Voce"_s, u"Descri"_s, u"Importo"_s}, u"Importo"_s}},
        {u"Anag"_s, {{u"ID"_s, u"nominativo"_s}, {}}},
        {u"Partecip"_s, {{u"AnagRel"_s}, {}}},
        {u"Manda"_s, {{u"AnagPar"_s, u"AnagRel"_s}, {}}},
        {u"Fatture"_s,
         {{u"AziProf"_s, u"Npag"_s, u"Creditore"_s, u"Del"_s, u"Importo"_s, u"ImportoIVA"_s},
          u"Importo"_s}},
        {u"Spese"_s, {{u"RelNpag"_s, u"Cod"_s, u"Importo"_s}, u"Importo"_s}}};
    return needs;
}

qsizetype fieldPlace(const TableDef &table, const QString &name)
{
    const auto &fields = table.fields();
    const auto found = std::find_if(fields.begin(), fields.end(), [&](const FieldDef &field) {
        return field.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == fields.end() ? -1 : found - fields.begin();
}

/** Older programs write the Western code page. */
QString fileText(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw FileError(path, u"Il file non può essere letto."_s,
                        u"Controllare i permessi, e che nessun programma lo tenga aperto."_s);
    const QByteArray bytes = file.readAll();
    const QByteArrayView view(bytes);
    return TextOfStoredBytes(bytes.startsWith("\xEF\xBB\xBF") ? view.sliced(3) : view);
}

/** The first separator outside of quotes in the first line tells. */
CsvDialect dialectOf(QStringView text)
{
    bool isInQuotes = false;
    for (const QChar character : text) {
        if (character == u'"')
            isInQuotes = !isInQuotes;
        if (!isInQuotes && character == u',')
            return CsvDialect::International;
        if (!isInQuotes && (character == u';' || character == u'\n'))
            break;
    }
    return CsvDialect::Italian;
}

/** A line that spreadsheets read as a hint. */
bool isHint(QStringView text)
{
    const QStringView line = text.first(std::max(text.indexOf(u'\n'), qsizetype{0})).trimmed();
    return line.compare(u"sep=;", Qt::CaseInsensitive) == 0 ||
           line.compare(u"sep=,", Qt::CaseInsensitive) == 0;
}

bool isBlank(const CsvRow &row)
{
    return std::all_of(row.cells.begin(), row.cells.end(),
                       [](const CsvCell &cell) { return cell.isNull(); });
}

/** The value of a cell; no value when it is not written as one of the field. */
std::optional<NewValue> valueOf(const CsvCell &cell, const FieldDef &field, CsvDialect dialect)
{
    const auto orNone = [](const auto &value) {
        return value ? std::optional<NewValue>(*value) : std::nullopt;
    };
    if (cell.isNull())
        return NewValue();
    switch (field.type) {
    case FieldType::Currency:
        return orNone(AmountOf(cell.text, dialect));
    case FieldType::Integer:
    case FieldType::Long:
        return orNone(WholeOf(cell.text));
    case FieldType::Date:
        if (!cell.text.isEmpty())
            return orNone(DayOf(cell.text, dialect));
        break;
    default:
        break;
    }
    return cell.text;
}

QString expected(FieldType type, CsvDialect dialect)
{
    switch (type) {
    case FieldType::Currency:
        return AmountExample(dialect);
    case FieldType::Date:
        return DayExample(dialect);
    default:
        return u"un numero intero"_s;
    }
}

QString unreadable(const CsvCell &cell, const FieldDef &field, CsvDialect dialect)
{
    if (cell.text.isEmpty())
        return u"le virgolette senza niente dentro sono un testo vuoto; un valore che manca è una "
               "cella vuota."_s;
    return u"«%1» non è %2, o è fuori misura."_s.arg(LeftCharacters(cell.text, 40),
                                                     expected(field.type, dialect));
}

QString refused(DatabaseFault fault, const FieldDef &field, const NewValue &value)
{
    const auto *text = std::get_if<QString>(&value);
    if (fault == DatabaseFault::ZeroLengthRefused)
        return u"il testo è vuoto, mentre il campo deve essere pieno o senza valore."_s;
    if (fault == DatabaseFault::FieldTooSmall && text != nullptr)
        return u"il testo ha %1 caratteri e il campo ne tiene %2."_s.arg(CharacterCount(*text))
            .arg(field.size);
    return fault == DatabaseFault::FieldTooSmall
               ? u"il numero è fuori misura per il campo."_s
               : u"il valore non è del tipo che il campo ha nell'archivio."_s;
}

/** Reads one file into a table. */
class TableReader
{
public:
    TableReader(const QString &path, const ExchangedTable &table, const TableDef &stored,
                QStringList &errors)
        : m_definition(table.definition)
        , m_errors(errors)
        , m_text(fileText(path))
        , m_dialect(dialectOf(QStringView(m_text).sliced(hintLength())))
        , m_reader(m_text, SeparatorOf(m_dialect))
    {
        m_result.table = &table;
        m_result.file = QFileInfo(path).fileName();
        for (const FieldDef &field : m_definition.fields()) {
            const qsizetype place = fieldPlace(stored, field.name);
            if (place < 0)
                addError({}, u"la tabella dell'archivio non ha il campo "_s + field.name + u'.');
            m_stored.append(place < 0 ? field : stored.fields()[place]);
        }
    }

    CsvTable read(const ReadProgress &progress)
    {
        try {
            if (hintLength() > 0)
                m_reader.skipLine();
            CsvRow row;
            bool hasRow = false;
            do
                hasRow = m_reader.next(row);
            while (hasRow && isBlank(row));
            readNames(hasRow ? row : CsvRow{});
            while (m_reader.next(row)) {
                progress(m_reader.position(), m_text.size());
                if (!isBlank(row))
                    readRow(row);
            }
        } catch (const CsvFault &fault) {
            addError(u", riga %1"_s.arg(fault.line),
                     fault.problem + u": il resto del file non è stato letto."_s);
        }
        return std::move(m_result);
    }

private:
    qsizetype hintLength() const { return isHint(m_text) ? m_text.indexOf(u'\n') + 1 : 0; }

    void addError(const QString &place, const QString &problem)
    {
        m_errors.append(m_result.file + place + u": "_s + problem);
    }

    void readNames(const CsvRow &row)
    {
        for (const CsvCell &cell : row.cells) {
            const QString name = cell.text.trimmed();
            const qsizetype place = fieldPlace(m_definition, name);
            if (place < 0 && !name.isEmpty())
                m_result.unknownFields.append(name);
            if (place >= 0 && m_places.contains(place))
                addError(u", riga %1"_s.arg(row.line),
                         u"il campo "_s + name + u" è nominato due volte."_s);
            m_places.append(place);
            m_isNamed.append(!name.isEmpty());
        }
        for (const QString &needed : m_result.table->neededFields) {
            if (!m_places.contains(fieldPlace(m_definition, needed)))
                addError({}, u"nella prima riga manca il campo "_s + needed + u'.');
        }
    }

    void readRow(const CsvRow &row)
    {
        if (row.cells.size() != m_places.size()) {
            addError(u", riga %1"_s.arg(row.line),
                     u"le celle sono %1, e %2 nella prima riga."_s.arg(row.cells.size())
                         .arg(m_places.size()));
            return;
        }
        CsvRecord record{row.line, QList<NewValue>(m_definition.fields().size())};
        for (qsizetype place = 0; place < m_places.size(); ++place) {
            if (m_places[place] >= 0)
                record.values[m_places[place]] = value(row, place);
            else if (!m_isNamed[place] && !row.cells[place].isNull())
                addError(u", riga %1"_s.arg(row.line),
                         u"la cella %1 sta in una colonna senza nome."_s.arg(place + 1));
        }
        m_result.records.push_back(std::move(record));
    }

    /** Null in place of what can't be stored, which is an error. */
    NewValue value(const CsvRow &row, qsizetype place)
    {
        const CsvCell &cell = row.cells[place];
        const FieldDef &field = m_definition.fields()[m_places[place]];
        const FieldDef &stored = m_stored[m_places[place]];
        const std::optional<NewValue> value = valueOf(cell, field, m_dialect);
        const auto fault = value ? RefusalOf(stored, *value) : std::nullopt;
        if (value && !fault)
            return *value;
        addError(u", riga %1, campo %2"_s.arg(QString::number(row.line), field.name),
                 fault ? refused(*fault, stored, *value) : unreadable(cell, field, m_dialect));
        return {};
    }

    CsvTable m_result;
    const TableDef &m_definition;
    QList<FieldDef> m_stored; ///< as the archive has the fields of the definition
    QStringList &m_errors;
    QString m_text;
    CsvDialect m_dialect;
    CsvReader m_reader;
    QList<qsizetype> m_places; ///< for each cell its field's place, -1 for one that is left out
    QList<bool> m_isNamed;
};

} // namespace

const std::vector<ExchangedTable> &ExchangedTables()
{
    static const std::vector<ExchangedTable> tables = [] {
        std::vector<ExchangedTable> result;
        for (const ArchiveFile file : {ArchiveFile::Codes, ArchiveFile::Contract,
                                       ArchiveFile::Companies, ArchiveFile::Ledger}) {
            for (const TableDef &table : TablesOf(file)) {
                const TableNeeds &needs = tableNeeds().at(table.name());
                result.push_back({file, table, needs.fields, needs.summedField});
            }
        }
        return result;
    }();
    return tables;
}

int CsvTable::column(const QString &field) const
{
    return static_cast<int>(fieldPlace(table->definition, field));
}

QString CsvTable::place(const CsvRecord &record, const QString &field) const
{
    return u"%1, riga %2, campo %3: "_s.arg(file, QString::number(record.line), field);
}

CsvTable ReadCsvTable(const QString &path, const ExchangedTable &table, const TableDef &stored,
                      QStringList &errors, const ReadProgress &progress)
{
    return TableReader(path, table, stored, errors).read(progress);
}

} // namespace saldoro
