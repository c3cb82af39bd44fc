#include "invoice/amount_chain.h"

#include "common/amount_text.h"
#include "common/errors.h"
#include "common/number_text.h"
#include "store/payment_amounts.h"

#include <algorithm>
#include <cmath>

namespace saldoro {

using namespace Qt::StringLiterals;

void AmountTexts::makePlain(Amount field)
{
    PuntoDecimale(m_texts[field]);
}

Currency AmountTexts::amount(Amount field) const
{
    // Of a copy, since reading an amount takes it out of its display form.
    return ImportoDaTesto(text(field));
}

void AmountTexts::show(Amount field, Currency value)
{
    setText(field, FormatImporto(value));
}

void AmountTexts::showTyped(Amount field)
{
    show(field, PlainAmount(text(field)));
}

double AmountTexts::rate(Amount field) const
{
    const double value = LeadingNumber(text(field));
    if (!std::isfinite(value))
        throw OverflowError(u"Un'aliquota supera il massimo che il programma può trattare."_s,
                            u"Controllare le aliquote scritte."_s);
    return value;
}

void AmountTexts::showRate(Amount field)
{
    setText(field, RateText(rate(field)));
}

Currency AmountTexts::share(Amount base, Amount rate) const
{
    return Currency::fromDouble(amount(base).toDouble() * this->rate(rate) / 100.0);
}

Currency AmountTexts::dueTotal() const
{
    using enum Amount;
    return GrossAmount(amount(Importo), amount(ImportoIva), amount(AltriImporti));
}

Currency AmountTexts::storedValue(const AmountField &field) const
{
    return field.role == AmountRole::Rate ? PlainAmount(text(field.amount)) : amount(field.amount);
}

void AmountTexts::showStored(const QList<AmountField> &fields, const QMap<Amount, Currency> &stored)
{
    using enum Amount;
    for (const AmountField &field : fields) {
        if (!stored.contains(field.amount))
            continue;
        if (field.role == AmountRole::Rate)
            setText(field.amount, RateText(stored[field.amount].toDouble()));
        else
            show(field.amount, stored[field.amount]);
    }
    // All four decimals count here, not the two that are shown.
    const Currency total = GrossAmount(stored[Importo], stored[ImportoIva], stored[AltriImporti]);
    show(TotaleFattura, total);
    show(Netto, total - stored[ImportoRA]);
    show(SoggettaRA, DueWithholdingBase(*this));
}

const AmountField &AmountChain::at(Amount field) const
{
    return *std::ranges::find(fields, field, &AmountField::amount);
}

QString AmountChain::nameOf(Amount field) const
{
    const AmountField &own = at(field);
    const bool isSecond = own.caption.isEmpty(); // it shares the caption of the field before
    const QString caption = isSecond ? (&own - 1)->caption : own.caption;
    return QString(caption).remove(u'&').replace(u"Aliquota e importo"_s,
                                                 isSecond ? u"Importo"_s : u"Aliquota"_s);
}

const AmountChain &AmountChainOf(CreditorKind kind)
{
    return kind == CreditorKind::Company ? CompanyAmounts() : ProfessionalAmounts();
}

} // namespace saldoro
