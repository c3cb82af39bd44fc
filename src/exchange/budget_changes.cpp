#include "exchange/budget_changes.h"

#include "common/amount_text.h"
#include "common/characters.h"
#include "database/text_order.h"
#include "platform/machine_path.h"
#include "store/archive_paths.h"

#include <algorithm>
#include <map>
#include <set>

namespace saldoro {

using namespace Qt::StringLiterals;

QString BudgetChange::text() const
{
    const auto shown = [](const std::optional<Currency> &amount) {
        return amount ? FormatImporto(*amount) : u"senza importo"_s;
    };
    const QString item = WithUnseenMarked(code + u" ("_s + description + u"): "_s);
    const QString paid = isPaid ? u", ed è già pagata"_s : QString();
    if (isDropped)
        return item + u"tolta, era "_s + shown(before) + paid;
    if (isNew)
        return item + u"nuova, "_s + shown(after);
    QStringList changed;
    if (before != after)
        changed.append(u"da "_s + shown(before) + u" a "_s + shown(after));
    if (formerDescription.isEmpty())
        return item + changed.join(QString());
    changed.append(u"era «"_s + WithUnseenMarked(formerDescription) + u'»');
    return item + changed.join(u", "_s) + paid;
}

QList<BudgetChange> BudgetChanges(const TableRows &before, const TableRows &after,
                                  const TableRows &allocations)
{
    const ExchangedTable &budget = *TableNamed(u"UltimaPerVariante"_s);
    const qsizetype codeColumn = budget.indexOf(u"Voce"_s);
    const qsizetype descriptionColumn = budget.indexOf(u"Descri"_s);
    const qsizetype amountColumn = budget.indexOf(u"Importo"_s);
    std::set<QString, TextOrder> paid;
    const qsizetype paidColumn = TableNamed(u"Spese"_s)->indexOf(u"Cod"_s);
    for (const TableRow &row : allocations)
        paid.insert(TextOf(row[paidColumn]));
    paid.erase(QString()); // of allocations without a code
    std::map<QString, const TableRow *, TextOrder> old;
    for (const TableRow &row : before)
        old.emplace(TextOf(row[codeColumn]), &row);
    QList<BudgetChange> changes;
    for (const TableRow &row : after) {
        BudgetChange change{TextOf(row[codeColumn]), TextOf(row[descriptionColumn])};
        const auto former = old.find(change.code);
        change.isNew = former == old.end();
        change.after = ValueAs<Currency>(row[amountColumn]);
        if (!change.isNew) {
            change.before = ValueAs<Currency>((*former->second)[amountColumn]);
            const QString description = TextOf((*former->second)[descriptionColumn]);
            if (description != change.description)
                change.formerDescription = description;
        }
        change.isPaid = paid.contains(change.code);
        if (change.isNew || change.before != change.after || !change.formerDescription.isEmpty())
            changes.append(change);
    }
    for (const TableRow &row : after)
        old.erase(TextOf(row[codeColumn]));
    QList<BudgetChange> dropped;
    for (const auto &[code, row] : old)
        dropped.append({code, TextOf((*row)[descriptionColumn]), false, true,
                        ValueAs<Currency>((*row)[amountColumn]), std::nullopt,
                        paid.contains(code)});
    std::stable_partition(dropped.begin(), dropped.end(),
                          [](const BudgetChange &change) { return change.isPaid; });
    return dropped + changes;
}

QList<BudgetChange> CompareBudget(const QString &projectFolder, const TableRows &budget)
{
    const auto stored = [&projectFolder](const QString &name) {
        const ExchangedTable &table = *TableNamed(name);
        const QString path = ArchiveFilePath(table.archive, projectFolder);
        return table.archive == ArchiveFile::Ledger && !IsTaken(path) // never opened in Saldoro
                   ? TableRows()
                   : StoredRows(Database::open(path), table.definition);
    };
    return BudgetChanges(stored(u"UltimaPerVariante"_s), budget, stored(u"Spese"_s));
}

} // namespace saldoro
