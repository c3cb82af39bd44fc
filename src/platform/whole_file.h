#pragma once

#include <QByteArray>
#include <QSaveFile>
#include <QString>

#include <functional>
#include <memory>

namespace saldoro {

/**
 * A file that is written whole or not at all. The constructor writes it aside, in the same folder;
 * replace() then puts it in the place of an earlier file of that name. Until then the earlier file
 * is as it was. An object that is destroyed without having replaced anything leaves nothing behind.
 * To replace several files together, construct all of them first.
 *
 * Failures are FileErrors with the path and the most likely cause.
 */
class WholeFile
{
public:
    /** @param path path of the machine
     *  @param write fills the file; returns false when the file did not take something
     *
     *  Throws when the file can't be written whole, the flush to the disk included, which on
     *  Windows replace() tells. Throws also when it shows by now that the earlier file can't be
     *  replaced: a folder of that name, a folder or file that one may not write, on Windows a file
     *  that another program keeps to itself. */
    WholeFile(const QString &path, const std::function<bool(QIODevice &)> &write);
    WholeFile(const QString &path, const QByteArray &content);

    /** Renames the file into its place, once only, and flushes the folder's entry where the system
     *  can do that. If only the flush fails, the file is already replaced. */
    void replace();

private:
    std::unique_ptr<QSaveFile> m_file;
};

/** The content of a file of the machine. Throws FileError for what is no file or can't be read. */
QByteArray ReadWholeFile(const QString &path);

/** What the name of a file or folder that is being made ends in until it is complete. */
inline constexpr QStringView UnfinishedEnd = u".nuovo";

/** A name beside @p path, ending so, that nothing has: "Saldoro.mdb.nuovo", or "Saldoro.mdb
 *  2.nuovo". What has such a name already may be somebody's own, and stays. Makes nothing. */
QString AsideName(const QString &path);

/** Renames a file that its writer has put on the disk, such as a new database, or a folder of such
 *  files to another name in the same folder; the entry is then on the disk, too. Throws FileError,
 *  nothing being renamed, also when something has the name. Paths of the machine. */
void PutInPlace(const QString &aside, const QString &path);

/** Makes a folder of the machine, and those above it, unless it is there. Throws FileError. */
void MakeFolder(const QString &path);

} // namespace saldoro
