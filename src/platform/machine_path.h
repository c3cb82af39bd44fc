#pragma once

#include <QString>

namespace saldoro {

/**
 * Turns an archive path (built with backslashes by plain concatenation) into a path of this
 * machine. Where disks tell letter case apart each component is looked up without regard to it:
 * an exact name wins, then the first match in alphabetical order; a component that does not exist
 * is kept as written, so the result can name a file to create. Repeated separators count as one.
 * On Windows the path is returned unchanged.
 */
QString MachinePath(const QString &archivePath);

} // namespace saldoro
