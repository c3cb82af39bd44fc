#include "invoice/amount_notices.h"

#include "common/amount_text.h"
#include "common/number_text.h"
#include "invoice/typed_worth.h"

namespace saldoro {

using namespace Qt::StringLiterals;
using enum Amount;
using enum NoticeWeight;

namespace {

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
        for (const AmountField &field : m_chain.fields) {
            if (field.objectName == state.focus)
                m_focused = &field;
        }
    }

    void tell()
    {
        if (m_state.typedAllocation.isOpen)
            m_all.worth = WorthLine(m_state.typedAllocation.typed, Notation::Point);
        if (m_focused) {
            m_all.worth = WorthLine(m_now.text(m_focused->amount), NotationOf(*m_focused));
            m_chain.leave(m_then, m_focused->amount);
            tellOfTotal(m_focused->amount);
        }
        for (const AmountField &field : m_chain.fields)
            tellTyped(field);
        tellShare(AliquotaIva, Importo, ImportoIva,
                  m_isCompany ? u"ripassare l'aliquota"_s : u"riscriverla"_s);
        tellOverwrittenVat();
        tellTotal(TotaleFattura,
                  m_then.amount(Importo) + m_then.amount(ImportoIva) + m_then.amount(AltriImporti),
                  m_isCompany ? u"si confronta ma non si salva, Importo e IVA fanno %1"_s
                              : u"è rimasto indietro, ora è %1: passare dall'aliquota IVA"_s);
        if (!m_isCompany) {
            tellShare(AliquotaRA, SoggettaRA, ImportoRA, u"azzerarla e ripassare l'aliquota"_s);
            tellTotal(Netto, m_then.amount(TotaleFattura) - m_then.amount(ImportoRA),
                      u"è rimasto indietro, ora è %1: passare dall'aliquota R.A."_s);
        }
        compareTotals();
    }

private:
    void add(NoticeWeight weight, Amount field, const QString &text)
    {
        m_all.tell(weight, m_chain.at(field).objectName, m_chain.nameOf(field) + u": "_s + text);
    }

    /** While a field is left that does not keep what is typed, or keeps it for nothing. */
    void tellOfTotal(Amount field)
    {
        if (field == TotaleFattura && m_isCompany)
            m_all.worth = u"Ciò che si scrive qui si confronta così com'è, e non si salva"_s;
        else if (field == TotaleFattura || field == Netto)
            m_all.worth = u"Ciò che si scrive qui va perso: uscendo dal campo torna %1"_s.arg(
                m_then.text(field));
    }

    /** A text that is read otherwise than it looks, while it is typed and after it. */
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
        const bool isAsTyped = &field == m_focused || notation == Notation::Comma;
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

    /** VAT that was typed by hand gives way to the computed one. */
    void tellOverwrittenVat()
    {
        AmountTexts before = m_now;
        before.setText(AliquotaIva, m_state.past.value(AliquotaIva).before);
        const QString vat = m_now.text(ImportoIva);
        const QString then = m_then.text(ImportoIva);
        if (m_isCompany && m_focused && m_focused->amount == AliquotaIva && !vat.isEmpty() &&
            vat != then && vat != FormatImporto(before.share(Importo, AliquotaIva)))
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
        const QString allocated = m_state.allocationTotal;
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

    /** Whether a text, in display form or in plain form, means the amount that is shown so. */
    static bool isWorth(const QString &text, const QString &shown)
    {
        return TypedWorth(text, text.contains(u',') ? Notation::Comma : Notation::Point) == shown;
    }

    const InvoiceState &m_state;
    const AmountChain &m_chain;
    const AmountField *m_focused = nullptr;
    bool m_isCompany;
    AmountTexts m_now;  ///< as they stand
    AmountTexts m_then; ///< as they will once the focus goes on
    Notices &m_all;
};

} // namespace

void TellAmounts(const InvoiceState &state, Notices &all)
{
    AmountNotices(state, all).tell();
}

} // namespace saldoro
