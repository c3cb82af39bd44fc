#include "verify/project_rows.h"

#include "database/text_order.h"

#include <algorithm>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QList<CheckedRow> rowsOf(const ProjectTable &table, const QString &number, const QString &code,
                         const QString &amount)
{
    QList<CheckedRow> rows(table.rows.size());
    for (qsizetype place = 0; place < rows.size(); ++place) {
        CheckedRow &row = rows[place];
        row.table = &table;
        row.place = place;
        row.code = table.value<QString>(place, code);
        if (!number.isEmpty())
            row.number = table.value<qint32>(place, number);
        if (!amount.isEmpty())
            row.amount = table.value<Currency>(place, amount);
    }
    return rows;
}

QList<CheckedRow> counted(QList<CheckedRow> rows)
{
    int count = 0;
    for (CheckedRow &row : rows)
        row.row = ++count;
    return rows;
}

} // namespace

QString CheckedRow::name() const
{
    const QString shownRow = QString::number(row);
    const QString shownNumber = number ? QString::number(*number) : QString();
    if (table->definition.name() == "UltimaPerVariante"_L1)
        return u"Voce %1 (riga %2)"_s.arg(code.value_or(u"senza codice"_s), shownRow);
    if (table->definition.name() == "Spese"_L1)
        return u"Conto di spesa alla riga %1 (pagamento %2, codice %3)"_s.arg(
            shownRow, number ? shownNumber : u"mancante"_s, code.value_or(u"mancante"_s));
    const QString creditor = table->value<QString>(place, u"Creditore"_s).value_or(QString());
    return u"Pagamento %1 (riga %2%3)"_s.arg(number ? shownNumber : u"senza numero"_s, shownRow,
                                             creditor.isEmpty() ? QString() : u", "_s + creditor);
}

QList<CheckedRow> PaymentsOf(const ProjectTable &fatture)
{
    QList<CheckedRow> rows = rowsOf(fatture, u"Npag"_s, u"AziProf"_s, {});
    std::ranges::stable_sort(rows, {}, &CheckedRow::number);
    return counted(std::move(rows));
}

QList<CheckedRow> AllocationsOf(const ProjectTable &spese)
{
    return counted(rowsOf(spese, u"RelNpag"_s, u"Cod"_s, u"Importo"_s));
}

QList<CheckedRow> BudgetOf(const ProjectTable &budget)
{
    QList<CheckedRow> rows = rowsOf(budget, {}, u"Voce"_s, {});
    std::ranges::stable_sort(rows, [](const CheckedRow &left, const CheckedRow &right) {
        return right.code && (!left.code || TextOrder()(*left.code, *right.code));
    });
    return counted(std::move(rows));
}

Finding FindingAt(const CheckedRow &row, FindingGroup group, const QString &problem,
                  QStringView remedy)
{
    return {group, row.name(), problem, remedy.toString(), row.table->definition.name(), row.place};
}

} // namespace saldoro
