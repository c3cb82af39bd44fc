#include "store/payment_amounts.h"

#include "common/creditor_kind.h"

namespace saldoro {

using namespace Qt::StringLiterals;

Currency GrossAmount(Currency base, Currency vat, Currency others)
{
    return base + vat + others;
}

bool IsProfessional(const RecordSet &payments)
{
    return payments.field(u"AziProf"_s).storedBytes() ==
           KindCode(CreditorKind::Professional).toLatin1();
}

Currency OtherAmounts(const RecordSet &payments)
{
    return OtherAmounts(IsProfessional(payments),
                        [&] { return payments.field(u"AltriImporti01"_s).currencyOrNone(); });
}

Currency GrossAmount(const RecordSet &payments)
{
    return GrossAmount(payments.field(u"Importo"_s).currency(),
                       payments.field(u"ImportoIVA"_s).currency(), OtherAmounts(payments));
}

} // namespace saldoro
