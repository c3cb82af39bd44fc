#include "invoice/amount_chain.h"

#include "common/amount_text.h"
#include "common/errors.h"
#include "common/number_text.h"

#include <cmath>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

AmountChain::AmountChain(QList<AmountField> fields, AmountTexts &texts)
    : m_fields(std::move(fields))
    , m_texts(texts)
{
}

void AmountChain::entered(int position)
{
    QString plain = text(position);
    m_texts.setText(position, PuntoDecimale(plain));
}

void AmountChain::showStored(const QList<std::optional<Currency>> &stored)
{
    QList<Currency> values;
    for (int position = 0; position < m_fields.size(); ++position) {
        const std::optional<Currency> value = stored[position];
        values.append(value.value_or(Currency()));
        if (!value)
            m_texts.setText(position, {});
        else if (m_fields[position].role == AmountRole::Rate)
            m_texts.setText(position, RateText(value->toDouble()));
        else
            show(position, *value);
    }
    showComputed(values);
}

Currency AmountChain::storedValue(int position) const
{
    return m_fields[position].role == AmountRole::Rate
               ? Currency::fromDouble(LeadingNumber(text(position)))
               : amount(position);
}

void AmountChain::clear()
{
    for (int position = 0; position < m_fields.size(); ++position)
        m_texts.setText(position, {});
}

Currency AmountChain::amount(int position) const
{
    // A copy: what the user sees must keep its display form.
    return ImportoDaTesto(text(position));
}

void AmountChain::show(int position, Currency value)
{
    m_texts.setText(position, FormatImporto(value));
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
    m_texts.setText(position, RateText(rate(position)));
}

Currency AmountChain::share(int basePosition, int ratePosition) const
{
    return Currency::fromDouble(amount(basePosition).toDouble() * rate(ratePosition) / 100.0);
}

} // namespace saldoro
