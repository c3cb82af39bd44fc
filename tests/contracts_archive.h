#pragma once

#include "answered_boxes.h"
#include "bare_file.h"
#include "sound_project.h"
#include "store/archives_root.h"

#include <QDir>
#include <QTemporaryDir>

namespace saldoro {

/** An office whose archive holds the sound project and copies of it. */
class ContractsArchive : public AnsweredBoxes
{
public:
    ContractsArchive()
    {
        qputenv("XDG_CONFIG_HOME", settings.path().toUtf8());
        StoreArchivesRoot(project.archive.values().ArchiveRoot);
    }

    QString folder(const QString &code) const
    {
        return QFileInfo(project.folder()).path() + u'/' + code;
    }
    /** A copy of the sound project; gives the path of one of its databases. */
    QString copy(const QString &code, const QString &file = {}) const
    {
        QDir().mkpath(folder(code));
        for (const QFileInfo &each : QDir(project.folder()).entryInfoList(QDir::Files))
            QFile::copy(each.filePath(), folder(code) + u'/' + each.fileName());
        return folder(code) + u'/' + file;
    }

    QString rows(const QString &code, const QString &file, const QString &sql) const
    {
        return BareFile(folder(code) + u'/' + file).rows(sql);
    }

    QTemporaryDir settings;
    SoundProject project;
};

} // namespace saldoro
