#include "platform/machine_path.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

namespace saldoro {

using namespace Qt::StringLiterals;

#ifndef Q_OS_WIN
namespace {

/** The entry of @p folder that @p name means, or @p name itself when there is none. */
QString entryFor(const QString &folder, const QString &name)
{
    if (QFileInfo::exists(folder + name))
        return name;
    const QDir::Filters all = QDir::AllEntries | QDir::Hidden | QDir::System;
    for (const QString &entry :
         QDir(folder.isEmpty() ? u"."_s : folder).entryList(all, QDir::Name)) {
        if (entry.compare(name, Qt::CaseInsensitive) == 0)
            return entry;
    }
    return name;
}

} // namespace
#endif

QString MachinePath(const QString &archivePath)
{
#ifdef Q_OS_WIN
    return archivePath;
#else
    const QString plain = QString(archivePath).replace(u'\\', u'/');
    QString path = plain.startsWith(u'/') ? u"/"_s : QString();
    const QStringList names = plain.split(u'/', Qt::SkipEmptyParts);
    if (QString exact = path + names.join(u'/'); QFileInfo::exists(exact))
        return exact; // as the look-ups below, each of which takes the disk's time, would give
    for (qsizetype place = 0; place < names.size(); ++place) {
        path += entryFor(path, names[place]);
        if (place + 1 < names.size())
            path += u'/';
    }
    return path;
#endif
}

bool IsTaken(const QString &path)
{
    return QFileInfo::exists(path) || QFileInfo(path).isSymLink();
}

} // namespace saldoro
