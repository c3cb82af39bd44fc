#pragma once

#include "controls/text_table.h"

#include <QString>

namespace saldoro {

/** The rows below the header as the text of a document: columns of fixed widths, in which longer
 *  texts are cut, and CR LF behind each line of DocumentLineWidth characters. */
QString OverviewText(const TextTable &overview);

} // namespace saldoro
