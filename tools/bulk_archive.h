#pragma once

#include "archive_builder.h"

namespace saldoro {

/** How much a large archive holds. */
struct BulkSize
{
    int payments = 0;
    /** Spread evenly over the payments; those of a payment add up to its total and name different
     *  cost items as long as there are enough of them. */
    int allocations = 0;
    int costItems = 1;
    /** So many of the payments, from the first on, have a mandate note. */
    int mandateNotes = 0;
    /** The same seed gives the same rows. */
    quint32 seed = 1;
};

/**
 * Fills the empty databases of @p archive with made-up rows, for measurements. Writes with the
 * engine's own calls, one transaction a file, because a synced write for each row would take
 * minutes. The codes must have been added before. Throws std::runtime_error.
 */
void FillArchive(const ArchiveBuilder &archive, const BulkSize &size);

} // namespace saldoro
