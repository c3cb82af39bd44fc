#include "verify/payment_checks.h"

#include "common/characters.h"
#include "common/creditor_kind.h"
#include "common/message_lines.h"
#include "store/payment_numbers.h"
#include "store/table_definitions.h"

#include <algorithm>
#include <iterator>
#include <map>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** What a value should be that is given as text since it is not of its kind; else empty. */
QString expectedInstead(FieldType type, const NewValue &value)
{
    const auto *text = std::get_if<QString>(&value);
    if (text == nullptr || (type == FieldType::Date && text->isEmpty()))
        return {};
    return type == FieldType::Date                                 ? u"una data"_s
           : type == FieldType::Currency                           ? u"un importo esatto"_s
           : type == FieldType::Long || type == FieldType::Integer ? u"un numero intero"_s
                                                                   : QString();
}

/** Fields of a payment that the program reads without a substitute for a null. */
struct NeededFields
{
    QStringList fields;
    bool professionalsOnly;
    QString consequence;
};

const QList<NeededFields> &neededFields()
{
    static const QList<NeededFields> needs{
        {NeededPaymentFields(), false,
         u"la schermata principale si ferma a questa riga e non si apre."_s},
        {{u"AziProf"_s},
         false,
         u"«Modifica» su questo pagamento fa terminare il programma e i documenti di chiusura lo "
         "tralasciano."_s},
        {u"ImportoPrest Contributo CassaPrev ImportoRA"_s.split(u' '), true,
         StopsClosing.toString()}};
    return needs;
}

/** How the clerk can give a payment the value that it lacks. */
QString remedyOfNull(const CheckedRow &payment, const QString &field)
{
    if (!payment.number || field == "Creditore"_L1 || field == "AziProf"_L1)
        return InTheArchive.toString();
    if (SettablePaymentFields().contains(field))
        return u"impostarlo con saldoro-archivio imposta CARTELLA %1 %2 %3"_s.arg(
            QString::number(*payment.number), field,
            field == "Del"_L1 ? u"gg/mm/aaaa"_s : u"1.234,56"_s);
    return u"aprire il pagamento e confermarlo: i campi vuoti diventano zero."_s;
}

/** "Riga 3", "Righe da 3 a 5". */
QString span(const QString &one, const QString &several, int first, int last)
{
    return first == last ? one + u' ' + QString::number(first)
                         : several + u" da %1 a %2"_s.arg(first).arg(last);
}

bool isInPlace(const CheckedRow &payment)
{
    return !payment.number || *payment.number == NumberOfListRow(payment.row);
}

/** Rows of tables whose rows have no names are told by their number. */
QString nameOfRow(const CheckedProject &project, const ProjectTable &table, qsizetype place)
{
    for (const auto *rows : {&project.payments, &project.allocations, &project.budget}) {
        if (rows->isEmpty() || rows->first().table != &table)
            continue;
        return std::ranges::find(*rows, place, &CheckedRow::place)->name();
    }
    return u"Riga %1"_s.arg(place + 1);
}

} // namespace

void CheckValues(const CheckedProject &project, Findings &findings)
{
    for (const auto &[name, table] : project.tables) {
        for (qsizetype at = 0; at < table.definition.fields().size(); ++at) {
            const FieldDef &field = table.definition.fields()[at];
            for (qsizetype place = 0; !IsText(field) && place < table.rows.size(); ++place) {
                const NewValue &value = table.rows[place][at];
                const QString expected = expectedInstead(field.type, value);
                if (!expected.isEmpty())
                    findings.append(
                        {FindingGroup::Values,
                         u"%1, %2.%3"_s.arg(nameOfRow(project, table, place), name, field.name),
                         u"il valore «%1» non è %2: il programma si ferma quando lo "
                         "legge, o ne legge un altro."_s.arg(
                             LeftCharacters(TextOf(value), MostCharactersQuoted), expected),
                         InTheArchive.toString(), name, place});
            }
        }
    }
}

void CheckPayments(const CheckedProject &project, Findings &findings)
{
    for (const CheckedRow &payment : project.payments) {
        const auto add = [&](const QString &problem, QStringView remedy) {
            findings.append(FindingAt(payment, FindingGroup::Payments, problem, remedy));
        };
        if (payment.isBeyondRange)
            add(u"la somma degli importi supera il massimo che il programma può tenere: la "
                "schermata principale si ferma a questa riga."_s,
                InTheArchive);
        for (const NeededFields &need : neededFields()) {
            if (need.professionalsOnly && payment.code != KindCode(CreditorKind::Professional))
                continue;
            for (const QString &field : need.fields) {
                if (payment.isNull(field))
                    add(u"manca il valore di %1: "_s.arg(field) + need.consequence,
                        remedyOfNull(payment, field));
            }
        }
        if (payment.code && !KindOfCode(*payment.code))
            add(u"il tipo di creditore (AziProf) è «%1» e non A (azienda) o P (professionista): "
                "«Modifica» non apre il pagamento e i documenti di chiusura lo tralasciano o lo "
                "contano fra gli altri."_s.arg(*payment.code),
                InTheArchive);
    }
}

void CheckNumbering(const CheckedProject &project, Findings &findings)
{
    const QList<CheckedRow> &payments = project.payments;
    const auto add = [&](const CheckedRow &payment, const QString &place, const QString &problem) {
        findings.append(FindingAt(payment, FindingGroup::Numbering, problem,
                                  u"confrontare il numero della riga con la colonna Nr prima di "
                                  "modificare o eliminare, e far rimettere in ordine i numeri "
                                  "dall'assistenza."_s));
        findings.last().place = place;
    };
    std::map<qint32, QList<const CheckedRow *>> byNumber;
    for (const CheckedRow &payment : payments) {
        if (payment.number)
            byNumber[*payment.number].append(&payment);
    }
    for (const auto &[number, its] : byNumber) {
        if (its.size() > 1)
            add(*its.last(), u"Pagamento %1"_s.arg(number),
                u"il numero è usato da %1 pagamenti (dalla riga %2): ad aprirlo si apre sempre il "
                "primo, ad eliminarlo si tolgono tutti, e i conti di spesa sono in comune."_s
                    .arg(its.size())
                    .arg(its.first()->row));
    }
    // Runs of rows of the list that stand for other numbers than those of their payments.
    for (auto end = payments.begin();;) {
        const auto first = std::find_if_not(end, payments.end(), isInPlace);
        if (first == payments.end())
            break;
        end = std::find_if(first, payments.end(), isInPlace);
        const CheckedRow &last = *std::prev(end);
        add(*first, span(u"Riga"_s, u"Righe"_s, first->row, last.row),
            u"qui l'elenco mostra %1, ma «Modifica» ed «Elimina» prendono come numero quello della "
            "riga: lavorano su un altro pagamento o su nessuno."_s.arg(
                span(u"il pagamento"_s, u"i pagamenti"_s, *first->number, *last.number)));
    }
    const auto taken = byNumber.find(NextPaymentNumber(payments.size()));
    if (taken != byNumber.end())
        add(*taken->second.first(), taken->second.first()->name(),
            u"«Nuovo» userà il numero %1, che è di questo pagamento: se il tipo di creditore è lo "
            "stesso il pagamento viene aperto e riscritto, altrimenti il numero diventa doppio."_s
                .arg(taken->first));
}

} // namespace saldoro
