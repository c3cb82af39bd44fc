#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>

class QIODevice;
class QSaveFile;

namespace saldoro {

/**
 * A file that is written whole or not at all. The constructor writes it aside, in the folder where
 * it is to stand; replace() puts it in the place of an earlier file of that name. Until then, and
 * after a failure, the earlier file is as it was. An object that goes without having replaced
 * anything leaves nothing aside. To replace several files together, construct all first.
 *
 * Failures are FileErrors with the path and the most likely cause.
 */
class WholeFile
{
public:
    /** @p write fills the file and returns false when the file refused something.
     *  @param path archive path or path of the machine.
     *  Throws when the file can't be written to the disk in whole, and also when the earlier file
     *  is known not to be replaceable: a folder, a file without right to write, one that another
     *  program keeps to itself. */
    WholeFile(const QString &path, const std::function<bool(QIODevice &)> &write);
    WholeFile(const QString &path, const QByteArray &content);
    WholeFile(WholeFile &&other) noexcept;
    WholeFile &operator=(WholeFile &&other) noexcept;
    ~WholeFile();

    /** Renames the file into its place, once only, and has the folder's entry on the disk, where
     *  the system offers that, before it returns. When only the latter fails the file is replaced
     *  already. */
    void replace();

private:
    std::unique_ptr<QSaveFile> m_file;
};

/** Renames a file that its writer has put on the disk, such as a new database, to a name that no
 *  file has, in the same folder; the entry is then on the disk, too. Throws FileError, with no file
 *  of that name. Paths of the machine. */
void PutInPlace(const QString &aside, const QString &path);

} // namespace saldoro
