#pragma once

#include <QString>

namespace saldoro {

/**
 * Turns an archive path (built with backslashes by plain concatenation) into a path of this
 * machine. Where letter case matters to file systems, each component is looked up without regard to
 * it: an exact name counts first, then the first match in alphabetical order; a component that does
 * not exist is kept, so the result can name a file to create. Repeated separators count as one. On
 * Windows the path is returned unchanged.
 */
QString MachinePath(const QString &archivePath);

/** Whether something has that path of the machine. A link that leads nowhere counts: what it stands
 *  for may be on a disk that is not there now. */
bool IsTaken(const QString &path);

} // namespace saldoro
