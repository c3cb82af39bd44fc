#include "invoice/amount_chain.h"

#include "common/amount_text.h"
#include "common/errors.h"
#include "common/number_text.h"

#include <cmath>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

AmountChain::AmountChain(QList<AmountField> fields)
    : m_fields(std::move(fields))
    , m_texts(m_fields.size())
{
}

void AmountChain::throwNoSuchField()
{
    throw BoundsError(u"Campo di importo inesistente."_s);
}

void AmountChain::check(int position) const
{
    if (position < 0 || position >= m_fields.size())
        throwNoSuchField();
}

const AmountField &AmountChain::field(int position) const
{
    check(position);
    return m_fields[position];
}

int AmountChain::position(const QString &objectName) const
{
    for (int position = 0; position < m_fields.size(); ++position) {
        if (m_fields[position].objectName == objectName)
            return position;
    }
    throwNoSuchField();
}

QString AmountChain::text(int position) const
{
    check(position);
    return m_texts[position];
}

void AmountChain::setText(int position, const QString &text)
{
    check(position);
    m_texts[position] = text;
}

void AmountChain::entered(int position)
{
    check(position);
    PuntoDecimale(m_texts[position]);
}

void AmountChain::showStored(int position, std::optional<Currency> value)
{
    if (!value)
        setText(position, QString());
    else if (field(position).role == AmountRole::Rate)
        setText(position, RateText(value->toDouble()));
    else
        show(position, *value);
}

Currency AmountChain::amount(int position) const
{
    // A copy: what the user sees must keep its display form.
    return ImportoDaTesto(text(position));
}

void AmountChain::show(int position, Currency value)
{
    setText(position, FormatImporto(value));
}

void AmountChain::showTyped(int position)
{
    show(position, Currency::fromDouble(LeadingNumber(text(position))));
}

double AmountChain::rate(int position) const
{
    const double value = LeadingNumber(text(position));
    if (!std::isfinite(value))
        throw OverflowError(u"Un'aliquota supera il massimo che il programma può trattare."_s,
                            u"Controllare le aliquote scritte."_s);
    return value;
}

void AmountChain::showRate(int position)
{
    setText(position, RateText(rate(position)));
}

Currency AmountChain::share(int basePosition, int ratePosition) const
{
    return Currency::fromDouble(amount(basePosition).toDouble() * rate(ratePosition) / 100.0);
}

} // namespace saldoro
