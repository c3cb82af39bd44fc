#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace saldoro {

/** Writes a file, and the folder that it lies in; gives the path back. */
inline QString WriteFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!QDir().mkpath(QFileInfo(path).path()) || !file.open(QIODevice::WriteOnly) ||
        file.write(content) != content.size())
        qFatal("a file of the test can't be written");
    return path;
}

/** What a file holds; "no file" for one that can't be read. */
inline QByteArray ContentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

/** What the files of a folder hold, by their names. */
inline QMap<QString, QByteArray> ContentsOf(const QString &folder)
{
    QMap<QString, QByteArray> contents;
    for (const QFileInfo &file : QDir(folder).entryInfoList(QDir::Files))
        contents[file.fileName()] = ContentOf(file.filePath());
    return contents;
}

} // namespace saldoro
