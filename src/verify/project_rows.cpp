#include "verify/project_rows.h"

#include "common/creditor_kind.h"
#include "common/errors.h"
#include "database/text_order.h"
#include "store/payment_amounts.h"

#include <QHash>

#include <algorithm>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QList<CheckedRow> rowsOf(const ProjectTable &table, const QString &number, const QString &code,
                         const QString &amount)
{
    QList<CheckedRow> rows(table.rows.size());
    QHash<QString, QByteArray> comparable; // of few codes in many rows
    for (qsizetype at = 0; at < rows.size(); ++at) {
        CheckedRow &row = rows[at];
        row.table = &table;
        row.storedRow = at;
        if (!code.isEmpty())
            row.code = table.value<QString>(at, code);
        if (row.code) {
            QByteArray &form = comparable[*row.code];
            if (form.isEmpty())
                form = ComparableText(row.code->toUtf8());
            row.comparableCode = form;
        }
        if (!number.isEmpty())
            row.number = table.value<qint32>(at, number);
        if (!amount.isEmpty())
            row.amount = table.value<Currency>(at, amount);
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

/** None when a payment lacks a value. Throws OverflowError. */
std::optional<Currency> grossAmount(const CheckedRow &payment)
{
    const auto amount = [&](const QString &field) {
        return payment.table->value<Currency>(payment.storedRow, field);
    };
    const Currency others = OtherAmounts(payment.kind == KindCode(CreditorKind::Professional),
                                         [&] { return amount(u"AltriImporti01"_s); });
    const auto base = amount(u"Importo"_s);
    const auto vat = amount(u"ImportoIVA"_s);
    return base && vat ? std::optional(GrossAmount(*base, *vat, others)) : std::nullopt;
}

QList<CheckedRow> paymentsOf(const ProjectTable &fatture)
{
    QList<CheckedRow> rows = rowsOf(fatture, u"Npag"_s, {}, {});
    for (CheckedRow &payment : rows) {
        payment.kind = fatture.value<QString>(payment.storedRow, u"AziProf"_s);
        try {
            payment.gross = grossAmount(payment);
        } catch (const OverflowError &) {
            payment.isBeyondRange = true;
        }
    }
    std::ranges::stable_sort(rows, {}, &CheckedRow::number); // as PaymentsOrder
    return counted(std::move(rows));
}

QList<CheckedRow> budgetOf(const ProjectTable &budget)
{
    QList<CheckedRow> rows = rowsOf(budget, {}, u"Voce"_s, {});
    std::ranges::stable_sort(rows, TextOrder(), &CheckedRow::code); // as BudgetOrder
    return counted(std::move(rows));
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
    const QString creditor = table->value<QString>(storedRow, u"Creditore"_s).value_or(QString());
    return u"Pagamento %1 (riga %2%3)"_s.arg(number ? shownNumber : u"senza numero"_s, shownRow,
                                             creditor.isEmpty() ? QString() : u", "_s + creditor);
}

CheckedProject::CheckedProject(const ProjectTables &read)
    : tables(read)
{
    if (const ProjectTable *fatture = table(u"Fatture"_s))
        payments = paymentsOf(*fatture);
    if (const ProjectTable *spese = table(u"Spese"_s))
        allocations = counted(rowsOf(*spese, u"RelNpag"_s, u"Cod"_s, u"Importo"_s));
    if (const ProjectTable *voci = table(u"UltimaPerVariante"_s))
        budget = budgetOf(*voci);
}

const ProjectTable *CheckedProject::table(const QString &name) const
{
    const auto found = tables.find(name);
    return found == tables.end() ? nullptr : &found->second;
}

Finding FindingAt(const CheckedRow &row, FindingGroup group, const QString &problem,
                  QStringView remedy)
{
    return {group,        row.name(), problem, remedy.toString(), row.table->definition.name(),
            row.storedRow};
}

} // namespace saldoro
