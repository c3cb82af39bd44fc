#include "store/own_items.h"

#include "store/internal_codes.h"
#include "store/mandate_note.h"

#include <algorithm>

namespace saldoro {

OwnItems::OwnItems(const TableRows &codes)
{
    for (const TableRow &row : codes) {
        const QString code = TextOf(row[0]);
        const auto used = std::ranges::find_if(UsedCodes, [&code](const UsedCode &one) {
            return AreEqualTexts(code, one.code.toString());
        });
        if (used == UsedCodes.end() || used->use == CodeUse::Search || TextOf(row[1]).isEmpty())
            continue;
        if (used->use == CodeUse::Note)
            m_noteStart = MandateKeyStart(TextOf(row[1]));
        else
            m_items.insert(TextOf(row[1]));
    }
}

bool OwnItems::contains(const QString &item) const
{
    bool isNumber = false;
    item.mid(m_noteStart.size()).toInt(&isNumber);
    return m_items.contains(item) || (isNumber && !m_noteStart.isEmpty() &&
                                      AreEqualTexts(item.left(m_noteStart.size()), m_noteStart));
}

} // namespace saldoro
