#include "store/archives_root.h"

#include "common/errors.h"
#include "platform/machine_path.h"
#include "platform/registry.h"
#include "store/archive_paths.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace saldoro {

using namespace Qt::StringLiterals;

QString ArchivesRootSetting()
{
    return u"il valore \"%1\" di %2"_s.arg(ArchiveRootValue,
                                           RegistryKeyPlace(SettingsKey.toString()));
}

std::optional<QString> StoredArchivesRoot()
{
    return ReadRegistryValue(SettingsKey.toString(), ArchiveRootValue.toString());
}

std::optional<QString> UsedArchivesRoot()
{
    auto root = StoredArchivesRoot();
    if (!root && QFileInfo(MachinePath(ArchiveFolders::Appalti.toString())).isDir())
        root = QString();
    return root;
}

QString ShownRoot(const QString &root)
{
    return QDir::toNativeSeparators(root.isEmpty() ? QDir::rootPath() : root);
}

QString ProposedArchivesRoot()
{
    return QDir::toNativeSeparators(
        QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) + u"/Saldoro"_s);
}

QString ArchivesRootOf(const QString &folder)
{
    QString root = QDir::toNativeSeparators(QDir::cleanPath(MachinePath(folder)));
    if (root.compare(QDir::toNativeSeparators(QDir::cleanPath(folder)), Qt::CaseInsensitive) != 0)
        throw FileError(folder, u"In questa cartella gli archivi non si troverebbero."_s,
                        u"Scegliere una cartella senza «\\» nel nome."_s);
    if (root.endsWith(QDir::separator()))
        root.chop(1); // paths go on with a separator of their own
    return root;
}

void StoreArchivesRoot(const QString &root)
{
    SetRegistryValue(SettingsKey.toString(), ArchiveRootValue.toString(), root);
}

} // namespace saldoro
