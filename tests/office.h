#pragma once

#include "bare_file.h"
#include "common/errors.h"
#include "exchange/import_files.h"
#include "file_content.h"
#include "store/archive_paths.h"

#include <QTemporaryDir>

namespace saldoro {

using namespace Qt::StringLiterals;

/** An office of its own: a folder of CSV files and a project that the first import makes. */
class Office
{
public:
    Office() { qputenv("XDG_CONFIG_HOME", path(u"settings"_s).toUtf8()); }

    QString path(const QString &name) const { return m_folder.filePath(name); }
    QString csv() const { return path(u"csv"_s); }
    /** Archives stand under any name, also one with "%1", which a message would fill in. */
    QString root() const { return path(u"è %1"_s); }
    QString project() const { return root() + u"/archivi.qx/ZELT/LAVORI/APPALTI/00039"_s; }

    /** Puts a CSV file for that table. */
    void put(const QString &table, const QByteArray &bytes) const
    {
        WriteFile(csv() + u'/' + table + u".csv"_s, bytes);
    }
    void putBudget(const QByteArray &rows) const
    {
        put(u"UltimaPerVariante"_s, "Voce;Descri;Importo\n" + rows);
    }

    /** Imports the CSV files; gives all that is said, behind "NO" when nothing was written. */
    QString import(bool evenSo = false, const QStringList &replaced = {}) const
    {
        try {
            const ImportOutcome outcome = ImportFiles(project(), csv(), {true, evenSo, replaced});
            return (outcome.isDone ? QString() : u"NO\n"_s) + outcome.remarks() + outcome.summary;
        } catch (const SaldoroError &error) {
            return u"NO\n"_s + error.message();
        }
    }

    /** Rows of a database of the project, as BareFile gives them. */
    QString rows(ArchiveFile file, const QString &sql) const
    {
        return BareFile(ArchiveFilePath(file, project())).rows(sql);
    }
    /** The files of the project and of the shared tables, by their paths. */
    QMap<QString, QByteArray> archive() const
    {
        QMap<QString, QByteArray> files;
        for (const ArchiveFile file : {ArchiveFile::Codes, ArchiveFile::Ledger}) {
            const QString folder = QFileInfo(ArchiveFilePath(file, project())).path();
            const auto contents = ContentsOf(folder);
            for (auto content = contents.begin(); content != contents.end(); ++content)
                files.insert(folder + u'/' + content.key(), *content);
        }
        return files;
    }

    /** Puts those files in the place of what is there. */
    void restore(const QMap<QString, QByteArray> &files) const
    {
        const auto present = archive();
        for (auto file = present.begin(); file != present.end(); ++file)
            QFile::remove(file.key());
        for (auto file = files.begin(); file != files.end(); ++file)
            WriteFile(file.key(), *file);
    }

private:
    QTemporaryDir m_folder;
};

} // namespace saldoro
