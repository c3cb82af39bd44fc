#pragma once

#include "controls/notice.h"
#include "controls/text_table.h"

namespace saldoro {

/** What the main screen tells about its list of payments, whose current row counts, and its
 *  overview, and that another window has the project open too. Never throws. */
Notices MainScreenNotices(const TextTable &payments, const TextTable &overview,
                          bool isOpenElsewhere);

} // namespace saldoro
