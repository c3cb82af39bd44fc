#include "store/ledger_payment.h"

#include "common/creditor_kind.h"
#include "store/ledger.h"

namespace saldoro {

namespace {
constexpr int notSought = -1;
} // namespace

LedgerPayment::LedgerPayment(const RecordSet &fatture)
    : m_fatture(fatture)
{
    m_columns.fill(notSought);
}

FieldValue LedgerPayment::field(PaymentField field) const
{
    const auto place = static_cast<std::size_t>(field);
    int &column = m_columns.at(place);
    if (column == notSought)
        column = m_fatture.column(FattureTable().fields().at(static_cast<qsizetype>(place)).name);
    return m_fatture.field(column);
}

bool LedgerPayment::isProfessional() const
{
    return field(PaymentField::AziProf).textOrEmpty() == KindCode(CreditorKind::Professional);
}

Currency LedgerPayment::otherAmounts() const
{
    if (!isProfessional())
        return {};
    return field(PaymentField::AltriImporti01).currencyOrNone().value_or(Currency());
}

Currency LedgerPayment::grossAmount() const
{
    return field(PaymentField::Importo).currency() + field(PaymentField::ImportoIVA).currency() +
           otherAmounts();
}

} // namespace saldoro
