#pragma once

#include <QString>

namespace saldoro {

/** A project's place in an archive tree. */
struct ProjectPlace
{
    QString root; ///< the archives root
    QString code;
    QString folder; ///< of the project, a path of the machine
};

/** The place that a folder ending in ARCHIVI.QX/ZELT/LAVORI/APPALTI/code names. Throws FileError
 *  for any other folder. */
ProjectPlace ProjectPlaceOf(const QString &folder);

/** Makes the place's root the archives root when none is in use yet. Returns what to tell the
 *  user: what was set, and how to open the project unless another root is set. Throws FileError. */
QString AdoptArchivesRoot(const ProjectPlace &place);

} // namespace saldoro
