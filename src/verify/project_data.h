#pragma once

#include "common/currency.h"
#include "verify/findings.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <map>
#include <optional>
#include <set>

namespace saldoro {

/** A stored value that may be null or not of its type: "missing" is null alone, and the value is
 *  there only when it could be read. */
template <typename T>
struct Stored
{
    bool missing = false;
    std::optional<T> value;
};

/** A payment as stored; rows are those of the payments list, from 1. */
struct PaymentRow
{
    int row = 0;
    Stored<qint32> number;
    Stored<QString> kind;
    Stored<QString> creditor;
    QStringList nulls; ///< names of the fields without a value
    Stored<Currency> amount;
    Stored<Currency> vat;
    Stored<Currency> other;
};

/** An allocation as stored; rows are those of the table, from 1. */
struct AllocationRow
{
    int row = 0;
    Stored<qint32> payment;
    Stored<QString> code;
    Stored<Currency> amount;
};

/** A cost item of the budget; rows are those of the overview, from 1. */
struct BudgetRow
{
    int row = 0;
    Stored<QString> code;
    Stored<QString> description;
};

/** An item of the contract sheet. */
struct SheetRow
{
    QString code;
    QString text;
    Stored<qint32> link;
};

/** A row of the code map. */
struct CodeRow
{
    QString internalCode;
    Stored<QString> externalCode;
    Stored<QString> description;
};

/**
 * Everything that is checked, read once. A table that could not be read has no value: what is wrong
 * with it is a finding of the reading, and checks that need it are left out.
 */
struct ProjectData
{
    std::optional<QList<PaymentRow>> payments;
    std::optional<QList<AllocationRow>> allocations;
    std::optional<QList<BudgetRow>> budget;
    std::optional<QList<SheetRow>> sheet;
    std::optional<QList<CodeRow>> codes;
    std::optional<std::set<qint32>> companies; ///< the register's keys
};

/** "Pagamento 12 (riga 3, Edil Rossi)"; what is not known is left out or said to be missing. */
QString PaymentName(const PaymentRow &payment);

/** "Conto di spesa alla riga 4 (pagamento 12, codice A01)". */
QString AllocationName(const AllocationRow &allocation);

/** "Voce A01 (riga 2)". */
QString BudgetName(const BudgetRow &item);

/** How many payments have a number. */
std::map<qint32, int> PaymentCounts(const QList<PaymentRow> &payments);

/** Whether the program tells a professional from a company by this payment's kind. */
bool IsProfessional(const PaymentRow &payment);

/** A code as the databases compare it: without regard to letter case. */
QString ComparedCode(const QString &code);

/** External code of an internal one; no value when it is not mapped or the map was not read. */
std::optional<QString> ExternalCode(const ProjectData &data, const QString &internalCode);

} // namespace saldoro
