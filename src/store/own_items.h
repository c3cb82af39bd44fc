#pragma once

#include "database/text_order.h"
#include "store/table_rows.h"

#include <QString>

#include <set>

namespace saldoro {

/** The items of the contract sheet that the program itself writes: documents, totals and the notes
 *  of the mandates. */
class OwnItems
{
public:
    /** @param codes the rows of `Funzioni`. */
    explicit OwnItems(const TableRows &codes);

    /** Whether that is the code of such an item, in any letter case. An empty code is of none. */
    bool contains(const QString &item) const;

private:
    std::set<QString, TextOrder> m_items;
    QString m_noteStart; ///< what the codes of the notes begin with, a payment's number behind it
};

} // namespace saldoro
