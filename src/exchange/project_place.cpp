#include "exchange/project_place.h"

#include "common/errors.h"
#include "common/program_values.h"
#include "platform/machine_path.h"
#include "platform/registry.h"
#include "store/archive_paths.h"
#include "store/archives_root.h"
#include "store/contract_folders.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QString command(const ProjectPlace &place)
{
    static const QRegularExpression plain(u"\\A[\\w.-]+\\z"_s);
    const bool isWindows = RegistryFilePath().isEmpty(); // its registry is no file
    QString argument = LaunchToken.toString() + place.code;
    if (!isWindows && !plain.match(argument).hasMatch()) // a shell would take it for something else
        argument = u'\'' + argument.replace(u'\'', u"'\\''"_s) + u'\'';
    return (isWindows ? u"Saldoro.exe"_s : u"saldoro"_s) +
           (place.code == DefaultProject ? QString() : u' ' + argument) + u", o dal menu"_s;
}

} // namespace

ProjectPlace ProjectPlaceOf(const QString &folder)
{
    const QString path =
        QDir::cleanPath(QDir::current().absoluteFilePath(QString(folder).replace(u'\\', u'/')));
    const QString above = QFileInfo(path).path();
    const QString tree = ArchiveFolders::Appalti.toString().replace(u'\\', u'/');
    if (!above.endsWith(tree, Qt::CaseInsensitive))
        throw FileError(
            path,
            u"Un progetto nuovo sta in una cartella che finisce con %1/codice."_s.arg(
                tree.sliced(1)),
            u"Indicare una cartella così, per esempio archivi%1/%2."_s.arg(tree, DefaultProject));
    ProjectPlace place{
        QDir::toNativeSeparators(above.chopped(tree.size())), QFileInfo(path).fileName(), {}};
    place.folder = ContractFolder(place.root, place.code);
    return place;
}

QString AdoptArchivesRoot(const ProjectPlace &place)
{
    const auto present = UsedArchivesRoot();
    QString opened = u"Per aprire il progetto: "_s + command(place) + u'\n';
    const auto folder = [](const QString &root) {
        return QDir(MachinePath(root + u'\\')).canonicalPath();
    };
    if (present && folder(*present) == folder(place.root))
        return opened;
    if (present)
        return u"Saldoro cerca gli archivi in un'altra cartella, «%1»: finché l'impostazione non "
               "cambia questo progetto non si apre.\n"_s.arg(ShownRoot(*present));
    WithDetail(Detail::AlreadyDone,
               u"il progetto c'è; manca l'impostazione che dice dove stanno gli archivi"_s,
               [&] { StoreArchivesRoot(place.root); });
    return u"Saldoro cerca d'ora in poi gli archivi in «%1».\n"_s.arg(place.root) + opened;
}

} // namespace saldoro
