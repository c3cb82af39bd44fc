#include "common/rounding.h"
#include "database/record_set.h"
#include "database/record_set_data.h"
#include "database/stored_text.h"

namespace saldoro {

namespace {

DatabaseError errorAt(const RecordSetData &data, int column, DatabaseFault fault)
{
    return data.error(fault, data.columnInfo(column).name);
}

/** The cell, which must not be null. */
const Cell &valueAt(const RecordSetData &data, int column)
{
    const Cell &cell = data.currentCell(column);
    if (cell.type == CellType::Null)
        throw errorAt(data, column, DatabaseFault::NullValue);
    return cell;
}

/** Whether numbers of the column count ten-thousandths. */
bool countsTenThousandths(const ColumnInfo &column)
{
    return column.kind == ColumnKind::Currency || column.kind == ColumnKind::Undeclared;
}

std::optional<QDate> dayAt(const RecordSetData &data, const Cell &cell)
{
    if (cell.type != CellType::Text)
        return std::nullopt;
    return DayFromStoredText(QString::fromUtf8(data.cells().text(cell)));
}

} // namespace

bool FieldValue::isNull() const
{
    return m_data->currentCell(m_column).type == CellType::Null;
}

QString FieldValue::text() const
{
    valueAt(*m_data, m_column);
    return textOrEmpty();
}

QString FieldValue::textOrEmpty() const
{
    return StoredText(m_data->cells(), m_data->currentCell(m_column), m_data->columnInfo(m_column));
}

std::optional<QByteArrayView> FieldValue::storedBytes() const
{
    const Cell &cell = m_data->currentCell(m_column);
    return cell.type == CellType::Text && cell.isExact ? std::optional(m_data->cells().text(cell))
                                                       : std::nullopt;
}

Currency FieldValue::currency() const
{
    const Cell &cell = valueAt(*m_data, m_column);
    const bool isScaled = countsTenThousandths(m_data->columnInfo(m_column));
    try {
        if (cell.type == CellType::Whole)
            return isScaled ? Currency::fromScaled(cell.whole())
                            : Currency::fromWhole(cell.whole());
        if (cell.type == CellType::Real && !isScaled)
            return Currency::fromDouble(cell.real());
    } catch (const OverflowError &) {
        throw errorAt(*m_data, m_column, DatabaseFault::FieldTooSmall);
    }
    if (cell.type != CellType::Real)
        throw errorAt(*m_data, m_column, DatabaseFault::TypeMismatch);
    const auto scaled = RoundHalfEven<qint64>(cell.real());
    if (!scaled)
        throw errorAt(*m_data, m_column, DatabaseFault::FieldTooSmall);
    return Currency::fromScaled(*scaled);
}

std::optional<Currency> FieldValue::currencyOrNone() const
{
    return isNull() ? std::nullopt : std::optional(currency());
}

qint32 FieldValue::integer() const
{
    const Cell &cell = valueAt(*m_data, m_column);
    if (cell.type == CellType::Text)
        throw errorAt(*m_data, m_column, DatabaseFault::TypeMismatch);
    std::optional<qint32> number;
    if (m_data->columnInfo(m_column).kind == ColumnKind::Currency)
        number = RoundHalfEven<qint32>(currency().toDouble());
    else if (cell.type == CellType::Real)
        number = RoundHalfEven<qint32>(cell.real());
    else if (cell.whole() == static_cast<qint32>(cell.whole()))
        number = static_cast<qint32>(cell.whole());
    if (!number)
        throw errorAt(*m_data, m_column, DatabaseFault::FieldTooSmall);
    return *number;
}

QDate FieldValue::date() const
{
    const Cell &cell = valueAt(*m_data, m_column);
    if (const auto day = dayAt(*m_data, cell))
        return *day;
    if (cell.type != CellType::Text || cell.length > 0)
        throw errorAt(*m_data, m_column, DatabaseFault::TypeMismatch);
    return {};
}

QDate FieldValue::dateOrNone() const
{
    return dayAt(*m_data, m_data->currentCell(m_column)).value_or(QDate());
}

} // namespace saldoro
