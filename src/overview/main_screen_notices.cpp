#include "overview/main_screen_notices.h"

#include "common/overview_column.h"
#include "overview/payments_list.h"

namespace saldoro {

using namespace Qt::StringLiterals;
using enum NoticeWeight;

namespace {

void tellNumbers(const TextTable &payments, QList<Notice> &list)
{
    const int current = payments.row();
    const int next = payments.rows();
    bool areRows = true;
    int ofRow = 0;   // payments whose number is the current row
    int nextRow = 0; // the row of the payment that has the next number already
    for (int row = 1; row < next; ++row) {
        const int number = payments.text(row, PaymentColumn::Nr).toInt();
        areRows = areRows && number == row;
        ofRow += number == current ? 1 : 0;
        nextRow = number == next ? row : nextRow;
    }
    if (areRows)
        return;
    const QString field = u"MSFlexGrid1"_s;
    const QString number = payments.text(current, PaymentColumn::Nr);
    if (current > 0 && number != QString::number(current))
        list += {Danger,
                 u"La riga è del pagamento %1, «Modifica» ed «Elimina» prendono il %2%3"_s.arg(
                     number, QString::number(current), ofRow > 0 ? QString() : u", che non c'è"_s),
                 field};
    if (ofRow > 1)
        list += {Danger,
                 u"Il numero %1 è di %2 pagamenti: «Modifica» apre il primo, «Elimina» li "
                 "toglie tutti"_s.arg(current)
                     .arg(ofRow),
                 field};
    if (nextRow > 0)
        list +=
            {Danger,
             u"«Nuovo» prenderà il numero %1, che è già di «%2», e ne aprirebbe i dati"_s.arg(next)
                 .arg(payments.text(nextRow, PaymentColumn::Creditore)),
             field};
    else
        list += {Remark,
                 u"I numeri non seguono le righe; «Nuovo» prenderà il %1, che è libero"_s.arg(next),
                 field};
}

void tellOverdrawn(const TextTable &overview, QList<Notice> &list)
{
    QStringList items;
    for (int row = 1; row < overview.rows(); ++row) {
        const QString left = overview.text(row, OverviewColumn::Disponibilita);
        if (left.startsWith(u'-'))
            items += u"%1 (%2)"_s.arg(overview.text(row, OverviewColumn::Cod), left);
    }
    constexpr qsizetype most = 4;
    if (!items.isEmpty())
        list +=
            {Caution,
             u"Pagato più del previsto: "_s + items.mid(0, most).join(u", "_s) +
                 (items.size() > most ? u" e altre %1 voci"_s.arg(items.size() - most) : QString()),
             u"MSFlexGrid2"_s};
}

} // namespace

QList<Notice> MainScreenNotices(const TextTable &payments, const TextTable &overview,
                                bool isOpenElsewhere)
{
    QList<Notice> list;
    if (isOpenElsewhere)
        list += {Danger, u"Il progetto è aperto anche in un'altra finestra di Saldoro: lavorare in "
                         "una sola"_s};
    tellNumbers(payments, list);
    tellOverdrawn(overview, list);
    return list;
}

} // namespace saldoro
