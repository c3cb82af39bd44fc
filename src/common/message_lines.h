#pragma once

#include <QString>
#include <QStringList>

namespace saldoro {

/** How many characters of one value a finding quotes at most. */
inline constexpr qsizetype MostCharactersQuoted = 40;

/** How many lines of one kind a message has at most. */
inline constexpr qsizetype MostLinesTold = 20;

/** The first @p most of the lines. If some are left out, one line more: @p more with their number
 *  for "%1". */
QStringList FirstLines(const QStringList &lines, const QString &more,
                       qsizetype most = MostLinesTold);

} // namespace saldoro
