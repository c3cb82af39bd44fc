#pragma once

#include "common/currency.h"
#include "common/program_values.h"
#include "database/database.h"
#include "database/record_set.h"

#include <QList>
#include <QPair>
#include <QString>

#include <optional>

namespace saldoro {

/** Field names and what to write into them. */
using FieldList = QList<QPair<QString, NewValue>>;

/** Adds rows to one table whose file stays open meanwhile; each row is on disk when add() returns.
 */
class RowAppender
{
public:
    /** @p path is an archive path. */
    RowAppender(const QString &path, const QString &table);

    /** A new row; fields not named stay null. */
    void add(const FieldList &fields);

private:
    Database m_database;
    RecordSet m_records;
};

/**
 * Makes archives as the suite would: the folder tree below a root, the suite's databases with
 * their tables, an empty ledger, and rows in all of them. Serves the demo archive and the tests.
 * Every write goes through the database layer.
 */
class ArchiveBuilder
{
public:
    /** Makes the folders and empty databases of a project below @p root (a machine path). */
    ArchiveBuilder(const QString &root, const QString &projectCode);

    /** For adding to a project that is there already. */
    static ArchiveBuilder ofExisting(const QString &root, const QString &projectCode);

    /** ArchiveRoot and ProjectCode for programs that work on this archive. */
    const ProgramValues &values() const { return m_values; }

    void addCode(const QString &internalCode, const QString &externalCode,
                 const QString &description);
    /** All codes of UsedCodes with their standard items. */
    void addStandardCodes();
    /** A row of the contract sheet; fields not named stay null. */
    void addSheetItem(const FieldList &fields);
    /** A cost item of the budget; no amount leaves it null. */
    void addBudgetItem(const QString &code, const QString &description,
                       std::optional<Currency> amount);
    void addCompany(qint32 id, const QString &name, const QString &kind);
    void addParticipant(qint32 order, qint32 companyId);
    void addPrincipal(qint32 associationId, qint32 companyId);
    /** A row of the ledger; fields not named stay null. */
    void addPayment(const FieldList &fields);
    void addAllocation(qint32 paymentNumber, const QString &code, const QString &description,
                       std::optional<Currency> amount);

private:
    explicit ArchiveBuilder(ProgramValues values);

    ProgramValues m_values;
};

} // namespace saldoro
