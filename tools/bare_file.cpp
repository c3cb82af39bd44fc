#include "bare_file.h"

#include "platform/machine_path.h"

#include <QStringList>

#include <sqlite3.h>
#include <stdexcept>

namespace saldoro {

namespace {

qint64 readColumn(sqlite3_stmt *statement, int column)
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
        return sqlite3_column_int64(statement, column);
    case SQLITE_FLOAT:
        return static_cast<qint64>(sqlite3_column_double(statement, column));
    case SQLITE_NULL:
        return 0;
    default: {
        const unsigned char *text = sqlite3_column_text(statement, column);
        return sqlite3_column_bytes(statement, column) + text[0];
    }
    }
}

} // namespace

BareStatement::BareStatement(sqlite3 *file, const char *sql)
    : m_file(file)
{
    sqlite3_stmt *statement = nullptr;
    check(sqlite3_prepare_v2(file, sql, -1, &statement, nullptr) == SQLITE_OK);
    m_statement.reset(statement, sqlite3_finalize);
}

void BareStatement::bind(int position, qint64 value)
{
    check(sqlite3_bind_int64(m_statement.get(), position, value) == SQLITE_OK);
}

void BareStatement::bind(int position, const QByteArray &utf8)
{
    check(sqlite3_bind_text(m_statement.get(), position, utf8.constData(),
                            static_cast<int>(utf8.size()), SQLITE_TRANSIENT) == SQLITE_OK);
}

void BareStatement::finish()
{
    readAll();
    sqlite3_reset(m_statement.get());
}

qint64 BareStatement::readAll()
{
    qint64 sum = 0;
    int code = SQLITE_ROW;
    while ((code = sqlite3_step(m_statement.get())) == SQLITE_ROW) {
        const int columns = sqlite3_column_count(m_statement.get());
        for (int column = 0; column < columns; ++column)
            sum += readColumn(m_statement.get(), column);
    }
    check(code == SQLITE_DONE);
    return sum;
}

void BareStatement::check(bool worked) const
{
    if (!worked)
        throw std::runtime_error(sqlite3_errmsg(m_file));
}

BareFile::BareFile(const QString &archivePath, Durability durability)
{
    sqlite3 *file = nullptr;
    const int code = sqlite3_open_v2(MachinePath(archivePath).toUtf8().constData(), &file,
                                     SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    m_file.reset(file, sqlite3_close);
    if (code != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(file));
    run(durability == Durability::Full ? "PRAGMA synchronous = EXTRA" : "PRAGMA synchronous = OFF");
}

QString BareFile::rows(const QString &sql)
{
    QStringList lines;
    const auto collect = [](void *context, int count, char **cells, char ** /*names*/) {
        QStringList row;
        for (int column = 0; column < count; ++column)
            row +=
                cells[column] == nullptr ? QStringLiteral("-") : QString::fromUtf8(cells[column]);
        *static_cast<QStringList *>(context) += row.join(u'|');
        return 0;
    };
    if (sqlite3_exec(m_file.get(), sql.toUtf8().constData(), collect, &lines, nullptr) != SQLITE_OK)
        throw std::runtime_error((sql + QStringLiteral(": ")).toStdString() +
                                 sqlite3_errmsg(m_file.get()));
    return lines.join(u'\n');
}

qint64 BareFile::lastRowId() const
{
    return sqlite3_last_insert_rowid(m_file.get());
}

} // namespace saldoro
