#include "verify/project_data.h"

namespace saldoro {

using namespace Qt::StringLiterals;

QString PaymentName(const PaymentRow &payment)
{
    QString name = payment.number.value ? u"Pagamento "_s + QString::number(*payment.number.value)
                                        : u"Pagamento senza numero"_s;
    name += u" (riga "_s + QString::number(payment.row);
    if (!payment.creditor.value.value_or(QString()).isEmpty())
        name += u", "_s + *payment.creditor.value;
    return name + u')';
}

QString AllocationName(const AllocationRow &allocation)
{
    return u"Conto di spesa alla riga "_s + QString::number(allocation.row) + u" (pagamento "_s +
           (allocation.payment.value ? QString::number(*allocation.payment.value) : u"mancante"_s) +
           u", codice "_s + allocation.code.value.value_or(u"mancante"_s) + u')';
}

QString BudgetName(const BudgetRow &item)
{
    return u"Voce "_s + item.code.value.value_or(u"senza codice"_s) + u" (riga "_s +
           QString::number(item.row) + u')';
}

std::map<qint32, int> PaymentCounts(const QList<PaymentRow> &payments)
{
    std::map<qint32, int> counts;
    for (const PaymentRow &payment : payments) {
        if (payment.number.value)
            ++counts[*payment.number.value];
    }
    return counts;
}

bool IsProfessional(const PaymentRow &payment)
{
    return payment.kind.value == u"P"_s;
}

QString ComparedCode(const QString &code)
{
    return code.toCaseFolded();
}

std::optional<QString> ExternalCode(const ProjectData &data, const QString &internalCode)
{
    if (!data.codes)
        return std::nullopt;
    for (const CodeRow &row : *data.codes) {
        if (ComparedCode(row.internalCode) == ComparedCode(internalCode))
            return row.externalCode.value;
    }
    return std::nullopt;
}

} // namespace saldoro
