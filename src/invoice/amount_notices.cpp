#include "common/amount_text.h"
#include "common/number_text.h"
#include "invoice/invoice_notices.h"
#include "invoice/typed_worth.h"

namespace saldoro {

using namespace Qt::StringLiterals;
using enum Amount;
using enum NoticeWeight;

namespace {

/** Whether a text, in display form or in plain form, means the amount of display form @p shown. */
bool isWorth(const QString &text, const QString &shown)
{
    return TypedWorth(text, text.contains(u',') ? Notation::Comma : Notation::Point) == shown;
}

class AmountNotices
{
public:
    AmountNotices(const InvoiceState &state, Notices &all)
        : m_state(state)
        , m_chain(AmountChainOf(state.shown.kind))
        , m_isCompany(state.shown.kind == CreditorKind::Company)
        , m_now(state.shown.amounts)
        , m_then(state.shown.amounts)
        , m_all(all)
    {
    }

    void tell()
    {
        if (m_state.typedAllocation.isOpen)
            m_all.worth = WorthLine(m_state.typedAllocation.typed, Notation::Point);
        for (const AmountField &field : m_chain.fields) {
            if (isFocused(field))
                lookAhead(field);
        }
        for (const AmountField &field : m_chain.fields)
            tellTyped(field);
        tellShare(AliquotaIva, Importo, ImportoIva,
                  m_isCompany ? u"ripassare l'aliquota"_s : u"riscriverla"_s);
        tellOverwrittenVat();
        tellTotal(TotaleFattura, m_then.dueTotal(),
                  m_isCompany ? u"si confronta ma non si salva, Importo e IVA fanno %1"_s
                              : u"è rimasto indietro, ora è %1: passare dall'aliquota IVA"_s);
        if (!m_isCompany) {
            tellShare(AliquotaRA, SoggettaRA, ImportoRA, u"azzerarla e ripassare l'aliquota"_s);
            tellTotal(Netto, m_then.dueNet(),
                      u"è rimasto indietro, ora è %1: passare dall'aliquota R.A."_s);
        }
        compareTotals();
    }

private:
    bool isFocused(const AmountField &field) const { return field.objectName == m_state.focus; }

    void add(NoticeWeight weight, Amount field, const QString &text)
    {
        m_all.tell(weight, m_chain.at(field).objectName, m_chain.nameOf(field) + u": "_s + text);
    }

    /** What leaving the field will make of the amounts. */
    void lookAhead(const AmountField &field)
    {
        m_all.worth = WorthLine(m_now.text(field.amount), NotationOf(field));
        m_chain.leave(m_then, field.amount);
        if (field.amount == TotaleFattura && m_isCompany)
            m_all.worth = u"Ciò che si scrive qui si confronta così com'è, e non si salva"_s;
        else if (field.amount == TotaleFattura || field.amount == Netto)
            m_all.worth = u"Ciò che si scrive qui va perso: uscendo dal campo torna %1"_s.arg(
                m_then.text(field.amount));
    }

    /** Tells of a text that is read otherwise than it looks, while it is typed and afterwards. */
    void tellTyped(const AmountField &field)
    {
        if (field.amount == TotaleFattura || field.amount == Netto)
            return;
        const AmountPast past = m_state.past.value(field.amount);
        const Notation notation = NotationOf(field);
        QString plain = past.before;
        if (notation == Notation::Rate && !past.isRewritten &&
            LeadingNumber(PuntoDecimale(plain)) != LeadingNumber(past.before)) {
            add(Danger, field.amount,
                u"era %1, entrando nel campo è diventata %2. Scrivere %1"_s.arg(past.before,
                                                                                plain));
            return;
        }
        const QString shown = m_now.text(field.amount);
        const bool isAsTyped = isFocused(field) || notation == Notation::Comma;
        const QString typed = isAsTyped ? shown : past.left;
        const QString misread = MisreadLine(typed, notation);
        if (!misread.isEmpty() && (isAsTyped || TypedWorth(typed, notation) == shown))
            add(Danger, field.amount, misread);
    }

    void tellShare(Amount rate, Amount base, Amount share, const QString &wayOut)
    {
        const QString due = FormatImporto(m_then.share(base, rate));
        const QString held = FormatImporto(m_then.amount(share));
        if (held != due)
            add(Caution, share,
                u"%1 non torna, il %2% di %3 è %4: %5"_s.arg(
                    held, RateText(LeadingNumber(m_then.text(rate))),
                    FormatImporto(m_then.amount(base)), due, wayOut));
    }

    /** Tells that VAT typed by hand is about to give way to the computed one. */
    void tellOverwrittenVat()
    {
        if (!m_isCompany || !isFocused(m_chain.at(AliquotaIva)))
            return;
        AmountTexts before = m_now;
        before.setText(AliquotaIva, m_state.past.value(AliquotaIva).before);
        const QString vat = m_now.text(ImportoIva);
        const QString then = m_then.text(ImportoIva);
        if (!vat.isEmpty() && vat != then &&
            vat != FormatImporto(before.share(Importo, AliquotaIva)))
            add(Caution, ImportoIva,
                u"uscendo dall'aliquota %1 diventa %2, da riscrivere poi"_s.arg(vat, then));
    }

    void tellTotal(Amount total, Currency due, const QString &text)
    {
        const QString held = m_then.text(total);
        if (!held.isEmpty() && !isWorth(held, FormatImporto(due)))
            add(Caution, total, held + u' ' + text.arg(FormatImporto(due)));
    }

    void compareTotals()
    {
        const QString invoice = m_then.text(TotaleFattura);
        const QString &allocated = m_state.allocationTotal;
        if (invoice.isEmpty() || invoice == allocated)
            return;
        if (isWorth(invoice, allocated)) {
            add(Caution, TotaleFattura,
                u"è scritto %1 e non %2, «Conferma» lo dirà diverso: passare da Importo"_s.arg(
                    invoice, allocated));
            return;
        }
        const Currency missing = m_then.amount(TotaleFattura) - ImportoDaTesto(QString(allocated));
        m_all.tell(Remark, u"Text3"_s,
                   u"Totale Conti %1, Totale Fattura %2: restano da ripartire %3"_s.arg(
                       allocated, invoice, FormatImporto(missing)));
    }

    const InvoiceState &m_state;
    const AmountChain &m_chain;
    bool m_isCompany;
    const AmountTexts &m_now; ///< as the fields show them
    AmountTexts m_then;       ///< as they will be once the focused field is left
    Notices &m_all;
};

} // namespace

void TellAmounts(const InvoiceState &state, Notices &all)
{
    AmountNotices(state, all).tell();
}

} // namespace saldoro
