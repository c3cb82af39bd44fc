#include "common/message_lines.h"

namespace saldoro {

QStringList FirstLines(const QStringList &lines, const QString &more, qsizetype most)
{
    QStringList first = lines.mid(0, most);
    if (lines.size() > most)
        first.append(more.arg(lines.size() - most));
    return first;
}

} // namespace saldoro
