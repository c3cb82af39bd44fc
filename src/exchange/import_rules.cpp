#include "exchange/import_rules.h"

#include "store/cost_item_rules.h"
#include "store/internal_codes.h"
#include "store/needed_values.h"

#include <QStringBuilder>

#include <algorithm>
#include <optional>
#include <set>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

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

/** Nulls that the program will stop at. */
void checkNulls(const CsvTable &table, ImportRemarks &remarks)
{
    const qsizetype kind = table.table->place(u"AziProf"_s);
    const auto &fields = table.table->definition.fields();
    for (qsizetype row = 0; row < table.rows.size(); ++row) {
        const TableRow &values = table.rows[row];
        for (qsizetype place = 0; place < fields.size(); ++place) {
            if (values[place] != NewValue())
                continue;
            const QString consequence =
                ConsequenceOfNull(table.table->name(), fields[place].name,
                                  kind < 0 ? QString() : textOf(values[kind]));
            if (!consequence.isEmpty())
                remarks.refusals.append(table.place(row, fields[place].name) +
                                        u"manca il valore: "_s + consequence);
        }
    }
}

/** The item of the contractor, if there is one, has to have a link. */
void checkContractor(const CsvTable &table, const CodeMap &codes, ImportRemarks &remarks)
{
    const auto contractor = codes.find(compared(InternalCode::Contractor));
    if (contractor == codes.end())
        return;
    for (qsizetype row = 0; row < table.rows.size(); ++row) {
        if (compared(textOf(table.rows[row][0])) == compared(contractor->second) &&
            table.value(row, u"Link"_s) == NewValue())
            remarks.refusals.append(table.place(row, u"Link"_s) +
                                    u"manca il valore: le fatture delle aziende non si aprono."_s);
    }
}

void checkBudget(const CsvTable &table, ImportRemarks &remarks)
{
    const auto textOrNone = [](const NewValue &value) {
        return value == NewValue() ? std::nullopt : std::optional(textOf(value));
    };
    QList<CostItem> items;
    for (const TableRow &row : table.rows)
        items.append({textOrNone(row[0]), textOrNone(row[1])});
    for (const CostItemFault &fault : CostItemFaults(items))
        remarks.refusals.append(table.place(fault.item, fault.field) + fault.problem);
    if (items.size() > PickListSize)
        remarks.warnings.append(
            table.file +
            u": le voci sono %1; «Inserisci» ne può offrire %2 e si ferma."_s.arg(items.size())
                .arg(PickListSize));
}

/** The rows of the payments list are taken for payment numbers. */
void checkPayments(const CsvTable &table, ImportRemarks &remarks)
{
    std::set<qint32> numbers;
    const qsizetype count = table.rows.size();
    for (qsizetype row = 0; row < count; ++row) {
        const QString kind = textOf(table.value(row, u"AziProf"_s));
        if (!kind.isEmpty() && kind != "A"_L1 && kind != "P"_L1)
            remarks.errors.append(table.place(row, u"AziProf"_s) + u"«"_s + kind +
                                  u"» non è A (azienda) né P (professionista)."_s);
        if (const auto *number = std::get_if<qint32>(&table.value(row, u"Npag"_s)))
            numbers.insert(*number);
    }
    if (count > 0 && (static_cast<qsizetype>(numbers.size()) != count || *numbers.begin() != 1 ||
                      *numbers.rbegin() != count))
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
    for (const TableRow &row : rows)
        codes.try_emplace(compared(textOf(row[0])), textOf(row[1]));
    return codes;
}

void CheckRows(const CsvTable &table, const CodeMap &codes, ImportRemarks &remarks)
{
    const QString &name = table.table->name();
    checkNulls(table, remarks);
    if (name == "SchedaProgetto"_L1)
        checkContractor(table, codes, remarks);
    if (name == "Fatture"_L1)
        checkPayments(table, remarks);
    if (name == "Funzioni"_L1)
        checkCodes(table, codes, remarks);
    if (name == "UltimaPerVariante"_L1)
        checkBudget(table, remarks);
}

QStringList LostItems(const CsvTable &table, const TableRows &stored, const CodeMap &codes)
{
    std::set<QString> kept;
    for (const TableRow &row : table.rows)
        kept.insert(compared(textOf(row[0])));
    const auto isWritten = [&codes](const UsedCode &used, const QString &item) {
        const auto external = codes.find(compared(used.code));
        if (external == codes.end() || used.use == CodeUse::Search)
            return false;
        const QString code = compared(external->second);
        if (used.use != CodeUse::Note)
            return item == code;
        bool isNote = item.startsWith(code + u'_');
        if (isNote)
            item.sliced(code.size() + 1).toInt(&isNote);
        return isNote;
    };
    QStringList lost;
    for (const TableRow &row : stored) {
        const QString item = compared(textOf(row[0]));
        if (!kept.contains(item) &&
            std::any_of(UsedCodes.begin(), UsedCodes.end(),
                        [&](const UsedCode &used) { return isWritten(used, item); }))
            lost.append(
                u"%1 (%2)"_s.arg(textOf(row[0]), textOf(row[table.table->place(u"Descri"_s)])));
    }
    return lost;
}

} // namespace saldoro
