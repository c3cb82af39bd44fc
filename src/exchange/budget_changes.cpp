#include "exchange/budget_changes.h"

#include "common/amount_text.h"
#include "database/text_order.h"
#include "store/archive_paths.h"

#include <algorithm>
#include <map>
#include <set>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

std::optional<Currency> amountOf(const NewValue &value)
{
    const auto *amount = std::get_if<Currency>(&value);
    return amount == nullptr ? std::nullopt : std::optional(*amount);
}

/** Places of the columns, as the tables are defined. */
enum Column
{
    Code = 0,
    Description = 1,
    Amount = 2,
    AllocatedCode = 1
};

} // namespace

QString BudgetChange::text() const
{
    const auto shown = [](const std::optional<Currency> &amount) {
        return amount ? FormatImporto(*amount) : u"senza importo"_s;
    };
    const QString item = code + u" ("_s + description + u"): "_s;
    if (isDropped)
        return item + u"tolta, era "_s + shown(before) +
               (isPaid ? u", ed è già pagata"_s : QString());
    return isNew ? item + u"nuova, "_s + shown(after)
                 : item + u"da "_s + shown(before) + u" a "_s + shown(after);
}

QList<BudgetChange> BudgetChanges(const TableRows &before, const TableRows &after,
                                  const TableRows &allocations)
{
    std::set<QString, TextOrder> paid;
    for (const TableRow &row : allocations)
        paid.insert(TextOf(row[AllocatedCode]));
    std::map<QString, const TableRow *, TextOrder> old;
    for (const TableRow &row : before)
        old.emplace(TextOf(row[Code]), &row);
    QList<BudgetChange> changes;
    for (const TableRow &row : after) {
        BudgetChange change{TextOf(row[Code]), TextOf(row[Description])};
        const auto former = old.find(change.code);
        change.isNew = former == old.end();
        change.after = amountOf(row[Amount]);
        if (!change.isNew)
            change.before = amountOf((*former->second)[Amount]);
        change.isPaid = paid.contains(change.code);
        if (change.isNew || change.before != change.after)
            changes.append(change);
    }
    for (const TableRow &row : after)
        old.erase(TextOf(row[Code]));
    QList<BudgetChange> dropped;
    for (const auto &[code, row] : old)
        dropped.append({code, TextOf((*row)[Description]), false, true, amountOf((*row)[Amount]),
                        std::nullopt, paid.contains(code)});
    std::stable_partition(dropped.begin(), dropped.end(),
                          [](const BudgetChange &change) { return change.isPaid; });
    return dropped + changes;
}

QList<BudgetChange> CompareBudget(const QString &projectFolder, const TableRows &budget)
{
    const auto stored = [&projectFolder](const QString &name) {
        const ExchangedTable &table = *TableNamed(name);
        return StoredRows(Database::openReadOnly(ArchiveFilePath(table.archive, projectFolder)),
                          table.definition);
    };
    return BudgetChanges(stored(u"UltimaPerVariante"_s), budget, stored(u"Spese"_s));
}

} // namespace saldoro
