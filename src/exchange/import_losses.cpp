#include "exchange/import_losses.h"

#include "exchange/import_outcome.h"
#include "store/own_items.h"

namespace saldoro {

using namespace Qt::StringLiterals;

ImportLosses LossesOf(const GivenTable &given, const TableChange &change,
                      const ProjectTables &project)
{
    ImportLosses losses;
    const ExchangedTable &table = *given.table;
    const auto rowsOf = [&project](const QString &name) {
        const auto found = project.find(name);
        return found == project.end() ? TableRows() : found->second.rows;
    };
    if (table.name() == "UltimaPerVariante"_L1 && !change.stored.isEmpty())
        losses.budget = BudgetChanges(change.stored, change.rows, rowsOf(u"Spese"_s));
    for (const BudgetChange &item : std::as_const(losses.budget)) {
        if (item.isDropped && item.isPaid)
            losses.refusals.append(LineFinding(given.source + u": "_s + item.text()));
    }
    const OwnItems own(rowsOf(u"Funzioni"_s));
    for (const TableRow &row : DroppedRows(table, change)) {
        const QString key = KeyOf(table, row);
        if (table.name() == "Fatture"_L1)
            losses.refusals.append(LineFinding(u"%1: toglie il pagamento %2 (%3)."_s.arg(
                given.source, key, TextOf(row[table.place(u"Creditore"_s)]))));
        if (table.name() == "SchedaProgetto"_L1 && own.contains(key))
            losses.errors.append(LineFinding(
                u"%1: andrebbe persa la voce %2 (%3), che ha scritto Saldoro; aggiungerla al file."_s
                    .arg(given.source, key, TextOf(row[table.place(u"Descri"_s)]))));
    }
    return losses;
}

} // namespace saldoro
