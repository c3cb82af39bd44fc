#include "exchange/typed_rows.h"

#include "common/characters.h"
#include "common/errors.h"
#include "platform/progress.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

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

bool isBlank(const CellRow &row)
{
    return std::all_of(row.cells.begin(), row.cells.end(), std::mem_fn(&QString::isNull));
}

/** Reads the rows of one table. */
class RowsReader
{
public:
    RowsReader(const CellColumns &columns, const ExchangedTable &table, const TableDef &stored,
               std::optional<Notation> notation, QList<CellFault> &faults)
        : m_columns(columns)
        , m_table(table)
        , m_filledFields(table.neededFields)
        , m_notation(notation)
        , m_faults(faults)
        , m_result{&table, {}}
    {
        if (table.name() == "UltimaPerVariante"_L1)
            m_filledFields.removeOne(u"Importo"_s); // a null budget counts as 0
        for (const FieldDef &field : table.definition.fields())
            m_stored.append(stored.field(field.name));
        for (const qsizetype field : columns.fieldOfCell) {
            if (field >= 0)
                m_result.fields.append(table.definition.fields()[field].name);
        }
    }

    GivenTable read(QList<CellRow> rows)
    {
        Progress progress(u"Lettura di "_s + m_table.name());
        const auto last = std::find_if_not(rows.rbegin(), rows.rend(), isBlank);
        m_isLastWhole = last != rows.rend() && last->cells.size() >= m_columns.fieldOfCell.size();
        for (qsizetype row = m_columns.firstRow; row < rows.size(); ++row) {
            if (!isBlank(rows[row]))
                readRow(std::exchange(rows[row], {})); // the room serves the next ones
            progress.show(row);
        }
        return std::move(m_result);
    }

private:
    /** Whether a row has a cell for each column, or those that lack may do so. In files with the
     *  international notation a cell too many may be the decimals of an Italian amount. */
    bool hasItsCells(const QStringList &cells) const
    {
        const QList<qsizetype> &fields = m_columns.fieldOfCell;
        for (qsizetype cell = cells.size(); cell < fields.size(); ++cell) {
            if (!m_isLastWhole ||
                (fields[cell] >= 0 && m_filledFields.contains(nameOf(fields[cell]))))
                return false;
        }
        return cells.size() <= fields.size() ||
               (m_notation != Notation::International &&
                std::all_of(cells.begin() + fields.size(), cells.end(),
                            std::mem_fn(&QString::isNull)));
    }

    void readRow(const CellRow &row)
    {
        const QList<qsizetype> &fields = m_columns.fieldOfCell;
        if (!hasItsCells(row.cells)) {
            const bool isParted =
                m_notation == Notation::International && row.cells.size() > fields.size();
            addFault(row.line,
                     u"le celle sono %1, e %2 nell'intestazione%3."_s.arg(row.cells.size())
                         .arg(fields.size())
                         .arg(isParted ? u": se gli importi hanno la virgola, salvare con «;»"_s
                                       : QString()));
            return;
        }
        TableRow values(m_stored.size());
        for (qsizetype cell = 0; cell < std::min(fields.size(), row.cells.size()); ++cell) {
            const QString &text = row.cells[cell];
            if (fields[cell] == CellColumns::Nameless && !text.isNull())
                addFault(row.line, u"la cella %1 sta in una colonna senza nome."_s.arg(cell + 1));
            if (fields[cell] < 0)
                continue;
            QString problem;
            const auto value = SureValueOfCell(text, typeOf(fields[cell]), m_notation, problem);
            if (value)
                problem = refusal(m_stored[fields[cell]], *value);
            if (value && problem.isEmpty()) {
                values[fields[cell]] = *value;
            } else {
                addFault(row.line, problem, nameOf(fields[cell]));
                values[fields[cell]] = QDate(); // stands for what no cell can tell
            }
        }
        m_result.rows.append(std::move(values));
        m_result.lines.append(row.line);
    }

    void addFault(int line, const QString &problem, const QString &field = {})
    {
        m_faults.append({line, field, problem});
    }
    const QString &nameOf(qsizetype field) const { return m_table.definition.fields()[field].name; }
    FieldType typeOf(qsizetype field) const { return m_table.definition.fields()[field].type; }

    const CellColumns &m_columns;
    const ExchangedTable &m_table;
    QStringList m_filledFields; ///< for which each row must have a cell
    std::optional<Notation> m_notation;
    QList<FieldDef> m_stored; ///< the fields as the archive has them
    bool m_isLastWhole = false;
    QList<CellFault> &m_faults;
    GivenTable m_result;
};

} // namespace

QString GivenTable::rowName(qsizetype row) const
{
    return u"%1, riga %2"_s.arg(source).arg(lines.value(row, static_cast<int>(row) + 1));
}

GivenTable TypedRowsOf(QList<CellRow> rows, const CellColumns &columns, const ExchangedTable &table,
                       const TableDef &stored, std::optional<Notation> notation,
                       QList<CellFault> &faults)
{
    return RowsReader(columns, table, stored, notation, faults).read(std::move(rows));
}

} // namespace saldoro
