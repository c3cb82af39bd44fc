#include "exchange/pasted_table.h"

#include "common/characters.h"
#include "common/errors.h"
#include "exchange/pasted_columns.h"
#include "exchange/told_notations.h"

#include <QRegularExpression>

#include <algorithm>
#include <set>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** On one line, without blanks around and characters that do not show; null for nothing. */
QString plainCell(const QString &cell)
{
    QString plain = cell.simplified().replace(u'\u2212', u'-'); // a minus sign
    plain.removeIf(IsUnseen);
    return plain.isEmpty() ? QString() : plain;
}

/** What a spreadsheet shows in place of a value that it has none for; "#1" may be a code. */
bool isSheetError(const QString &cell)
{
    static const QRegularExpression error(u"\\A(?:#N/[AD]|#[A-Z0-9/]+[!?]|Err:\\d+)\\z"_s);
    return error.match(cell).hasMatch();
}

/** An amount in the international notation in the Italian one; what is none as it is. */
QString inItalian(const QString &cell)
{
    const auto amount = AmountOf(cell, Notation::International);
    return amount ? AmountCell(*amount) : cell;
}

} // namespace

PastedTable::PastedTable(const ExchangedTable &table, Check check)
    : m_table(table)
    , m_check(std::move(check))
{
    setRows({});
}

void PastedTable::setRows(const QList<CellRow> &rows, const QStringList &warnings)
{
    m_warnings = warnings;
    m_international.clear();
    m_areMixed = false;
    m_columns = PastedColumns(rows, m_table);
    m_doubts.clear();
    for (const QString &field : m_table.neededFields)
        m_doubts[field] = ColumnDoubt(field, rows, m_columns, m_table);
    m_rows.clear();
    const bool haveMembers = m_table.indexOf(u"Mandanti"_s) >= 0;
    for (const CellRow &row : rows) {
        m_rows.append(PastedRow());
        for (QString cell : row.cells) {
            // One on each line. Which column has them may be said later.
            if (haveMembers && m_rows.last().cells.size() != columnOf(u"Nome"_s))
                cell.replace(u'\n', u';');
            m_rows.last().cells.append(plainCell(cell));
        }
        m_rows.last().cells.resize(columns());
    }
    judge();
}

void PastedTable::setText(const QString &text)
{
    const QString lines = QString(text).replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    const bool hasTabs = lines.contains(u'\t') || !lines.contains(u';');
    const TextRows read = RowsOfText(lines, hasTabs ? u'\t' : u';');
    if (read.fault)
        throw SaldoroError(u"Riga %1: %2"_s.arg(read.fault->line).arg(read.fault->problem),
                           u"Copiare le celle dal foglio elettronico."_s);
    setRows(read.rows);
}

void PastedTable::addRow()
{
    m_rows.append({QStringList(columns())});
    judge();
}

QString PastedTable::columnName(qsizetype column) const
{
    const qsizetype field = m_columns.fieldOfCell[column];
    const QString number = QString::number(column + 1) + u'.';
    return field < 0 ? number
                     : number + u' ' + FieldCaption(m_table.definition.fields()[field].name);
}

QString PastedTable::columnSample(qsizetype column) const
{
    for (qsizetype row = std::max<qsizetype>(m_columns.firstRow - 1, 0); row < m_rows.size();
         ++row) {
        if (!m_rows[row].cells[column].isEmpty())
            return m_rows[row].cells[column];
    }
    return {};
}

qsizetype PastedTable::columnOf(const QString &field) const
{
    return m_columns.columnOf(field, m_table);
}

void PastedTable::setColumn(const QString &field, qsizetype column)
{
    const qsizetype amounts = columnOf(u"Importo"_s);
    if (const qsizetype before = columnOf(field); before >= 0)
        m_columns.fieldOfCell[before] = CellColumns::Unknown;
    if (column >= 0)
        m_columns.fieldOfCell[column] = m_table.indexOf(field);
    if (columnOf(u"Importo"_s) != amounts) {
        restoreAmounts(amounts);
        m_areMixed = false;
    }
    m_doubts.remove(field);
    judge();
}

void PastedTable::setCell(qsizetype row, qsizetype column, const QString &text)
{
    m_rows[row].cells[column] = plainCell(text);
    m_rows[row].written.insert(column);
    judge();
}

void PastedTable::toggle(const QList<int> &rows)
{
    QList<PastedRow *> below; // the header
    for (const int row : rows) {
        if (row >= m_columns.firstRow)
            below.append(&m_rows[row]);
    }
    const bool areOut = std::ranges::all_of(
        below, [](const PastedRow *row) { return row->state == PastedState::LeftOut; });
    for (PastedRow *row : std::as_const(below))
        row->state = areOut ? PastedState::Taken : PastedState::LeftOut;
    if (below.isEmpty() && !rows.isEmpty())
        m_columns.firstRow = 0;
    judge();
}

QString PastedTable::setAsideReason(qsizetype row) const
{
    const QStringList &cells = m_rows[row].cells;
    const qsizetype filled = cells.size() - cells.count(QString()); // a null is equal to it, too
    const QString &key = m_table.neededFields.first();
    if (row + 1 == m_columns.firstRow)
        return u"intestazione"_s;
    if (row < m_columns.firstRow)
        return u"sopra l'intestazione"_s;
    if (filled == 0)
        return u"riga vuota"_s;
    if (columnOf(key) < 0 || cells[columnOf(key)].isEmpty())
        return u"senza %1: titolo o totale"_s.arg(FieldCaption(key));
    if (filled == 1 && m_table.neededFields.size() > 1)
        return u"una cella sola: titolo, o testo che non è diviso in celle"_s;
    return {};
}

