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
 * for any other folder. */
ProjectPlace PlaceOf(const QString &folder);

/** Makes a folder of the machine with those above it. Throws FileError. */
void MakeFolder(const QString &folder);

/** Makes the folders of the project and of the shared tables. Throws FileError. */
void MakeFolders(const ProjectPlace &place);

/** Makes the place's root the archives root when none is set yet. Gives what to tell about that and
 *  the command that opens the project. */
QString SettingReport(const ProjectPlace &place);

} // namespace saldoro
