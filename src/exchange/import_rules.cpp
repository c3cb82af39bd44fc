#include "exchange/import_rules.h"

#include "common/creditor_kind.h"
#include "store/cost_item_rules.h"
#include "store/internal_codes.h"
#include "store/needed_values.h"

#include <QStringBuilder>

#include <optional>
#include <set>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** The item code that the code map has for an internal one, if it does. */
std::optional<QString> itemOf(QStringView internalCode, const TableRows &codes)
{
    for (const TableRow &row : codes) {
        if (TextOf(row[0]).compare(internalCode, Qt::CaseInsensitive) == 0)
            return TextOf(row[1]);
    }
    return std::nullopt;
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
                                  kind < 0 ? QString() : TextOf(values[kind]));
            if (!consequence.isEmpty())
                remarks.refusals.append(table.place(row, fields[place].name) +
                                        u"manca il valore: "_s + consequence);
        }
    }
}

/** The item of the contractor, if there is one, has to have a link. */
void checkContractor(const CsvTable &table, const TableRows &codes, ImportRemarks &remarks)
{
    const auto contractor = itemOf(InternalCode::Contractor, codes);
    for (qsizetype row = 0; contractor && row < table.rows.size(); ++row) {
        if (TextOf(table.rows[row][0]).compare(*contractor, Qt::CaseInsensitive) == 0 &&
            table.value(row, u"Link"_s) == NewValue())
            remarks.refusals.append(table.place(row, u"Link"_s) +
                                    u"manca il valore: le fatture delle aziende non si aprono."_s);
    }
}

void checkBudget(const CsvTable &table, ImportRemarks &remarks)
{
    const auto textOrNone = [](const NewValue &value) {
        return value == NewValue() ? std::nullopt : std::optional(TextOf(value));
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
        const QString kind = TextOf(table.value(row, u"AziProf"_s));
        if (!kind.isEmpty() && !KindOfCode(kind))
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

void checkCodes(const CsvTable &table, ImportRemarks &remarks)
{
    for (const UsedCode &used : UsedCodes) {
        if (!itemOf(used.code, table.rows))
            remarks.refusals.append(table.file % u": manca il codice interno "_s % used.code %
                                    u", che il programma cerca."_s);
    }
}

} // namespace

bool ImportRemarks::allowWriting(bool evenSo) const
{
    return errors.isEmpty() && (evenSo || refusals.isEmpty());
}

QString ImportRemarks::text(bool evenSo) const
{
    QString text;
    const auto add = [&text](const QString &heading, const QStringList &lines) {
        if (!lines.isEmpty())
            text += heading + u"\n  "_s + lines.join(u"\n  "_s) + u'\n';
    };
    add(u"Avvertimenti:"_s, warnings);
    add(u"Errori:"_s, errors);
    if (!evenSo)
        add(u"Darebbe problemi più tardi (con --comunque si importa lo stesso):"_s, refusals);
    return allowWriting(evenSo) ? text : text + u"Niente è stato scritto.\n"_s;
}

void CheckRows(const CsvTable &table, const TableRows &codes, ImportRemarks &remarks)
{
    const QString &name = table.table->name();
    checkNulls(table, remarks);
    if (name == "SchedaProgetto"_L1)
        checkContractor(table, codes, remarks);
    if (name == "Fatture"_L1)
        checkPayments(table, remarks);
    if (name == "Funzioni"_L1)
        checkCodes(table, remarks);
    if (name == "UltimaPerVariante"_L1)
        checkBudget(table, remarks);
}

QStringList LostItems(const CsvTable &table, const TableRows &stored, const TableRows &codes)
{
    std::set<QString, CodeOrder> kept;
    for (const TableRow &row : table.rows)
        kept.insert(TextOf(row[0]));
    std::set<QString, CodeOrder> written;
    QString noteStart;
    for (const UsedCode &used : UsedCodes) {
        const auto item = itemOf(used.code, codes);
        if (item && used.use == CodeUse::Note)
            noteStart = *item + u'_';
        else if (item && used.use != CodeUse::Search)
            written.insert(*item);
    }
    const auto isNote = [&noteStart](const QString &item) {
        bool isNumber = false;
        item.mid(noteStart.size()).toInt(&isNumber);
        return isNumber && !noteStart.isEmpty() && item.startsWith(noteStart, Qt::CaseInsensitive);
    };
    QStringList lost;
    for (const TableRow &row : stored) {
        const QString item = TextOf(row[0]);
        if ((written.contains(item) || isNote(item)) && !kept.contains(item))
            lost.append(u"%1 (%2)"_s.arg(item, TextOf(row[table.table->place(u"Descri"_s)])));
    }
    return lost;
}

} // namespace saldoro
