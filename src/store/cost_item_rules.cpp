#include "store/cost_item_rules.h"

#include "common/text_cut.h"
#include "database/text_order.h"

#include <set>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QStringList missingFaults(const QString &what)
{
    return {u"manca "_s + what +
            u": il quadro di disponibilità si ferma a questa riga e la schermata principale non si "
            "apre."_s};
}

/** A pick takes the first characters of a line, without the blanks at their edges. */
QStringList spellingFaults(const QString &code)
{
    QStringList faults;
    if (code.contains(u'\''))
        faults.append(u"il codice contiene un apostrofo: la ricerca dei pagamenti della voce non "
                      "riesce e la schermata principale si ferma."_s);
    if (code != code.trimmed() || code.isEmpty())
        faults.append(u"il codice è vuoto o ha spazi all'inizio o alla fine: la voce inserita in "
                      "un pagamento riceve un codice diverso."_s);
    if (CharacterCount(code.trimmed()) > PickedCodeWidth)
        faults.append(
            u"il codice ha più di cinque caratteri: inserita in un pagamento, la voce riceve il "
            "codice «"_s +
            LeftCharacters(code.trimmed(), PickedCodeWidth).trimmed() +
            u"» e l'importo non la raggiunge."_s);
    return faults;
}

QString twinFault(const QString &first)
{
    return u"il codice è uguale, o diverso solo per le maiuscole, a quello di un'altra voce («"_s +
           first + u"»): ogni pagamento conta in tutte e due le voci."_s;
}

} // namespace

bool CodeOrder::operator()(const QString &left, const QString &right) const
{
    return CompareText(left.toUtf8(), right.toUtf8()) < 0;
}

QList<CostItemFault> CostItemFaults(const QList<CostItem> &items)
{
    QList<CostItemFault> faults;
    std::set<QString, CodeOrder> known;
    for (qsizetype place = 0; place < items.size(); ++place) {
        const auto add = [&](const QString &field, const QStringList &problems) {
            for (const QString &problem : problems)
                faults.append({place, field, problem});
        };
        const auto &[code, description] = items[place];
        add(u"Voce"_s, code ? spellingFaults(*code) : missingFaults(u"il codice (Voce)"_s));
        if (code) {
            if (const auto [first, isNew] = known.insert(*code); !isNew)
                add(u"Voce"_s, {twinFault(*first)});
        }
        if (!description)
            add(u"Descri"_s, missingFaults(u"la descrizione (Descri)"_s));
    }
    return faults;
}

} // namespace saldoro
