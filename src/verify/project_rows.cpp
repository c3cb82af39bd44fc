#include "verify/project_rows.h"

#include "database/text_order.h"

#include <algorithm>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QList<CheckedRow> rowsOf(const ProjectTable &table, const QString &number, const QString &code,
                         const QString &amount)
{
    QList<CheckedRow> rows;
    for (qsizetype place = 0; place < table.rows.size(); ++place) {
        rows.append({table.definition.name(), place});
        if (!number.isEmpty())
            rows.last().number = table.value<qint32>(place, number);
        if (!amount.isEmpty())
            rows.last().amount = table.value<Currency>(place, amount);
        rows.last().code = table.value<QString>(place, code);
    }
    return rows;
}

template <typename Name>
QList<CheckedRow> named(QList<CheckedRow> rows, const Name &nameOf)
{
    int count = 0;
    for (CheckedRow &row : rows) {
        row.row = ++count;
        row.name = nameOf(row, QString::number(count));
    }
    return rows;
}

QString numberOr(const CheckedRow &row, const QString &none)
{
    return row.number ? QString::number(*row.number) : none;
}

} // namespace

Finding FindingAt(const CheckedRow &row, FindingGroup group, const QString &problem,
                  QStringView remedy)
{
    return {group, row.name, problem, remedy.toString(), row.table, row.place};
}

QList<CheckedRow> PaymentsOf(const ProjectTable &fatture)
{
    QList<CheckedRow> rows = rowsOf(fatture, u"Npag"_s, u"AziProf"_s, {});
    std::ranges::stable_sort(rows, {}, &CheckedRow::number);
    return named(std::move(rows), [&fatture](const CheckedRow &row, const QString &count) {
        const QString creditor =
            fatture.value<QString>(row.place, u"Creditore"_s).value_or(QString());
        return u"Pagamento %1 (riga %2%3)"_s.arg(numberOr(row, u"senza numero"_s), count,
                                                 creditor.isEmpty() ? QString()
                                                                    : u", "_s + creditor);
    });
}

QList<CheckedRow> AllocationsOf(const ProjectTable &spese)
{
    return named(rowsOf(spese, u"RelNpag"_s, u"Cod"_s, u"Importo"_s),
                 [](const CheckedRow &row, const QString &count) {
                     return u"Conto di spesa alla riga %1 (pagamento %2, codice %3)"_s.arg(
                         count, numberOr(row, u"mancante"_s), row.code.value_or(u"mancante"_s));
                 });
}

QList<CheckedRow> BudgetOf(const ProjectTable &budget)
{
    QList<CheckedRow> rows = rowsOf(budget, {}, u"Voce"_s, {});
    std::ranges::stable_sort(rows, [](const CheckedRow &left, const CheckedRow &right) {
        return right.code && (!left.code || TextOrder()(*left.code, *right.code));
    });
    return named(std::move(rows), [](const CheckedRow &row, const QString &count) {
        return u"Voce %1 (riga %2)"_s.arg(row.code.value_or(u"senza codice"_s), count);
    });
}

} // namespace saldoro