void PastedTable::addFault(int line, const QString &reason)
{
    PastedRow &row = m_rows[line - 1];
    row.state = PastedState::Faulty;
    row.reason += (row.reason.isEmpty() ? QString() : u" "_s) + reason;
}

void PastedTable::readInItalian()
{
    m_international.clear();
    for (PastedRow &row : m_rows) {
        QString &cell = row.cells[columnOf(u"Importo"_s)];
        m_international.append(cell);
        // "250.125" in a row that stays out may come in later.
        m_areMixed = m_areMixed || (!AmountOf(cell, Notation::International) &&
                                    AmountOf(cell, Notation::Italian));
        cell = inItalian(cell);
    }
}

void PastedTable::restoreAmounts(qsizetype column)
{
    for (qsizetype row = 0; row < m_international.size(); ++row) {
        if (QString &cell = m_rows[row].cells[column]; cell == inItalian(m_international[row]))
            cell = m_international[row];
    }
    m_international.clear();
}

void PastedTable::judge()
{
    const QList<CellRow> rows = rowsToRead();
    CellColumns columns = m_columns;
    columns.firstRow = 0;
    QList<CellRow> given = rows; // which tell how the source writes amounts
    for (CellRow &row : given) {
        for (const qsizetype column : m_rows[row.line - 1].written)
            row.cells[column].clear();
    }
    const std::set<Notation> told = ToldNotations(given, columns, m_table);
    if (told == std::set{Notation::International}) {
        readInItalian();
        return judge();
    }
    m_areMixed = m_areMixed || told.size() > 1;
    QList<CellFault> faults;
    m_taken = TypedRowsOf(rows, columns, m_table, m_table.definition,
                          m_areMixed ? std::nullopt : std::optional(Notation::Italian), faults);
    m_taken.source = u"Celle incollate"_s;
    for (const CellFault &fault : std::as_const(faults))
        addFault(fault.line, FieldCaption(fault.field) + u": "_s + fault.problem);
    for (qsizetype row = 0; row < m_taken.rows.size(); ++row)
        requireFields(m_taken.lines[row], m_taken.rows[row]);
    dropFaulty();
    m_faultsOfAll.clear();
    for (const CellFault &fault : m_check ? m_check(m_taken.rows) : QList<CellFault>()) {
        if (fault.line == 0)
            m_faultsOfAll.append(fault.problem);
        else
            addFault(m_taken.lines[fault.line - 1], fault.problem);
    }
    dropFaulty();
}

QList<CellRow> PastedTable::rowsToRead()
{
    QList<CellRow> rows;
    for (int line = 1; line <= m_rows.size(); ++line) {
        PastedRow &row = m_rows[line - 1];
        const bool isLeftOut = row.state == PastedState::LeftOut;
        row.reason = isLeftOut ? u"tralasciata"_s : setAsideReason(line - 1);
        if (!isLeftOut)
            row.state = row.reason.isEmpty() ? PastedState::Taken : PastedState::SetAside;
        if (row.state == PastedState::Taken)
            rows.append({line, row.cells});
    }
    return rows;
}

void PastedTable::requireFields(int line, const TableRow &row)
{
    for (const QString &field : m_table.neededFields) {
        const NewValue &value = row[m_table.indexOf(field)];
        if (isSheetError(TextOf(value)))
            addFault(line, u"%1: «%2» è un errore del foglio elettronico."_s.arg(
                               FieldCaption(field), TextOf(value)));
        if (value == NewValue())
            addFault(line, u"manca %1."_s.arg(FieldCaption(field)));
    }
}

void PastedTable::dropFaulty()
{
    for (qsizetype row = m_taken.rows.size() - 1; row >= 0; --row) {
        if (m_rows[m_taken.lines[row] - 1].state == PastedState::Faulty) {
            m_taken.rows.removeAt(row);
            m_taken.lines.removeAt(row);
        }
    }
}

qsizetype PastedTable::count(PastedState state) const
{
    return std::ranges::count(m_rows, state, &PastedRow::state);
}

QString PastedTable::remark() const
{
    QStringList remarks = m_warnings + m_faultsOfAll;
    for (const QString &field : m_table.neededFields)
        remarks.append(columnOf(field) < 0
                           ? u"Manca la colonna %1: indicarla qui sopra."_s.arg(FieldCaption(field))
                           : m_doubts.value(field));
    const auto letters = [this](const QString &field) {
        qsizetype sum = 0;
        for (const TableRow &row : m_taken.rows)
            sum += TextOf(row.value(m_table.indexOf(field))).size();
        return sum;
    };
    if (letters(u"Voce"_s) > letters(u"Descri"_s) && columnOf(u"Descri"_s) >= 0)
        remarks.append(u"I codici sono più lunghi delle descrizioni: se le colonne sono scambiate, "
                       "indicarle qui sopra."_s);
    if (!m_international.isEmpty())
        remarks.append(u"Gli importi erano scritti come 1,234.56: sono stati letti tutti così e "
                       "riscritti all'italiana."_s);
    remarks.removeAll(QString());
    return remarks.join(u'\n');
}

} // namespace saldoro
