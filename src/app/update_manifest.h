#pragma once

#include <QDate>
#include <QString>
#include <QTime>

namespace saldoro {

/** What the update manifest says about a program. */
struct ManifestFacts
{
    QString programName; ///< file name without extension
    int major = 0;
    int minor = 0;
    int revision = 0;
    QDate programDate; ///< last change of the program's file
    QDate today;
    QTime now;
};

/** The whole manifest, each line ended by CR LF. */
QString ManifestText(const ManifestFacts &facts);

/** Writes the manifest of the running program, <name>.ini, into the current working directory in
 *  place of one that is there. Throws FileError when it can't be written. */
void WriteUpdateManifest();

/** Whether the command line behind the program's name asks for the manifest and nothing else:
 *  "/INI", in any letter case. */
bool AsksForManifest(const QString &tail);

/** The whole run that writes the manifest; it needs no display, settings or project. An error is
 *  said on the standard error stream. Returns the program's exit status. */
int RunForManifest();

} // namespace saldoro
