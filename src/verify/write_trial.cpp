#include "verify/write_trial.h"

#include "common/creditor_kind.h"
#include "store/table_definitions.h"

#include <QMap>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** The kinds of records that are written into a table, each by the fields that it leaves to the
 *  file. */
QList<QStringList> recordsOf(const QString &table)
{
    static const QMap<QString, QList<QStringList>> fieldsLeft{
        {u"Fatture"_s,
         {{u"AliquotaRA"_s, u"ImportoPrest"_s, u"Contributo"_s, u"CassaPrev"_s, u"ImportoRA"_s,
           u"AltriImporti01"_s},
          {}}},
        {u"Spese"_s, {{}, {}}},
        {u"SchedaProgetto"_s,
         {{u"Importo"_s, u"NomeFile"_s, u"Link"_s},
          {u"Stringa"_s, u"Importo"_s, u"Link"_s},
          {u"NomeFile"_s, u"Link"_s}}}};
    return fieldsLeft.value(table);
}

/** A likely value; what payments, items and allocations have in common is the same in all. */
NewValue trialValue(const FieldDef &field, qint32 number, qint32 trial)
{
    if (field.name == "AziProf"_L1)
        return KindCode(trial == 0 ? CreditorKind::Company : CreditorKind::Professional);
    if (field.name == "Npag"_L1)
        return number + trial;
    if (field.name == "Cod"_L1 || field.name == "Voce"_L1)
        return u"X_%1"_s.arg(trial);
    if (field.type == FieldType::Currency)
        return Currency::fromScaled(Currency::Scale);
    if (field.type == FieldType::Date)
        return QDate(2024, 1, 31);
    return IsText(field) ? NewValue(u"1"_s) : number;
}

} // namespace

bool IsWrittenBySaldoro(const QString &table)
{
    return !recordsOf(table).isEmpty();
}

void TryWriting(const Database &copy, ArchiveFile file)
{
    for (const TableDef &table : TablesOf(file)) {
        const QList<QStringList> kinds = recordsOf(table.name());
        RecordSet records = copy.openRecordSet(u"SELECT * FROM "_s + table.name());
        const qint32 number = records.recordCount() + 1;
        for (qint32 trial = 0; trial < kinds.size(); ++trial) {
            records.addNew();
            for (const FieldDef &field : table.fields()) {
                if (!kinds[trial].contains(field.name))
                    records.set(field.name, trialValue(field, number, trial));
            }
            records.update();
        }
    }
}

} // namespace saldoro
