#include "invoice/amount_notices.h"

#include "common/amount_text.h"
#include "common/number_text.h"
#include "invoice/typed_worth.h"

namespace saldoro {

using namespace Qt::StringLiterals;
using enum Amount;
using enum NoticeWeight;

namespace {

/** Whether a text in either form is worth the amount shown as @p shown. */
bool isWorth(const QString &text, const QString &shown)
{
    return TypedWorth(text, text.contains(u',') ? TypedNotation::Comma : TypedNotation::Point) ==
           shown;
}

/** The rules over the amounts of one moment. */
struct AmountNotices
{
    const InvoiceState &state;
    Notices &all;
    const AmountChain &chain = AmountChainOf(state.shown.kind);
    bool isCompany = state.shown.kind == CreditorKind::Company;
    const AmountTexts &now = state.shown.amounts; ///< as the fields show them
    AmountTexts then = now; ///< as they will be once the focused field is left

    void tell()
    {
        if (state.typedAllocation.isOpen)
            all.worth = WorthLine(state.typedAllocation.typed, TypedNotation::Point);
        for (const AmountField &field : chain.fields) {
            if (isFocused(field))
                lookAhead(field);
        }
        for (const AmountField &field : chain.fields)
            tellTyped(field);
        tellShare(AliquotaIva, Importo, ImportoIva,
                  isCompany ? u"ripassare l'aliquota"_s : u"riscriverla"_s);
        tellOverwrittenAmounts();
        tellTotal(TotaleFattura, then.dueTotal(),
                  isCompany ? u"si confronta ma non si salva, Importo e IVA fanno %1"_s
                            : u"è rimasto indietro, ora è %1: passare dall'aliquota IVA"_s);
        if (!isCompany) {
            tellShare(AliquotaRA, SoggettaRA, ImportoRA, u"azzerarla e ripassare l'aliquota"_s);
            tellTotal(Netto, DueNet(then),
                      u"è rimasto indietro, ora è %1: passare dall'aliquota R.A."_s);
        }
        compareTotals();
    }

    bool isFocused(const AmountField &field) const { return field.objectName == state.focus; }

    void add(NoticeWeight weight, Amount field, const QString &text)
    {
        all.tell(weight, chain.at(field).objectName, chain.nameOf(field) + u": "_s + text);
    }

    /** What leaving the field will make of the amounts. */
    void lookAhead(const AmountField &field)
    {
        all.worth = WorthLine(now.text(field.amount), NotationOf(field));
        chain.leave(then, field.amount);
        if (field.amount == TotaleFattura && isCompany)
            all.worth = u"Ciò che si scrive qui si confronta così com'è, e non si salva"_s;
        else if (field.amount == TotaleFattura || field.amount == Netto)
            all.worth = u"Ciò che si scrive qui va perso: uscendo dal campo torna %1"_s.arg(
                then.text(field.amount));
    }

    /** Tells of a text that is read otherwise than it looks, while it is typed and afterwards. */
    void tellTyped(const AmountField &field)
    {
        if (field.amount == TotaleFattura || field.amount == Netto)
            return;
        const AmountPast past = state.past.value(field.amount);
        const TypedNotation notation = NotationOf(field);
        QString plain = past.before;
        if (notation == TypedNotation::Rate && !past.isRewritten &&
            LeadingNumber(PuntoDecimale(plain)) != LeadingNumber(past.before)) {
            add(Danger, field.amount,
                u"era %1, entrando nel campo è diventata %2. Scrivere %1"_s.arg(past.before,
                                                                                plain));
            return;
        }
        const QString shown = now.text(field.amount);
        const bool isAsTyped = isFocused(field) || notation == TypedNotation::Comma;
        const QString typed = isAsTyped ? shown : past.left;
        const QString misread = MisreadLine(typed, notation);
        if (!misread.isEmpty() && (isAsTyped || TypedWorth(typed, notation) == shown))
            add(Danger, field.amount, misread);
    }

    void tellShare(Amount rate, Amount base, Amount share, const QString &wayOut)
    {
        const QString due = FormatImporto(then.share(base, rate));
        const QString held = FormatImporto(then.amount(share));
        if (held != due)
            add(Caution, share,
                u"%1 non torna, il %2% di %3 è %4: %5"_s.arg(
                    held, TypedWorth(then.text(rate), TypedNotation::Rate),
                    FormatImporto(then.amount(base)), due, wayOut));
    }

    /** Tells that leaving the focused field will replace an amount that was typed by hand or
     *  imported by the computed one. */
    void tellOverwritten(Amount held, Amount focused, Currency (*computed)(const AmountTexts &))
    {
        if (!isFocused(chain.at(focused)))
            return;
        AmountTexts before = now;
        before.setText(focused, state.past.value(focused).before);
        const QString text = now.text(held);
        const QString next = then.text(held);
        if (text.isEmpty() || isWorth(text, next) || isWorth(text, FormatImporto(computed(before))))
            return;
        // The VAT may still be that of the taxable amount before its correction.
        const QString base = state.past.value(Importo).before;
        before.setText(Importo, base);
        if (base.isEmpty() || !isWorth(text, FormatImporto(computed(before))))
            add(Danger, held,
                u"uscendo dal campo attivo %1 diventa %2, da riscrivere poi"_s.arg(text, next));
    }

    void tellOverwrittenAmounts()
    {
        if (isCompany)
            return tellOverwritten(ImportoIva, AliquotaIva, [](const AmountTexts &texts) {
                return texts.share(Importo, AliquotaIva);
            });
        for (const Amount fee : {Prestazione, Contributo, CassaPrev}) {
            tellOverwritten(Importo, fee, DueVatBase);
            tellOverwritten(SoggettaRA, fee, DueWithholdingBase);
        }
    }

    void tellTotal(Amount total, Currency due, const QString &text)
    {
        const QString held = then.text(total);
        if (!held.isEmpty() && !isWorth(held, FormatImporto(due)))
            add(Caution, total, held + u' ' + text.arg(FormatImporto(due)));
    }

    void compareTotals()
    {
        const QString invoice = then.text(TotaleFattura);
        const QString &allocated = state.allocationTotal;
        if (invoice.isEmpty() || invoice == allocated)
            return;
        if (isWorth(invoice, allocated)) {
            add(Caution, TotaleFattura,
                u"è scritto %1 e non %2, «Conferma» lo dirà diverso: passare da Importo"_s.arg(
                    invoice, allocated));
            return;
        }
        const Currency missing = then.amount(TotaleFattura) - ImportoDaTesto(QString(allocated));
        all.tell(Remark, u"Text3"_s,
                 u"Totale Conti %1, Totale Fattura %2: restano da ripartire %3"_s.arg(
                     allocated, invoice, FormatImporto(missing)));
    }
};

} // namespace

void TellAmounts(const InvoiceState &state, Notices &all)
{
    AmountNotices{state, all}.tell();
}

} // namespace saldoro
