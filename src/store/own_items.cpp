#include "store/own_items.h"

#include "store/internal_codes.h"
#include "store/mandate_note.h"
#include "store/table_definitions.h"

namespace saldoro {

using namespace Qt::StringLiterals;

OwnItems::OwnItems(const TableRows &codes)
{
    const qsizetype external = TablesOf(ArchiveFile::Codes).first().place(u"CodExt"_s);
    for (const UsedCode &used : UsedCodes) {
        const qsizetype row = FirstRow(codes, used.code.toString());
        const QString item = row < 0 ? QString() : TextOf(codes[row][external]);
        if (item.isEmpty() || used.use == CodeUse::Search)
            continue;
        if (used.use == CodeUse::Note)
            m_noteStart = MandateKeyStart(item);
        else
            m_items.insert(item);
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
