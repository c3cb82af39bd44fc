#pragma once

#include "bare_file.h"
#include "common/errors.h"
#include "database/database.h"

#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include <stdexcept>

namespace saldoro {

/** A test of database files, each of which it makes in a folder of its own. */
class FilesTest : public QObject
{
protected:
    QString newPath() { return m_folder.filePath(QStringLiteral("prova%1.mdb").arg(++m_files)); }

    QTemporaryDir m_folder;

private:
    int m_files = 0;
};

/** A second connection to a file, past the database layer, whose errors are texts. */
class DirectConnection : private BareFile
{
public:
    using BareFile::BareFile;

    /** Runs @p sql; the rows as BareFile gives them, or "error: " and why. */
    QString run(const QString &sql)
    {
        try {
            return rows(sql);
        } catch (const std::runtime_error &error) {
            return QStringLiteral("error: ") + QString::fromUtf8(error.what());
        }
    }
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
        return Fault(error.fault(), error.detail(Detail::Table), error.detail(Detail::Field));
    }
    return {};
}

/** Writes one field of a new record; FaultOf() that. */
inline QString Add(RecordSet &set, const QString &field, const NewValue &value)
{
    set.addNew();
    return FaultOf([&] {
        set.set(field, value);
        set.update();
    });
}

/** The same for the current record. */
inline QString Change(RecordSet &set, const QString &field, const NewValue &value)
{
    set.edit();
    return FaultOf([&] {
        set.set(field, value);
        set.update();
    });
}

/** The field @p name of all records from the first on, joined by blanks; a null reads "-". */
inline QString Walk(RecordSet &set, const QString &name)
{
    QStringList texts;
    set.moveFirst();
    for (; !set.eof() && texts.size() <= set.recordCount(); set.moveNext()) {
        const FieldValue value = set.field(name);
        texts.append(value.isNull() ? QStringLiteral("-") : value.text());
    }
    return texts.join(u' ');
}

/** The field @p name of all records that meet @p criterion, found one after the other. */
inline QString FindAll(RecordSet &set, const QString &criterion, const QString &name)
{
    QStringList texts;
    set.findFirst(criterion);
    // One more than there are would be a fault that never ends.
    for (; !set.noMatch() && texts.size() <= set.recordCount(); set.findNext(criterion))
        texts.append(set.field(name).textOrEmpty());
    return texts.join(u' ');
}

/** A table with a field of each type; texts of five characters. */
inline TableDef AllTypes(const QString &name = QStringLiteral("Tipi"))
{
    TableDef table(name);
    for (const auto &[field, type] : {std::pair(QStringLiteral("Codice"), FieldType::Text),
                                      {QStringLiteral("Libero"), FieldType::Text},
                                      {QStringLiteral("Note"), FieldType::Memo},
                                      {QStringLiteral("Breve"), FieldType::Integer},
                                      {QStringLiteral("Lungo"), FieldType::Long},
                                      {QStringLiteral("Soldi"), FieldType::Currency},
                                      {QStringLiteral("Tasso"), FieldType::Double},
                                      {QStringLiteral("Del"), FieldType::Date}})
        table.appendField(field, type, 5, field == QStringLiteral("Libero"));
    return table;
}

/** A new database with the table Tipi of AllTypes(). */
inline Database Created(const QString &path)
{
    Database database = Database::create(path, QStringLiteral(";LANGID=0x0409;CP=1252;COUNTRY=0"));
    database.appendTableDef(AllTypes());
    return database;
}

} // namespace saldoro
