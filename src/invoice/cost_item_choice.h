#pragma once

#include "controls/text_table.h"

#include <QList>
#include <QString>

namespace saldoro {

/*
 * The choice of a cost item for a payment: what is offered, and what a pick does to the table of
 * allocations.
 */

/** A cost item that may be inserted. */
struct OfferedItem
{
    QString line; ///< of the pick list
    QString description;
};

/** Items of the overview that are not in the grid. The overview has at least five columns. Throws
 *  BoundsError for more than PickListSize items. */
QList<OfferedItem> ItemsOnOffer(const TextTable &overview, const TextTable &grid);

/** Starts an insertion: an empty row, whose first cell becomes current. */
void BeginInsertion(TextTable &grid);
/** Puts the item into the last row and makes its amount current, for the editor to open on. Its
 *  code is PickedCode(). False, with nothing done, when that is empty. */
bool PickItem(TextTable &grid, const OfferedItem &item);
/** Ends an insertion, with an item picked or without: an empty last row goes, the last row's amount
 *  becomes current. */
void EndInsertion(TextTable &grid);

} // namespace saldoro
