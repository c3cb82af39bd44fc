#include "exchange/pasted_table.h"

#include "common/errors.h"

#include <QMap>
#include <QRegularExpression>

#include <algorithm>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** On one line, without the blanks that web pages and spreadsheets put around; null for nothing. */
QString plainCell(const QString &cell)
{
    QString plain = cell.simplified().replace(u'\u2212', u'-'); // a minus sign
    plain.removeIf([](QChar each) { return each.category() == QChar::Other_Format; });
    return plain.isEmpty() ? QString() : plain;
}

/** Where one column is named for the code and another "Voce", that is the description. */
void tellCodeFromItem(CellColumns &columns, const QStringList &header, const ExchangedTable &table)
{
    const auto columnLike = [&header](QStringView start) {
        const auto cell = std::find_if(header.begin(), header.end(), [&](const QString &name) {
            return name.trimmed().startsWith(start, Qt::CaseInsensitive);
        });
        return cell == header.end() ? qsizetype{-1} : cell - header.begin();
    };
    const qsizetype code = columnLike(u"cod");
    const qsizetype item = columnLike(u"voce");
    if (code < 0 || item < 0 || !columns.missing.contains(u"Descri"_s))
        return;
    std::replace(columns.places.begin(), columns.places.end(), table.place(u"Voce"_s),
                 CellColumns::Unknown);
    columns.places[code] = table.place(u"Voce"_s);
    columns.places[item] = table.place(u"Descri"_s);
}

/** What a spreadsheet shows in place of a value that it has none for. */
bool isSheetError(const QString &cell)
{
    static const QRegularExpression error(u"\\A#[A-Z0-9/]+[!?]?\\z"_s);
    return error.match(cell).hasMatch();
}

/** Whether a row may be taken for a header: one field alone has to bear its own name. */
bool isHeader(const CellColumns &columns, const ExchangedTable &table)
{
    const qsizetype found = table.neededFields.size() - columns.missing.size();
    return columns.firstRow > 0 &&
           (found > 1 || (columns.missing.isEmpty() && columns.guesses.isEmpty()));
}

} // namespace

PastedTable::PastedTable(const ExchangedTable &table, Check check, const QList<QStringList> &kept)
    : m_table(table)
    , m_check(std::move(check))
    , m_kept(kept)
{
    m_rows.fill({{}, PastedState::Kept, u"già in archivio"_s}, kept.size());
    setRows({});
}

void PastedTable::setRows(const QList<CellRow> &rows)
{
    m_rows.resize(m_kept.size());
    m_isConverted = false;
    qsizetype width = m_table.definition.fields().size();
    for (const CellRow &row : rows)
        width = std::max(width, row.cells.size());
    m_columns = FindColumns(rows, m_table);
    if (!isHeader(m_columns, m_table))
        m_columns = {};
    else
        tellCodeFromItem(m_columns, rows[m_columns.firstRow - 1].cells, m_table);
    m_columns.places.resize(width, CellColumns::Unknown);
    std::replace(m_columns.places.begin(), m_columns.places.end(), CellColumns::Nameless,
                 CellColumns::Unknown);
    // A field without a name stands where it usually does, if that column is no other's.
    const QStringList fields = m_table.fieldNames();
    for (qsizetype place = 0; place < fields.size(); ++place) {
        const bool isExpected = rows.isEmpty() || m_table.neededFields.contains(fields[place]);
        if (isExpected && columnOf(fields[place]) < 0 &&
            m_columns.places[place] == CellColumns::Unknown)
            m_columns.places[place] = place;
    }
    for (const CellRow &row : rows) {
        PastedRow pasted;
        for (const QString &cell : row.cells)
            pasted.cells.append(plainCell(cell));
        pasted.cells.resize(width);
        m_rows.append(pasted);
    }
    judge();
}

void PastedTable::setText(const QString &text)
{
    QString lines = text;
    lines.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    const bool hasTabs = lines.contains(u'\t') || !lines.contains(u';');
    const TextRows read = RowsOfText(lines, hasTabs ? u'\t' : u';');
    if (read.fault)
        throw SaldoroError(u"Riga %1: %2"_s.arg(read.fault->line).arg(read.fault->problem),
                           u"Copiare le celle dal foglio elettronico."_s);
    setRows(read.rows);
}

qsizetype PastedTable::addRow()
{
    m_rows.append({QStringList(columns())});
    judge();
    return m_rows.size() - 1;
}

QString PastedTable::caption(const QString &field)
{
    static const QMap<QString, QString> captions{{u"Voce"_s, u"Codice"_s},
                                                 {u"Descri"_s, u"Descrizione"_s}};
    return captions.value(field, field);
}

QString PastedTable::columnName(qsizetype column) const
{
    const qsizetype place = m_columns.places[column];
    const QString number = QString::number(column + 1) + u'.';
    return place < 0 ? number : number + u' ' + caption(m_table.definition.fields()[place].name);
}

QString PastedTable::columnSample(qsizetype column) const
{
    qsizetype row = m_kept.size() + std::max(m_columns.firstRow - 1, qsizetype{0});
    while (row < m_rows.size() && m_rows[row].cells[column].isEmpty())
        ++row;
    return row < m_rows.size() ? m_rows[row].cells[column] : QString();
}

qsizetype PastedTable::columnOf(const QString &field) const
{
    return m_columns.places.indexOf(m_table.place(field));
}

void PastedTable::setColumn(const QString &field, qsizetype column)
{
    if (const qsizetype before = columnOf(field); before >= 0)
        m_columns.places[before] = CellColumns::Unknown;
    if (column >= 0)
        m_columns.places[column] = m_table.place(field);
    judge();
}

