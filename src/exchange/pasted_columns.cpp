#include "exchange/pasted_columns.h"

#include <QMap>
#include <QStringList>

#include <algorithm>

namespace saldoro {

using namespace Qt::StringLiterals;

QString FieldCaption(const QString &field)
{
    static const QMap<QString, QString> captions{{u"Voce"_s, u"Codice"_s},
                                                 {u"Descri"_s, u"Descrizione"_s}};
    return captions.value(field, field);
}

CellColumns PastedColumns(const QList<CellRow> &rows, const ExchangedTable &table)
{
    CellColumns columns = GuessColumns(rows, table);
    const QStringList fields = table.fieldNames();
    qsizetype width = fields.size();
    for (const CellRow &row : rows)
        width = std::max(width, row.cells.size());
    // Numbers or notes often stand in a column without a name.
    std::ranges::replace(columns.fieldOfCell, CellColumns::Nameless, CellColumns::Unknown);
    columns.fieldOfCell.resize(width, CellColumns::Unknown);
    const QStringList header =
        columns.firstRow == 0 ? QStringList() : rows[columns.firstRow - 1].cells;
    for (qsizetype index = 0; index < fields.size(); ++index) {
        const bool isExpected = rows.isEmpty() || table.neededFields.contains(fields[index]);
        const bool isFree =
            columns.fieldOfCell[index] < 0 && header.value(index).simplified().isEmpty();
        if (isExpected && isFree && columns.columnOf(fields[index], table) < 0)
            columns.fieldOfCell[index] = index;
    }
    return columns;
}

QString ColumnDoubt(const QString &field, const QList<CellRow> &rows, const CellColumns &columns,
                    const ExchangedTable &table)
{
    if (columns.firstRow == 0)
        return {};
    const QStringList &header = rows[columns.firstRow - 1].cells;
    QStringList names;
    for (qsizetype column = 0; column < header.size(); ++column) {
        const QString name = header[column].simplified();
        const bool isTaken = column == columns.columnOf(field, table);
        if (isTaken || (columns.fieldOfCell[column] < 0 && MayMean(name, field)))
            names.insert(isTaken ? 0 : names.size(), u"«%1. %2»"_s.arg(column + 1).arg(name));
    }
    return names.size() < 2
               ? QString()
               : u"%1 può essere %2: è stata presa la prima di queste colonne. Se è "
                 "un'altra, indicarla qui sopra."_s.arg(FieldCaption(field), names.join(u" o "_s));
}

} // namespace saldoro
