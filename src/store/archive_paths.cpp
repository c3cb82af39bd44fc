#include "store/archive_paths.h"

#include "common/errors.h"
#include "platform/machine_path.h"

#include <QDir>
#include <QFileInfo>
#include <QStringBuilder>

namespace saldoro {

using namespace Qt::StringLiterals;

QString ProjectFolder(const QString &root, const QString &code)
{
    return root % ArchiveFolders::Appalti % u'\\' % code;
}

QString ProjectFolder(const ProgramValues &values)
{
    return ProjectFolder(values.ArchiveRoot, values.ProjectCode);
}

QString LedgerPath(const ProgramValues &values)
{
    return ProjectFolder(values) % u'\\' % ArchiveFileName::Ledger;
}

QString ContractPath(const ProgramValues &values)
{
    return ProjectFolder(values) % u'\\' % ArchiveFileName::Contract;
}

QString CompaniesPath(const ProgramValues &values)
{
    return ProjectFolder(values) % u'\\' % ArchiveFileName::Companies;
}

QString CodesPath(const ProgramValues &values)
{
    return values.ArchiveRoot % ArchiveFolders::Tabelle % u'\\' % ArchiveFileName::Codes;
}

QString UpdateFolder(const ProgramValues &values)
{
    return values.ArchiveRoot % ArchiveFolders::Update % u'\\';
}

QString ArchiveFilePath(ArchiveFile file, const QString &folder)
{
    // In the order of the enumeration.
    constexpr std::array names{ArchiveFileName::Codes, ArchiveFileName::Contract,
                               ArchiveFileName::Companies, ArchiveFileName::Ledger};
    QString place = QDir(folder).absolutePath();
    if (file == ArchiveFile::Codes) {
        const auto plain = [](QStringView path) { return path.toString().replace(u'\\', u'/'); };
        place +=
            u"/../"_s +
            QDir(plain(ArchiveFolders::Appalti)).relativeFilePath(plain(ArchiveFolders::Tabelle));
    }
    return MachinePath(QDir::cleanPath(place) % u'/' % names.at(static_cast<size_t>(file)));
}

QString GivenFolder(const QString &given)
{
    return QFileInfo(given).isDir() ? given : MachinePath(given);
}

QString ExistingFolder(const QString &given)
{
    QString folder = GivenFolder(given);
    if (!QFileInfo(folder).isDir())
        throw FileError(folder, u"La cartella non esiste, o non può essere aperta."_s,
                        u"Controllare il nome della cartella e i permessi."_s);
    return folder;
}

} // namespace saldoro
