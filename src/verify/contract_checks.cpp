#include "common/date_text.h"
#include "store/internal_codes.h"
#include "verify/checks.h"

#include <map>

namespace saldoro {

namespace {

using namespace Qt::StringLiterals;

void addContract(const QString &place, const QString &problem, const QString &remedy,
                 Findings &findings)
{
    findings.append({FindingGroup::Contract, place, problem, remedy});
}

/** Whether the note reads as the invoice forms write it, so that they can take it apart again. */
bool isWellFormed(const QString &note)
{
    const QString beginning = u"Mandato nr."_s;
    const QString separator = u" del "_s;
    if (!note.startsWith(beginning))
        return false;
    const qsizetype word = note.indexOf(u"del"_s);
    if (word < 1 || note.mid(word - 1, separator.size()) != separator)
        return false;
    const QString day = note.sliced(word - 1 + separator.size());
    return day == EmptyDateText || DataDaTesto(day).isValid();
}

/** The payment number at the end of a note's key; 0 when there is none as the program writes it. */
qint32 notedPayment(QStringView tail)
{
    const qint32 number = tail.toInt();
    return number > 0 && QString::number(number) == tail ? number : 0;
}

/** @p payments has the numbers of the payments; null when they could not be read. */
void checkNote(const SheetRow &item, qint32 number, const std::map<qint32, int> *payments,
               Findings &findings)
{
    const QString place = u"Mandato "_s + item.code;
    if (number == 0)
        addContract(
            place, u"il codice non finisce con il numero di un pagamento: nessuno lo legge."_s,
            u"eliminare la voce dalla scheda dell'appalto o correggerne il codice."_s, findings);
    else if (payments != nullptr && !payments->contains(number))
        addContract(
            place,
            u"il pagamento %1 non esiste: chi riceverà quel numero troverà questo mandato."_s.arg(
                number),
            u"eliminare la voce dalla scheda dell'appalto."_s, findings);
    if (!isWellFormed(item.text))
        addContract(
            place,
            u"il testo «"_s + item.text +
                u"» non ha la forma «Mandato nr.… del …»: numero e data del mandato si leggono "
                "male."_s,
            u"aprire il pagamento, scrivere numero e data del mandato e confermare."_s, findings);
}

void checkNotes(const ProjectData &data, const QString &external, Findings &findings)
{
    const auto numbers = PaymentCounts(data.payments.value_or(QList<PaymentRow>()));
    const QString beginning = ComparedCode(external + u'_');
    std::map<qint32, QString> known;
    for (const SheetRow &item : *data.sheet) {
        if (!ComparedCode(item.code).startsWith(beginning))
            continue;
        const qint32 number = notedPayment(QStringView(item.code).sliced(external.size() + 1));
        checkNote(item, number, data.payments ? &numbers : nullptr, findings);
        if (number != 0 && !known.try_emplace(number, item.code).second)
            addContract(u"Mandato "_s + item.code, u"compare più volte: vale solo il primo."_s,
                        u"eliminare le voci in più dalla scheda dell'appalto."_s, findings);
    }
}

void checkLink(const SheetRow &item, const ProjectData &data, Findings &findings)
{
    const QString place = u"Appaltatore (voce "_s + item.code + u')';
    const QString remedy = u"scegliere di nuovo l'appaltatore nel programma che tiene la scheda "
                           "dell'appalto."_s;
    if (!item.link.value)
        addContract(
            place,
            u"manca il collegamento (Link) all'anagrafe delle imprese, o non è un numero: le "
            "fatture delle aziende non si aprono."_s,
            remedy, findings);
    else if (*item.link.value <= 0)
        addContract(place,
                    u"non è collegato all'anagrafe delle imprese: «Mandanti» resta disabilitato."_s,
                    remedy, findings);
    else if (data.companies && !data.companies->contains(*item.link.value))
        addContract(
            place,
            u"il collegamento porta all'impresa %1, che non è in anagrafe: «Mandanti» resta "
            "disabilitato."_s.arg(*item.link.value),
            remedy, findings);
}

void checkContractor(const ProjectData &data, const QString &external, Findings &findings)
{
    for (const SheetRow &item : *data.sheet) {
        if (ComparedCode(item.code) == ComparedCode(external)) {
            checkLink(item, data, findings);
            return;
        }
    }
    addContract(
        u"Appaltatore (voce "_s + external + u')',
        u"la voce manca nella scheda dell'appalto: i pagamenti nuovi alle aziende partono senza "
        "creditore e «Mandanti» resta disabilitato."_s,
        u"indicare l'appaltatore nel programma che tiene la scheda dell'appalto."_s, findings);
}

} // namespace

void CheckContract(const ProjectData &data, Findings &findings)
{
    if (!data.sheet)
        return;
    const QString notes =
        ExternalCode(data, InternalCode::MandateNotes.toString()).value_or(QString());
    if (!notes.isEmpty())
        checkNotes(data, notes, findings);
    const QString contractor =
        ExternalCode(data, InternalCode::Contractor.toString()).value_or(QString());
    if (!contractor.isEmpty())
        checkContractor(data, contractor, findings);
}

} // namespace saldoro
