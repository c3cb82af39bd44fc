#include "overview/overview_document.h"

#include "common/characters.h"
#include "common/overview_column.h"
#include "overview/rtf_writer.h"

#include <array>
#include <numeric>

namespace saldoro {

using namespace Qt::StringLiterals;

QString OverviewText(const TextTable &overview)
{
    constexpr std::array<qsizetype, OverviewColumn::Count> widths{5, 35, 17, 17, 17};
    constexpr QStringView behindDescription = u"  ";
    static_assert(std::accumulate(widths.begin(), widths.end(), behindDescription.size()) ==
                  DocumentLineWidth);
    QString text;
    for (int row = 1; row < overview.rows(); ++row) {
        for (int column = 0; column < OverviewColumn::Count; ++column) {
            text += FixedWidth(overview.text(row, column), widths.at(static_cast<size_t>(column)));
            if (column == OverviewColumn::Descrizione)
                text += behindDescription;
        }
        text += u"\r\n"_s;
    }
    return text;
}

} // namespace saldoro
