#pragma once

#include <QList>
#include <QString>

#include <exception>
#include <type_traits>
#include <utility>

namespace saldoro {

/** What an error can tell beside its problem: each is a line of the report, under its own label. */
enum class Detail
{
    File,        ///< path of the machine
    Table,       ///< of a database
    Field,       ///< of a table
    Particulars, ///< somebody else's words, such as the engine's
    Payment,     ///< its number
    Payments,    ///< the kind of creditor they go to
    Row,         ///< of a grid, a table or a file
    Rows,        ///< a number of rows
    Column,      ///< of a grid
    Item,        ///< external code of a cost item, or what stands in "Voce" of the contract sheet
    Code,        ///< internal code
    Creditor,
    Outcome,     ///< whether something was written
    AlreadyDone, ///< what stays in spite of the error
    FilesReplaced
};

/** How a detail is called in a report, such as "Pagamento". */
QString LabelOf(Detail detail);

/**
 * Root of every error of the program. Its text is Italian and meant for the person at the screen:
 * what happened, where (file, table, field, payment...) and what to do about it.
 *
 * Saldoro lets these pass up to the last-resort handler around the event loop, which shows them.
 */
class SaldoroError : public std::exception
{
public:
    /** @param problem what is wrong, in one Italian sentence
     *  @param remedy what the user can do, in one Italian sentence; may be empty */
    explicit SaldoroError(QString problem, QString remedy = {});

    /** Adds a line such as "Pagamento: 12", unless @p value is empty. A detail that the error has
     *  already stays as it is, so the place nearest to the fault wins. */
    void addDetail(Detail detail, const QString &value);

    const QString &problem() const { return m_problem; }
    const QString &remedy() const { return m_remedy; }

    /** A detail's value; empty when the error does not have it. */
    QString detail(Detail detail) const;

    /** The whole report: the problem, the details, one on each line, the remedy. */
    QString message() const;

    /** The same report in UTF-8; valid as long as the error. */
    const char *what() const noexcept override;

private:
    QString m_problem;
    QString m_remedy;
    QList<std::pair<Detail, QString>> m_details;
    mutable QByteArray m_what;
};

/** A result beyond the range of a currency value, a counter or a whole number. */
class OverflowError : public SaldoroError
{
public:
    using SaldoroError::SaldoroError;
};

/** An index beyond the bounds of a fixed table, such as the pick list of cost items. */
class BoundsError : public SaldoroError
{
public:
    using SaldoroError::SaldoroError;
};

/** A file other than a database that cannot be read or written. */
class FileError : public SaldoroError
{
public:
    /** @param path the machine's path of the file, shown with its separators as Detail::File. */
    FileError(const QString &path, const QString &problem, const QString &remedy = {});
};

/** What a database operation can run into. */
enum class DatabaseFault
{
    FileMissing,       ///< no such file, or its folder is missing
    FileExists,        ///< creation found a file of that name
    NotADatabase,      ///< the file is there but is no database, or is damaged
    Locked,            ///< another program kept the file for Database::LockWaitMilliseconds
    ReadOnly,          ///< the file, the medium or the record set accepts no change
    DiskFull,          ///< no room left, or a write that the disk did not carry out
    ReadFailed,        ///< permissions, the disk or the network keep the file from being read
    TableMissing,      ///< the query names a table that the file does not hold
    FieldMissing,      ///< no field of that name in the record set
    SyntaxError,       ///< a query or criterion that cannot be read
    NoCurrentRecord,   ///< a field was asked for without a current record
    NullValue,         ///< a null was read where a value is needed
    TypeMismatch,      ///< the stored or given value is not of the type asked for
    FieldTooSmall,     ///< a text longer than its field, or a number beyond its range
    ZeroLengthRefused, ///< an empty text for a field that does not accept one
    RecordGone,        ///< the record was deleted meanwhile by another program
    NotStored,         ///< a rule of the file kept a record from being written or deleted
    OtherEncoding,     ///< one transaction over files that keep their texts in different encodings
    Endless,           ///< a query that takes too long or gives too much
    Other              ///< anything else that the engine reports
};

/** A failure of the database layer; with the details File (a path of the machine), Table, Field and
 *  Particulars (the constructor's @c extra) as far as they are known. */
class DatabaseError : public SaldoroError
{
public:
    DatabaseError(DatabaseFault fault, const QString &file, const QString &table = {},
                  const QString &field = {}, const QString &extra = {});

    DatabaseFault fault() const { return m_fault; }

private:
    DatabaseFault m_fault;
};

/**
 * Calls @p action and returns what it returns. An error in it gets @p detail. @p value is the
 * detail's text, or a function that finds the text and is called for an error only.
 */
template <typename Value, typename Action>
auto WithDetail(Detail detail, const Value &value, const Action &action)
{
    try {
        return action();
    } catch (SaldoroError &error) {
        if constexpr (std::is_invocable_v<Value>)
            error.addDetail(detail, value());
        else
            error.addDetail(detail, value);
        throw;
    }
}

} // namespace saldoro
