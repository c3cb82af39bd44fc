#include "test_archive.h"

#include "platform/machine_path.h"

#include <QDir>
#include <QFile>
#include <QStringList>

#include <memory>
#include <sqlite3.h>
#include <stdexcept>

namespace saldoro {

namespace {

struct Closer
{
    void operator()(sqlite3 *file) const { sqlite3_close(file); }
    void operator()(sqlite3_stmt *statement) const { sqlite3_finalize(statement); }
};
using File = std::unique_ptr<sqlite3, Closer>;
using Statement = std::unique_ptr<sqlite3_stmt, Closer>;

/** Stops the test: a plan that can't be carried out is no failure of what is tested. */
[[noreturn]] void fail(sqlite3 *file, const QString &sql)
{
    throw std::runtime_error((sql + QStringLiteral(": ")).toStdString() + sqlite3_errmsg(file));
}

File openFile(const QString &archivePath)
{
    sqlite3 *file = nullptr;
    const QByteArray path = MachinePath(archivePath).toUtf8();
    const int result = sqlite3_open_v2(path.constData(), &file, SQLITE_OPEN_READWRITE, nullptr);
    File owner(file);
    if (result != SQLITE_OK) {
        fail(file, archivePath);
    }
    return owner;
}

QString cellText(sqlite3_stmt *statement, int column)
{
    if (sqlite3_column_type(statement, column) == SQLITE_NULL) {
        return QStringLiteral("-");
    }
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(statement, column));
    return QString::fromUtf8(text, sqlite3_column_bytes(statement, column));
}

void copyFiles(const QString &from, const QString &to)
{
    if (!QDir().mkpath(to))
        throw std::runtime_error("no folder for the archive: " + to.toStdString());
    for (const QString &file : QDir(from).entryList(QDir::Files)) {
        QFile::copy(from + u'/' + file, to + u'/' + file);
    }
}

/** The archive of @p original once more, below @p root. */
ArchiveBuilder copyOf(const ProgramValues &original, const QString &root,
                      const QString &projectCode)
{
    ArchiveBuilder archive = ArchiveBuilder::ofExisting(root, projectCode);
    copyFiles(MachinePath(ProjectFolder(original)), MachinePath(ProjectFolder(archive.values())));
    for (const QStringView folder : {ArchiveFolders::Tabelle, ArchiveFolders::Update}) {
        copyFiles(MachinePath(original.ArchiveRoot + folder.toString()),
                  MachinePath(root + folder.toString()));
    }
    return archive;
}

/** A new archive, copied from one that is made once: making it syncs every table to the disk. */
ArchiveBuilder emptyArchive(const QString &root, const QString &projectCode)
{
    static const QTemporaryDir templateFolder;
    static const ProgramValues empty =
        ArchiveBuilder(templateFolder.path(), QStringLiteral("empty")).values();
    return copyOf(empty, root, projectCode);
}

} // namespace

TestArchive::TestArchive(const QString &projectCode)
    : m_builder(emptyArchive(m_folder.path(), projectCode))
{
}

TestArchive::TestArchive(const TestArchive &other)
    : m_builder(copyOf(other.values(), m_folder.path(), other.values().ProjectCode))
{
}

QString TestArchive::rows(const QString &archivePath, const QString &sql) const
{
    const File file = openFile(archivePath);
    sqlite3_stmt *prepared = nullptr;
    if (sqlite3_prepare_v2(file.get(), sql.toUtf8().constData(), -1, &prepared, nullptr) !=
        SQLITE_OK) {
        fail(file.get(), sql);
    }
    const Statement statement(prepared);
    QStringList lines;
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(prepared)) == SQLITE_ROW) {
        QStringList cells;
        for (int column = 0; column < sqlite3_column_count(prepared); ++column) {
            cells.append(cellText(prepared, column));
        }
        lines.append(cells.join(u'|'));
    }
    if (step != SQLITE_DONE) {
        fail(file.get(), sql);
    }
    return lines.join(u'\n');
}

void TestArchive::execute(const QString &archivePath, const QString &sql) const
{
    const File file = openFile(archivePath);
    if (sqlite3_exec(file.get(), sql.toUtf8().constData(), nullptr, nullptr, nullptr) !=
        SQLITE_OK) {
        fail(file.get(), sql);
    }
}

} // namespace saldoro
