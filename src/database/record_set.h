#pragma once

#include "common/currency.h"

#include <QByteArrayView>
#include <QDate>
#include <QString>

#include <memory>
#include <optional>
#include <variant>

namespace saldoro {

class RecordSetData;

/**
 * What one field of the current record holds, with its place for error texts. A value stays valid
 * only until the record set moves, changes or is closed: read it at once.
 *
 * Reading a null throws NullValue, save by the forms "OrEmpty", "OrNone" and "isNull"; a stored
 * value that is not of the type asked for throws TypeMismatch; a number beyond the type
 * FieldTooSmall.
 */
class FieldValue
{
public:
    bool isNull() const;

    /** The value as text: numbers in plain decimal form, dates as dd/MM/yyyy. */
    QString text() const;
    /** As text(), a null giving the empty text. */
    QString textOrEmpty() const;

    /** The bytes of a stored text as they are, a day's included; no value for a null, a
     *  number or bytes that are no text.
     *  Valid until the set changes. */
    std::optional<QByteArrayView> storedBytes() const;

    /** A currency field's exact value; whole and floating numbers are converted (ties to even). A
     *  number in a column without declared type (an expression of a stored query) is taken as a
     *  count of ten-thousandths. */
    Currency currency() const;
    /** As currency(), a null giving no value. */
    std::optional<Currency> currencyOrNone() const;

    qint32 integer() const;

    /** A date field's day; an invalid QDate for the empty text that some date fields hold. */
    QDate date() const;
    /** As date(), a null or anything that is no date giving an invalid QDate. */
    QDate dateOrNone() const;

private:
    friend class RecordSet;
    FieldValue(const RecordSetData *data, int column)
        : m_data(data)
        , m_column(column)
    {
    }
    const RecordSetData *m_data;
    int m_column;
};

/** What can be written into a field: null, text, a whole number, a currency value, a day, a
 *  floating number. Text for a date field is read as dd/MM/yyyy. */
using NewValue = std::variant<std::monostate, QString, qint32, Currency, QDate, double>;

/**
 * An updatable key set over the rows of a query. The set of records and their order are fixed when
 * the set is first used; deleted records are passed over from then on, added ones come last. Each
 * update() and deleteRecord() is one atomic statement that reaches the disk before it returns.
 *
 * Text is compared without regard to letter case, as the engine's general sort order does.
 *
 * Not copyable; moving leaves the source closed.
 */
class RecordSet
{
public:
    RecordSet(RecordSet &&other) noexcept;
    RecordSet &operator=(RecordSet &&other) noexcept;
    RecordSet(const RecordSet &) = delete;
    RecordSet &operator=(const RecordSet &) = delete;
    ~RecordSet();

    /** True when there is no current record because the set is empty or the last was passed. A
     *  set that was just opened stands on its first record. */
    bool eof() const;
    /** True when the set holds no record at all (deleted ones do not count). */
    bool isEmpty() const;
    /** Number of records, deleted ones not counted. */
    int recordCount() const;

    /** Moves to the first or last record; no current record (and eof) when the set is empty. */
    void moveFirst();
    void moveLast();
    /** Moves on; past the last record eof() becomes true. Throws NoCurrentRecord at eof. After a
     *  deletion it moves to the record that followed the deleted one. */
    void moveNext();

    /**
     * Finds the first record, or the next one after the current, that meets @p criterion:
     * "Field = literal" or "Field Like 'pattern'", blanks around the operator optional; a literal
     * is a whole number with optional sign or a quoted text with apostrophes doubled. A null meets
     * no criterion. Without a match noMatch() becomes true and there is no current record: only
     * moveFirst(), moveLast() and findFirst() lead on from there, the others throw NoCurrentRecord.
     * Throws SyntaxError for anything else, TypeMismatch for a quoted text against a number field
     * or the other way round, FieldMissing.
     */
    void findFirst(const QString &criterion);
    void findNext(const QString &criterion);
    bool noMatch() const;

    /** Position of a field in this set, for loops that read many records. Throws FieldMissing. */
    int column(const QString &name) const;

    /** A field of the current record. Throws NoCurrentRecord, FieldMissing. */
    FieldValue field(const QString &name) const;
    FieldValue field(int column) const;

    /** Starts a new record or the change of the current one. set() fills its buffer, update()
     *  writes it; a field that is not set keeps its value, in a new record the file's default.
     *  Throws ReadOnly on joins and stored queries, edit() also NoCurrentRecord. */
    void addNew();
    void edit();
    /** Field values are read as stored, not from the buffer, and any move or find empties it.
     *  Throws FieldTooSmall, ZeroLengthRefused, TypeMismatch, FieldMissing. */
    void set(const QString &name, const NewValue &value);
    /** Writes the buffer in one statement. After addNew() the current record is the one that was
     *  current before; after edit() the changed one. Throws RecordGone when another program has
     *  deleted it, NullValue for a field that the file wants filled, Locked, ReadOnly, DiskFull. */
    void update();
    /** Deletes the current record; it stays the (unreadable) position for moveNext/findNext. One
     *  that another program has deleted meanwhile is passed over without an error. Throws
     *  NoCurrentRecord, Locked, ReadOnly, DiskFull. */
    void deleteRecord();

    /** Lets go of the records. Any later use throws NoCurrentRecord. */
    void close();

private:
    friend class Database;
    explicit RecordSet(std::unique_ptr<RecordSetData> data);
    RecordSetData &opened() const;
    std::unique_ptr<RecordSetData> m_data;
};

} // namespace saldoro
