#include "store/payment_numbers.h"

namespace saldoro {

using namespace Qt::StringLiterals;

QString PaymentCriterion(qint32 number)
{
    return u"Npag = "_s + QString::number(number);
}

bool FindPayment(RecordSet &payments, qint32 number)
{
    payments.findFirst(PaymentCriterion(number));
    return !payments.noMatch();
}

QString AllocationsCriterion(qint32 paymentNumber)
{
    return u"RelNpag = "_s + QString::number(paymentNumber);
}

} // namespace saldoro
