#pragma once

#include "common/errors.h"
#include "database/database.h"

#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include <sqlite3.h>

namespace saldoro {

/** A second connection to a file, past the database layer, as another program would have it. */
class DirectConnection
{
public:
    explicit DirectConnection(const QString &path)
    {
        sqlite3_open(path.toUtf8().constData(), &m_handle);
    }
    ~DirectConnection() { sqlite3_close(m_handle); }
    DirectConnection(const DirectConnection &) = delete;
    DirectConnection &operator=(const DirectConnection &) = delete;

    /** Runs @p sql; the rows one a line, cells joined by "|", a null as "-". */
    QString run(const QString &sql)
    {
        QStringList rows;
        const auto collect = [](void *context, int count, char **cells, char ** /*names*/) {
            QStringList row;
            for (int column = 0; column < count; ++column)
                row.append(cells[column] == nullptr ? QStringLiteral("-")
                                                    : QString::fromUtf8(cells[column]));
            static_cast<QStringList *>(context)->append(row.join(u'|'));
            return 0;
        };
        char *message = nullptr;
        if (sqlite3_exec(m_handle, sql.toUtf8().constData(), collect, &rows, &message) != SQLITE_OK)
            rows.append(QStringLiteral("error: ") + QString::fromUtf8(message));
        sqlite3_free(message);
        return rows.join(u'\n');
    }

private:
    sqlite3 *m_handle = nullptr;
};

/** A fault with its place, as "4 Tabella.Campo". */
inline QString Fault(DatabaseFault fault, const QString &table = {}, const QString &field = {})
{
    return QStringLiteral("%1 %2.%3").arg(static_cast<int>(fault)).arg(table, field);
}

/** The fault that @p action runs into, as Fault() gives it; empty without. */
template <typename Action>
QString FaultOf(const Action &action)
{
    try {
        action();
    } catch (const DatabaseError &error) {
        return Fault(error.fault(), error.detail(QStringLiteral("Tabella")),
                     error.detail(QStringLiteral("Campo")));
    }
    return {};
}

/** The field @p name of all records from the first on, joined by blanks; a null reads "-". */
inline QString Walk(RecordSet &set, const QString &name)
{
    QStringList texts;
    for (set.moveFirst(); !set.eof(); set.moveNext()) {
        const FieldValue value = set.field(name);
        texts.append(value.isNull() ? QStringLiteral("-") : value.text());
    }
    return texts.join(u' ');
}

/** The field @p name of all records that meet @p criterion, found one after the other. */
inline QString FindAll(RecordSet &set, const QString &criterion, const QString &name)
{
    QStringList texts;
    for (set.findFirst(criterion); !set.noMatch(); set.findNext(criterion))
        texts.append(set.field(name).textOrEmpty());
    return texts.join(u' ');
}

} // namespace saldoro
