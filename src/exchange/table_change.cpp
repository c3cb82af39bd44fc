#include "exchange/table_change.h"

#include "common/errors.h"
#include "database/table_refill.h"
#include "database/text_order.h"
#include "platform/progress.h"

#include <QFileInfo>
#include <QHash>

#include <algorithm>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QString shownValue(const NewValue &value)
{
    const auto *number = std::get_if<qint32>(&value);
    return number == nullptr ? TextOf(value) : QString::number(*number);
}

/** The indexes of the rows of each key, as the databases compare keys. */
using RowsOfKey = QHash<QByteArray, QList<qsizetype>>;

QByteArray comparableKey(const ExchangedTable &table, const TableRow &row)
{
    return ComparableText(KeyOf(table, row).toUtf8());
}

RowsOfKey rowsOfKeys(const ExchangedTable &table, const TableRows &rows)
{
    RowsOfKey rowsOf;
    for (qsizetype row = 0; row < rows.size(); ++row)
        rowsOf[comparableKey(table, rows[row])].append(row);
    return rowsOf;
}

/** For each stored row the fields with a value that nobody here knows. */
QList<QStringList> unknownValues(const Database &database, const ExchangedTable &table)
{
    RecordSet records = database.openRecordSet(u"SELECT * FROM "_s + table.name());
    const QStringList unknown = UnknownFields(database, table);
    QList<QStringList> rows;
    for (; !unknown.isEmpty() && !records.eof(); records.moveNext()) {
        rows.append(QStringList());
        for (const QString &field : unknown) {
            if (!records.field(field).isNull())
                rows.last().append(field);
        }
    }
    return rows;
}

/** What those fields hold. */
TableRows partOf(const TableRows &rows, const ExchangedTable &table, const QStringList &fields)
{
    if (fields.size() == table.definition.fields().size() && fields == table.fieldNames())
        return rows;
    TableRows parts;
    for (const TableRow &row : rows) {
        parts.append(TableRow());
        for (const QString &field : fields)
            parts.last().append(row[table.indexOf(field)]);
    }
    return parts;
}

bool haveSameRows(TableRows one, TableRows other)
{
    if (one == other)
        return true;
    std::ranges::sort(one); // a table that keeps an order of its own
    std::ranges::sort(other);
    return one == other;
}

/** Gives the new rows what they do not name from the stored row of the same key. What would be lost
 *  goes to @p errors. @p unknown are the filled fields of each stored row that the table lacks. */
void keepUnnamed(TableChange &change, const GivenTable &given, const QList<QStringList> &unknown,
                 QStringList &errors)
{
    const ExchangedTable &table = *given.table;
    QStringList unnamed = table.fieldNames();
    for (const QString &field : given.fields)
        unnamed.removeOne(field);
    const RowsOfKey old = rowsOfKeys(table, change.stored);
    const RowsOfKey coming = rowsOfKeys(table, given.rows);
    for (qsizetype at = 0; at < change.stored.size(); ++at) {
        const TableRow &row = change.stored[at];
        const QByteArray key = comparableKey(table, row);
        const QList<qsizetype> takers = coming.value(key);
        const bool isPair = takers.size() == 1 && old.value(key).size() == 1;
        QStringList kept = unknown.value(at);
        for (const QString &field : takers.isEmpty() ? QStringList() : unnamed) {
            const NewValue &value = row[table.indexOf(field)];
            if (isPair)
                change.rows[takers.first()][table.indexOf(field)] = value;
            if (value != NewValue())
                kept.append(field);
        }
        if (isPair)
            change.formers[takers.first()] = at;
        else if (!kept.isEmpty())
            errors.append(
                u"%1: la riga «%2» dell'archivio perderebbe i valori di %3, che il file non dà: %4."_s
                    .arg(given.source, KeyOf(table, row), kept.join(u", "_s),
                         takers.isEmpty() ? u"nel file non c'è"_s
                                          : u"più righe hanno la stessa chiave"_s));
    }
}

} // namespace

QString KeyOf(const ExchangedTable &table, const TableRow &row)
{
    QStringList parts;
    for (const QString &field : table.keyFields)
        parts.append(shownValue(row[table.indexOf(field)]));
    return parts.join(u'|');
}

TableChange ChangeOf(const Database &database, const GivenTable &given, QStringList &errors)
{
    const ExchangedTable &table = *given.table;
    if (!database.tableDef(table.name())) {
        errors.append(given.source + u": "_s + QFileInfo(database.path()).fileName() +
                      (database.isStoredQuery(table.name())
                           ? u" ha sotto questo nome un'interrogazione, che non si sostituisce."_s
                           : u" non ha questa tabella."_s));
        return {};
    }
    TableChange change{StoredRows(database, table.definition), given.rows};
    const QStringList &named = given.fields;
    change.isNeeded = partOf(change.stored, table, named) != partOf(given.rows, table, named);
    change.formers.resize(given.rows.size());
    if (!change.isNeeded || change.stored.isEmpty())
        return change;
    keepUnnamed(change, given, unknownValues(database, table), errors);
    return change;
}

TableRows DroppedRows(const ExchangedTable &table, const TableChange &change)
{
    TableRows dropped;
    if (change.stored.isEmpty())
        return dropped;
    const RowsOfKey coming = rowsOfKeys(table, change.rows);
    for (const TableRow &row : change.stored) {
        if (!coming.contains(comparableKey(table, row)))
            dropped.append(row);
    }
    return dropped;
}

void WriteChange(const Database &database, const GivenTable &given, const TableChange &change)
{
    const ExchangedTable &table = *given.table;
    const TableRows rows = partOf(given.rows, table, given.fields);
    TableRefill refill(database, table.name(), given.fields);
    Progress progress(u"Scrittura di "_s + table.name());
    for (qsizetype row = 0; row < rows.size(); ++row) {
        WithDetail(
            Detail::Row, [&] { return given.rowName(row); },
            [&] { refill.add(rows[row], change.formers[row]); });
        progress.show(row);
    }
}

bool IsWritten(const GivenTable &given, const TableRows &stored)
{
    return haveSameRows(partOf(stored, *given.table, given.fields),
                        partOf(given.rows, *given.table, given.fields));
}

} // namespace saldoro
