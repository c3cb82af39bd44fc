#include "store/needed_values.h"

#include "common/creditor_kind.h"

#include <QStringList>

#include <array>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Fields of a table that the program reads without a substitute for a null. */
struct NeededValues
{
    QStringView table;
    QString fields;
    bool professionalsOnly;
    QString consequence;
};

const std::array<NeededValues, 5> &neededValues()
{
    static const std::array<NeededValues, 5> needs{
        {{u"Fatture", u"Npag Creditore Del Importo ImportoIVA"_s, false,
          u"la schermata principale si ferma a questa riga e non si apre."_s},
         {u"Fatture", u"AziProf"_s, false,
          u"«Modifica» su questo pagamento fa terminare il programma con un errore e i documenti "
          "di chiusura lo tralasciano."_s},
         {u"Fatture", u"ImportoPrest Contributo CassaPrev ImportoRA"_s, true,
          u"la chiusura della schermata principale si ferma senza completare i documenti."_s},
         {u"Spese", u"Importo"_s, false,
          u"il quadro di disponibilità si ferma a questa voce e la schermata principale non si "
          "apre."_s},
         {u"Funzioni", u"CodExt Desc"_s, false,
          u"il programma si ferma quando cerca il codice."_s}}};
    return needs;
}

} // namespace

QString ConsequenceOfNull(const QString &table, const QString &field, const QString &kind)
{
    const bool isProfessional = kind == KindCode(CreditorKind::Professional);
    for (const NeededValues &need : neededValues()) {
        if (need.table == table && need.fields.split(u' ').contains(field) &&
            (isProfessional || !need.professionalsOnly))
            return need.consequence;
    }
    return {};
}

} // namespace saldoro
