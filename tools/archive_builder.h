#pragma once

#include "common/currency.h"
#include "common/program_values.h"
#include "platform/record_set.h"

#include <QList>
#include <QPair>
#include <QString>

#include <optional>

namespace saldoro {

/** Field names and what to write into them. */
using FieldList = QList<QPair<QString, NewValue>>;

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

    /** ArchiveRoot, ProjectCode and build text for programs that work on this archive. */
    const ProgramValues &values() const { return m_values; }

    void addCode(const QString &internalCode, const QString &externalCode,
                 const QString &description);
    /** The internal codes that the program uses, mapped to made-up external ones. */
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
    ProgramValues m_values;
};

} // namespace saldoro
