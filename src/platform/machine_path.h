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

/** The folder of this program's own files among the user's settings: "saldoro" in the folder that
 *  XDG_CONFIG_HOME names, or in ~/.config when that is unset, empty or not absolute; on Windows in
 *  the user's local application data. It may be missing. */
QString SettingsFolder();

} // namespace saldoro