void PastedTable::setCell(qsizetype row, qsizetype column, const QString &text)
{
    if (row < m_kept.size())
        return;
    m_rows[row].cells[column] = plainCell(text);
    judge();
}

void PastedTable::toggle(qsizetype row)
{
    if (row < m_kept.size())
        return;
    if (row < m_kept.size() + m_columns.firstRow)
        m_columns.firstRow = 0;
    else
        m_rows[row].state =
            m_rows[row].state == PastedState::LeftOut ? PastedState::Taken : PastedState::LeftOut;
    judge();
}

QString PastedTable::setAsideReason(qsizetype row) const
{
    const CellRow cells{0, m_rows[row].cells};
    const qsizetype filled =
        cells.cells.size() - cells.cells.count(QString()); // a null is equal to it, too
    if (row + 1 == m_kept.size() + m_columns.firstRow)
        return u"intestazione"_s;
    if (row < m_kept.size() + m_columns.firstRow)
        return u"sopra l'intestazione"_s;
    if (filled == 0)
        return u"riga vuota"_s;
    if (!HasKey(cells, m_columns, m_table))
        return u"senza %1: titolo o totale"_s.arg(caption(m_table.neededFields.first()));
    if (filled == 1 && m_table.neededFields.size() > 1)
        return u"una cella sola: titolo"_s;
    return {};
}

void PastedTable::addFault(qsizetype row, const QString &reason)
{
    PastedRow &pasted = m_rows[row];
    pasted.state = PastedState::Faulty;
    pasted.reason += (pasted.reason.isEmpty() ? QString() : u" "_s) + reason;
}

/** Where the amounts that are taken tell the other notation throughout. */
void PastedTable::readInItalian()
{
    const qsizetype column = columnOf(u"Importo"_s);
    for (qsizetype row = m_kept.size(); row < m_rows.size() && column >= 0; ++row) {
        QString &cell = m_rows[row].cells[column];
        if (const auto amount = AmountOf(cell, Notation::International))
            cell = AmountCell(*amount);
    }
    m_isConverted = true;
}

/** The rows that are there already stand in the columns of the others. */
void PastedTable::showKept()
{
    for (qsizetype row = 0; row < m_kept.size(); ++row) {
        m_rows[row].cells = QStringList(columns());
        for (qsizetype column = 0; column < columns(); ++column) {
            if (m_columns.places[column] >= 0)
                m_rows[row].cells[column] = m_kept[row].value(m_columns.places[column]);
        }
    }
}

void PastedTable::judge()
{
    showKept();
    QList<CellRow> rows;
    for (qsizetype row = m_kept.size(); row < m_rows.size(); ++row) {
        PastedRow &pasted = m_rows[row];
        const bool isLeftOut = pasted.state == PastedState::LeftOut;
        pasted.reason = isLeftOut ? u"tralasciata"_s : setAsideReason(row);
        if (!isLeftOut)
            pasted.state = pasted.reason.isEmpty() ? PastedState::Taken : PastedState::SetAside;
        if (pasted.state == PastedState::Taken)
            rows.append({static_cast<int>(row), pasted.cells}); // the line is the row's place here
    }
    CellColumns columns = m_columns;
    columns.firstRow = 0;
    std::optional<Notation> notation = ToldNotation(rows, columns, m_table);
    if (notation == Notation::International) {
        readInItalian();
        judge();
        return;
    }
    const TypedRows typed = TypedRowsOf(rows, columns, m_table, m_table.definition, notation);
    for (const CellFault &fault : typed.faults)
        addFault(fault.line, caption(fault.field) + u": "_s + fault.problem);
    for (qsizetype row = 0; row < typed.rows.size(); ++row) {
        for (const QString &field : m_table.neededFields) {
            const NewValue &value = typed.rows[row][m_table.place(field)];
            if (isSheetError(TextOf(value)))
                addFault(typed.lines[row], u"%1: «%2» è un errore del foglio elettronico."_s.arg(
                                               caption(field), TextOf(value)));
            if (value == NewValue())
                addFault(typed.lines[row], u"manca %1."_s.arg(caption(field)));
        }
    }
    m_taken.clear();
    QList<qsizetype> places;
    for (qsizetype row = 0; row < typed.rows.size(); ++row) {
        if (m_rows[typed.lines[row]].state == PastedState::Taken) {
            m_taken.append(typed.rows[row]);
            places.append(typed.lines[row]);
        }
    }
    for (const CellFault &fault : m_check ? m_check(m_taken) : QList<CellFault>())
        addFault(places[fault.line], fault.problem);
}

qsizetype PastedTable::count(PastedState state) const
{
    return std::count_if(m_rows.begin(), m_rows.end(),
                         [state](const PastedRow &row) { return row.state == state; });
}

std::optional<Currency> PastedTable::total() const
{
    const qsizetype place = m_table.place(u"Importo"_s);
    Currency total;
    try {
        for (const TableRow &row : m_taken) {
            if (const auto *amount = place < 0 ? nullptr : std::get_if<Currency>(&row[place]))
                total += *amount;
        }
    } catch (const OverflowError &) {
        return std::nullopt;
    }
    return total;
}

bool PastedTable::isReady() const
{
    return !m_taken.isEmpty() && count(PastedState::Faulty) == 0;
}

QString PastedTable::remark() const
{
    for (const QString &field : m_table.neededFields) {
        if (columnOf(field) < 0)
            return u"Manca la colonna %1: indicarla qui sopra."_s.arg(caption(field));
    }
    return m_isConverted ? u"Gli importi erano scritti come 1,234.56: sono stati letti tutti così "
                           "e riscritti all'italiana."_s
                         : QString();
}

} // namespace saldoro
