#include "invoice/invoice_notices.h"

#include "common/amount_text.h"
#include "common/errors.h"
#include "common/overview_column.h"
#include "database/text_order.h"
#include "invoice/amount_notices.h"
#include "invoice/typed_worth.h"
#include "store/mandate_note.h"

namespace saldoro {

using namespace Qt::StringLiterals;
using enum NoticeWeight;

namespace {

/** What there is to tell of the payment's number; empty for nothing. */
QString numberText(const InvoiceState &state)
{
    const std::optional<QString> &stored = state.shown.storedKind;
    if (stored && !state.isListed)
        return u"è stato eliminato. «Conferma» lo rimette, «Annulla» no"_s;
    if (stored && !AreEqualTexts(*stored, KindCode(state.shown.kind))) // as the save finds it
        return u"c'è già, e dell'altro tipo: «Conferma» ne farebbe due con lo stesso numero"_s;
    if (stored && state.isMeantNew)
        return u"c'è già e «Conferma» lo riscrive. «Annulla» lo lascia com'è"_s;
    if (!stored && state.isListed)
        return u"nel frattempo è stato registrato: «Annulla», poi «Nuovo»"_s;
    if (!stored && !state.isMeantNew)
        return u"non c'è. «Conferma» ne aggiunge uno nuovo"_s;
    return {};
}

/** A date as it stands and as it was left, see DateBox::leftWith(). */
void tellDate(const QString &shown, const QString &left, const QString &field, Notices &all)
{
    const QDate day = DayInBox(shown);
    const QString typed = (left.isEmpty() ? shown : left).section(u'_', 0, 0);
    if (shown != EmptyDateText && !day.isValid() && (!left.isEmpty() || !shown.contains(u'_')))
        all.tell(
            Danger, field,
            u"«%1» non è una data: finché resta non si esce dal campo. Svuotarlo"_s.arg(shown));
    if (day.isValid() && day.year() < 2000 && typed.size() < EmptyDateText.size())
        all.tell(Caution, field,
                 u"«%1» vale %2. Scrivere l'anno intero"_s.arg(typed, FormatData(day)));
    // Such a year comes from a digit too many, or of two that changed places.
    else if (day.isValid() && (day.year() < 1900 || day.year() > 2099))
        all.tell(Caution, field, u"L'anno è il %1: se è un errore, correggerlo"_s.arg(day.year()));
}

void tellTexts(const InvoiceState &state, Notices &all)
{
    const PaymentRecord &shown = state.shown;
    if (const QString text = numberText(state); !text.isEmpty())
        all.tell(Danger, {}, u"Il pagamento %1 %2"_s.arg(QString::number(shown.number), text));
    if (state.askedNumber != 0 && state.askedNumber != shown.number)
        all.tell(Danger, {},
                 u"È rimasto aperto il pagamento %1, non il %2: chiuderlo e riprovare"_s.arg(
                     QString::number(shown.number), QString::number(state.askedNumber)));
    if (shown.del == EmptyDateText)
        all.tell(
            Danger, state.dateBox,
            u"Senza data, dopo «Conferma», la schermata principale non si apre più: scriverla"_s);
    tellDate(shown.del, state.dateLeft, state.dateBox, all);
    tellDate(shown.mandatoDell, state.mandateDateLeft, u"MandatoDell"_s, all);
    for (const QString &field : state.cutFields)
        all.tell(Caution, field, u"Il testo è tagliato alla lunghezza del campo: abbreviarlo"_s);
    const MandateNote back =
        ParseMandateNote(ComposeMandateNote(shown.mandato, shown.mandatoDell), shown.kind);
    if (back.mandato != shown.mandato.trimmed())
        all.tell(Danger, u"Mandato"_s,
                 u"Per via di «del» si riaprirà come «%1», senza la data: toglierlo"_s.arg(
                     back.mandato));
    if (state.offersNone)
        all.tell(Caution, u"List2"_s, u"Nessun nome da scegliere; Esc per tornare"_s);
    if (shown.storedKind)
        return;
    if (!shown.memo.isEmpty() && shown.memo == state.note)
        all.tell(Remark, u"Memo"_s,
                 u"Le note sono dell'ultimo pagamento: riscriverle o svuotarle"_s);
    const bool isAtCreditor = state.focus == u"Text1_0" || state.focus == u"Command5";
    if (isAtCreditor && !shown.creditore.isEmpty() && shown.creditore == state.contractor)
        all.tell(Remark, u"Text1_0"_s,
                 u"«Ricerca» elenca chi inizia come il creditore proposto; svuotandolo, tutti"_s);
}

/** What is left of an item for this payment. What the payment itself has stored on it counts as
 *  left. */
Currency available(const InvoiceState &state, const QString &code, int overviewRow)
{
    QString left = state.overview->text(overviewRow, OverviewColumn::Disponibilita);
    if (left.isEmpty()) // nothing is allocated yet
        left = state.overview->text(overviewRow, OverviewColumn::Spesa);
    Currency all = ImportoDaTesto(left);
    for (QString stored : state.storedAllocations.values(code))
        all += ImportoDaTesto(stored);
    return all;
}

void tellAllocations(const InvoiceState &state, Notices &all)
{
    const auto keyOf = [](const QString &code) { return ComparableText(code.trimmed().toUtf8()); };
    QHash<QByteArray, int> items;
    QSet<QByteArray> seen;
    for (int row = state.overview->rows() - 1; row > 0; --row)
        items[keyOf(state.overview->text(row, OverviewColumn::Cod))] = row;
    const TypedAllocation &last = state.typedAllocation;
    const QString worth = TypedWorth(last.typed, TypedNotation::Point);
    const QString misread = MisreadLine(last.typed, TypedNotation::Point);
    const QString field = last.isOpen ? u"edtTxt"_s : u"MSFlexGrid1"_s;
    for (int row = 1; row < state.allocations->rows(); ++row) {
        const QString code = state.allocations->text(row, AllocationColumn::Cod);
        QString amount = state.allocations->text(row, AllocationColumn::Importo);
        if (code.isEmpty()) // while an item is chosen for it
            continue;
        if (code == last.code && (last.isOpen || amount == worth)) {
            amount = worth;
            if (!misread.isEmpty())
                all.tell(
                    Danger, field,
                    u"Voce %1: %2%3"_s.arg(code, misread, last.isOpen ? u" (o Esc)"_s : u""_s));
        }
        const QByteArray stored = ComparableText(code.toUtf8()); // by which saving finds it
        if (seen.contains(stored))
            all.tell(Danger, field,
                     u"Voce %1: c'è due volte, «Conferma» ne salva una sola: unirle"_s.arg(code));
        seen.insert(stored);
        const int item = items.value(keyOf(code));
        const Currency left = item > 0 ? available(state, code, item) : Currency();
        const Currency beyond = ImportoDaTesto(QString(amount)) - left;
        if (item == 0)
            all.tell(Caution, field, u"Voce %1: il quadro di disponibilità non l'ha"_s.arg(code));
        else if (beyond > Currency())
            all.tell(Caution, field,
                     u"Voce %1: %2 supera di %3 ciò che resta, %4"_s.arg(
                         code, amount, FormatImporto(beyond), FormatImporto(left)));
    }
}

} // namespace

Notices InvoiceNotices(const InvoiceState &state)
{
    Notices all;
    tellTexts(state, all);
    try {
        TellAmounts(state, all);
        tellAllocations(state, all);
    } catch (const OverflowError &) {
        all.tell(Danger, state.focus,
                 u"Un importo è troppo grande: uscendo dal campo il programma si ferma"_s);
    }
    return all;
}

} // namespace saldoro
