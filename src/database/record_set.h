#pragma once

#include "database/field_value.h"

#include <QString>

#include <memory>

namespace saldoro {

class RecordRows;

/**
 * The records of a query as they were when the set was first used, values and order included; what
 * other programs write later does not show. Changes are written through: each update() and
 * deleteRecord() is one atomic statement on one record, and outside a Transaction it is on the disk
 * when it returns. Deleted records are passed over from then on, added ones come last.
 *
 * Texts are compared without regard to letter case (see CompareText).
 *
 * A set that was moved from can only be destroyed or assigned to.
 */
class RecordSet
{
public:
    RecordSet(RecordSet &&other) noexcept;
    RecordSet &operator=(RecordSet &&other) noexcept;
    RecordSet(const RecordSet &) = delete;
    RecordSet &operator=(const RecordSet &) = delete;
    ~RecordSet();

    /** True when the set is empty or its last record was passed. A set that was just opened stands
     *  on its first record. */
    bool eof() const;
    /** True when the set holds no record at all (deleted ones do not count). */
    bool isEmpty() const { return recordCount() == 0; }
    /** Whether records can be added, changed and deleted. */
    bool isUpdatable() const;
    /** Number of records, deleted ones not counted. */
    int recordCount() const;

    /** Moves to the first or last record; no current record (and eof) when the set is empty. */
    void moveFirst();
    void moveLast();
    /** Moves on; past the last record eof() becomes true. Throws NoCurrentRecord once that is so.
     *  After a deletion it moves to the record that followed the deleted one. */
    void moveNext();

    /**
     * Finds the first record, or the next one after the current, that meets @p criterion:
     * "Field = literal" or "Field Like 'pattern'", blanks around the operator optional; a literal
     * is a whole number with optional sign or a quoted text with apostrophes doubled. A null meets
     * no criterion. Without a match noMatch() becomes true and there is no current record: only
     * moveFirst(), moveLast() and findFirst() lead on from there, the others throw NoCurrentRecord
     * (in an empty set findNext() finds nothing instead). Throws SyntaxError for anything else,
     * TypeMismatch for a number against a field of texts or days, or "=" with a quoted text against
     * one of numbers or days, FieldMissing.
     *
     * A text is looked up in an index, which is made when first asked for and again after a write;
     * every other find goes over the records.
     */
    void findFirst(const QString &criterion);
    void findNext(const QString &criterion);
    bool noMatch() const;

    /** Position of a field in this set, for loops that read many records. Throws FieldMissing. */
    int column(const QString &name) const;

    /** A field of the current record. Throws NoCurrentRecord, FieldMissing. */
    FieldValue field(const QString &name) const { return field(column(name)); }
    FieldValue field(int column) const;

    /** Starts a new record or the change of the current one. set() fills a buffer, update() writes
     *  it. A field that is not set keeps its value; in a new record it gets the file's default,
     *  which shows when the set is opened again. Throws ReadOnly when the set is not updatable,
     *  edit() also NoCurrentRecord. */
    void addNew();
    void edit();
    /** field() goes on reading the record, not the buffer; any move or find empties the buffer.
     *  Throws FieldTooSmall, TypeMismatch, FieldMissing, Other without addNew() or edit() before.
     */
    void set(const QString &name, const NewValue &value);
    /** Writes the buffer in one statement. The current record stays the same, also after addNew().
     *  Throws RecordGone when another program has deleted it, NotStored when a rule of the file
     *  (trigger, check, index) kept it from being written, NullValue and ZeroLengthRefused for a
     *  field that the file wants filled, Locked, ReadOnly, DiskFull, Other without addNew() or
     *  edit() before. */
    void update();
    /** Deletes the current record; moveNext() and findNext() go on from its place. A change that
     *  was begun by addNew() or edit() ends. It is no error when another program has deleted it
     *  already. Throws NoCurrentRecord, NotStored, Locked, ReadOnly, DiskFull. */
    void deleteRecord();

private:
    friend class Database;
    explicit RecordSet(std::unique_ptr<RecordRows> rows);

    struct Data;
    Data &filled() const;
    std::unique_ptr<Data> m_data;
};

} // namespace saldoro
