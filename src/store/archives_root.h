#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace saldoro {

/*
 * The per-user setting that says where the archives lie, which holds for all programs of the suite.
 * It is kept by platform/registry.
 */

/** The key of the setting below the current user's root, and the name of its value. */
inline constexpr QStringView SettingsKey = u"Software\\Dornvale\\ZELT";
inline constexpr QStringView ArchiveRootValue = u"drivers";

/** What the setting is and where a person finds it, in Italian: the value "drivers" of a key or of
 *  a file. */
QString ArchivesRootSetting();

/** The archives root as it is set; no value when it is not. Throws FileError when the settings
 *  can't be read. */
std::optional<QString> StoredArchivesRoot();

/** The archives root in use: as it is set, or else empty, which is the root of the disk, when
 *  archives lie there; no value when there are none. Throws FileError as StoredArchivesRoot(). */
std::optional<QString> UsedArchivesRoot();

/** An archives root as people read it: an empty one is the root of the disk. */
QString ShownRoot(const QString &root);

/** Where the archives of an office without the suite are proposed to lie: a folder among the user's
 *  documents, which may not be there yet. */
QString ProposedArchivesRoot();

/** The text to set as archives root for a folder of the machine, there or not. Throws FileError
 *  when paths below it would not lead into that folder. */
QString ArchivesRootOf(const QString &folder);

/** Sets the archives root, in the place of one that is set. Throws as SetRegistryValue(). */
void StoreArchivesRoot(const QString &root);

} // namespace saldoro
