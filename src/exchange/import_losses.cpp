#include "exchange/import_losses.h"

#include "database/text_order.h"
#include "store/internal_codes.h"
#include "store/mandate_note.h"

#include <set>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** The items of the contract sheet that the program itself writes: documents, totals and the notes
 *  of the mandates. */
struct OwnItems
{
    std::set<QString, TextOrder> items;
    QString noteStart; ///< what the codes of the notes begin with, a payment's number behind it

    /** Whether that is the code of such an item, in any letter case. */
    bool contains(const QString &item) const
    {
        bool isNumber = false;
        item.mid(noteStart.size()).toInt(&isNumber);
        return items.contains(item) || (isNumber && !noteStart.isEmpty() &&
                                        AreEqualTexts(item.left(noteStart.size()), noteStart));
    }
};

OwnItems ownItems(const TableRows &codes)
{
    OwnItems own;
    const qsizetype external = TableNamed(u"Funzioni"_s)->indexOf(u"CodExt"_s);
    for (const UsedCode &used : UsedCodes) {
        const qsizetype row = FirstRow(codes, used.code.toString());
        const QString item = row < 0 ? QString() : TextOf(codes[row][external]);
        if (used.use == CodeUse::Note && !item.isEmpty())
            own.noteStart = MandateKeyStart(item);
        else if (used.use != CodeUse::Search && !item.isEmpty())
            own.items.insert(item);
    }
    return own;
}

} // namespace

QList<BudgetChange> AddLosses(const GivenTable &given, const TableChange &change,
                              const ProjectTables &project, ImportOutcome &outcome)
{
    QList<BudgetChange> budget;
    const ExchangedTable &table = *given.table;
    const auto rowsOf = [&project](const QString &name) {
        const auto found = project.find(name);
        return found == project.end() ? TableRows() : found->second.rows;
    };
    if (table.name() == "UltimaPerVariante"_L1 && !change.stored.isEmpty())
        budget = BudgetChanges(change.stored, change.rows, rowsOf(u"Spese"_s));
    for (const BudgetChange &item : std::as_const(budget)) {
        if (item.isDropped && item.isPaid)
            outcome.refusals.append(FindingOf(given.source + u": "_s + item.text()));
    }
    const OwnItems own = ownItems(rowsOf(u"Funzioni"_s));
    for (const TableRow &row : DroppedRows(table, change)) {
        const QString key = KeyOf(table, row);
        if (table.name() == "Fatture"_L1)
            outcome.refusals.append(FindingOf(u"%1: toglie il pagamento %2 (%3)."_s.arg(
                given.source, key, TextOf(row[table.indexOf(u"Creditore"_s)]))));
        if (table.name() == "SchedaProgetto"_L1 && own.contains(key))
            outcome.errors.append(FindingOf(
                u"%1: andrebbe persa la voce %2 (%3), che ha scritto Saldoro; aggiungerla al file."_s
                    .arg(given.source, key, TextOf(row[table.indexOf(u"Descri"_s)]))));
    }
    return budget;
}

} // namespace saldoro
