#include "exchange/import_rules.h"

#include "store/internal_codes.h"

#include <QStringBuilder>

#include <set>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Cost items that the invoice forms can offer. */
constexpr qsizetype PickListSize = 201;

QString textOf(const NewValue &value)
{
    const auto *text = std::get_if<QString>(&value);
    return text == nullptr ? QString() : *text;
}

/** As the databases compare codes: without regard to letter case. */
QString compared(QStringView code)
{
    return code.toString().toCaseFolded();
}

/** Fields of a table that need a value, and what becomes of the program without one. */
struct NeededValues
{
    QString table;
    QStringList fields;
    QString consequence;
    /** The rows that it concerns, by their first field; none is all. */
    QString firstField;
};

const QList<NeededValues> &neededValues()
{
    static const QList<NeededValues> needs{
        {u"Fatture"_s,
         {u"Npag"_s, u"Creditore"_s, u"Del"_s, u"Importo"_s, u"ImportoIVA"_s},
         u"la schermata principale non si apre."_s,
         {}},
        {u"Fatture"_s, {u"AziProf"_s}, u"il pagamento non si apre."_s, {}},
        {u"Fatture"_s,
         {u"ImportoPrest"_s, u"Contributo"_s, u"CassaPrev"_s, u"ImportoRA"_s},
         u"la chiusura si ferma senza completare i documenti."_s,
         u"P"_s},
        {u"Spese"_s, {u"Importo"_s}, u"la schermata principale non si apre."_s, {}},
        {u"UltimaPerVariante"_s,
         {u"Voce"_s, u"Descri"_s},
         u"la schermata principale non si apre."_s,
         {}},
        {u"Funzioni"_s, {u"CodExt"_s, u"Desc"_s}, u"chi cerca il codice si ferma."_s, {}}};
    return needs;
}

void refuseNulls(const CsvTable &table, const NeededValues &need, ImportRemarks &remarks)
{
    for (const QString &field : need.fields) {
        const qsizetype place = table.table->place(field);
        for (qsizetype row = 0; row < table.rows.size(); ++row) {
            const QList<NewValue> &values = table.rows[row];
            const bool isConcerned = need.firstField.isEmpty() ||
                                     compared(textOf(values[0])) == compared(need.firstField);
            if (isConcerned && values[place] == NewValue())
                remarks.refusals.append(table.place(row, field) + u"manca il valore: "_s +
                                        need.consequence);
        }
    }
}

/** The rows of the payments list are taken for payment numbers. */
void checkPayments(const CsvTable &table, ImportRemarks &remarks)
{
    std::set<NewValue> numbers;
    const qsizetype count = table.rows.size();
    for (qsizetype row = 0; row < count; ++row) {
        const QString kind = textOf(table.rows[row][table.table->place(u"AziProf"_s)]);
        if (!kind.isEmpty() && kind != "A"_L1 && kind != "P"_L1)
            remarks.errors.append(table.place(row, u"AziProf"_s) + u"«"_s + kind +
                                  u"» non è A (azienda) né P (professionista)."_s);
        numbers.insert(table.rows[row][table.table->place(u"Npag"_s)]);
    }
    if (count > 0 &&
        (static_cast<qsizetype>(numbers.size()) != count || *numbers.begin() != NewValue(1) ||
         *numbers.rbegin() != NewValue(static_cast<qint32>(count))))
        remarks.warnings.append(
            table.file +
            u": i pagamenti non sono numerati da 1 a %1 senza salti né doppioni; "
            "«Modifica» ed «Elimina» prendono per numero la riga dell'elenco."_s.arg(count));
}

void checkCodes(const CsvTable &table, const CodeMap &codes, ImportRemarks &remarks)
{
    for (const UsedCode &used : UsedCodes) {
        if (!codes.contains(compared(used.code)))
            remarks.refusals.append(table.file % u": manca il codice interno "_s % used.code %
                                    u", che il programma cerca."_s);
    }
}

} // namespace

CodeMap CodeMapOf(const TableRows &rows)
{
    CodeMap codes;
    for (const QList<NewValue> &row : rows)
        codes.try_emplace(compared(textOf(row[0])), textOf(row[1]));
    return codes;
}

void CheckRows(const CsvTable &table, const CodeMap &codes, ImportRemarks &remarks)
{
    const QString &name = table.table->name();
    for (const NeededValues &need : neededValues()) {
        if (need.table == name)
            refuseNulls(table, need, remarks);
    }
    const auto contractor = codes.find(compared(InternalCode::Contractor));
    if (name == "SchedaProgetto"_L1 && contractor != codes.end())
        refuseNulls(
            table,
            {name, {u"Link"_s}, u"le fatture delle aziende non si aprono."_s, contractor->second},
            remarks);
    if (name == "Fatture"_L1)
        checkPayments(table, remarks);
    if (name == "Funzioni"_L1)
        checkCodes(table, codes, remarks);
    if (name == "UltimaPerVariante"_L1 && table.rows.size() > PickListSize)
        remarks.warnings.append(
            table.file + u": le voci sono %1; «Inserisci» ne può offrire 201 e si ferma."_s.arg(
                             table.rows.size()));
}

QStringList LostItems(const CsvTable &table, const TableRows &stored, const CodeMap &codes)
{
    std::set<QString> kept;
    for (const QList<NewValue> &row : table.rows)
        kept.insert(compared(textOf(row[0])));
    std::set<QString> registered;
    QString notes;
    for (const UsedCode &used : UsedCodes) {
        const auto external = codes.find(compared(used.code));
        if (external == codes.end() || used.use == CodeUse::Search)
            continue;
        if (used.use == CodeUse::Note)
            notes = compared(external->second) + u'_';
        else
            registered.insert(compared(external->second));
    }
    QStringList lost;
    for (const QList<NewValue> &row : stored) {
        const QString item = compared(textOf(row[0]));
        bool isNote = !notes.isEmpty() && item.startsWith(notes);
        if (isNote)
            item.sliced(notes.size()).toInt(&isNote);
        if ((isNote || registered.contains(item)) && !kept.contains(item))
            lost.append(
                u"%1 (%2)"_s.arg(textOf(row[0]), textOf(row[table.table->place(u"Descri"_s)])));
    }
    return lost;
}

} // namespace saldoro
