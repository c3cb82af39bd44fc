#include "overview/main_screen_notices.h"

#include "common/overview_column.h"
#include "overview/payments_list.h"
#include "store/payment_numbers.h"

namespace saldoro {

using namespace Qt::StringLiterals;
using enum NoticeWeight;

namespace {

void tellNumbers(const TextTable &payments, Notices &all)
{
    const int current = NumberOfListRow(payments.row());
    const int next = NextPaymentNumber(payments.rowCount());
    bool areRows = true;
    int ofRow = 0;   // payments with the number that the current row stands for
    int nextRow = 0; // row of a payment that has the next number already
    for (int row = 1; row < payments.rows(); ++row) {
        const int number = payments.text(row, PaymentColumn::Nr).toInt();
        areRows = areRows && number == NumberOfListRow(row);
        ofRow += number == current ? 1 : 0;
        nextRow = number == next ? row : nextRow;
    }
    if (areRows)
        return;
    const QString field = u"MSFlexGrid1"_s;
    const QString number = payments.text(payments.row(), PaymentColumn::Nr);
    const QString taken = QString::number(current);
    if (current > 0 && number != taken)
        all.tell(Danger, field,
                 u"Riga del pagamento %1: «Modifica» ed «Elimina» prendono il %2%3"_s.arg(
                     number, taken, ofRow > 0 ? u""_s : u", che non c'è"_s));
    if (ofRow > 1)
        all.tell(
            Danger, field,
            u"%1 pagamenti hanno il numero %2: «Elimina» li toglie tutti"_s.arg(ofRow).arg(taken));
    if (nextRow > 0)
        all.tell(Danger, field,
                 u"«Nuovo» prenderà il numero %1, che è già di «%2»"_s.arg(next).arg(
                     payments.text(nextRow, PaymentColumn::Creditore)));
    else
        all.tell(Remark, field, u"«Nuovo» prenderà il numero %1, che è libero"_s.arg(next));
}

void tellOverdrawn(const TextTable &overview, Notices &all)
{
    QStringList items;
    for (int row = 1; row < overview.rows(); ++row) {
        const QString left = overview.text(row, OverviewColumn::Disponibilita);
        if (left.startsWith(u'-'))
            items += u"%1 (%2)"_s.arg(overview.text(row, OverviewColumn::Cod), left);
    }
    constexpr qsizetype most = 5;
    if (items.isEmpty())
        return;
    const QString more =
        items.size() > most ? u" e altre %1 voci"_s.arg(items.size() - most) : QString();
    all.tell(Caution, u"MSFlexGrid2"_s,
             u"Pagato più del previsto: "_s + items.mid(0, most).join(u", "_s) + more);
}

} // namespace

Notices MainScreenNotices(const TextTable &payments, const TextTable &overview,
                          bool isOpenElsewhere)
{
    Notices all;
    if (isOpenElsewhere)
        all.tell(Danger, {}, u"Il progetto è aperto anche in un'altra finestra: usarne una sola"_s);
    tellNumbers(payments, all);
    tellOverdrawn(overview, all);
    return all;
}

} // namespace saldoro
