#pragma once

#include "common/currency.h"
#include "store/table_rows.h"
#include "verify/findings.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <map>
#include <optional>

namespace saldoro {

/** A table as a project holds it, read as the program reads it. */
struct ProjectTable
{
    TableDef definition;
    TableRows rows;

    /** The value of that kind in a row; none for a null and for a value of another kind. */
    template <typename Value>
    std::optional<Value> value(qsizetype row, const QString &field) const
    {
        return ValueAs<Value>(rows[row][definition.indexOf(field)]);
    }
    bool isNull(qsizetype row, const QString &field) const
    {
        return rows[row][definition.indexOf(field)] == NewValue();
    }
};

/** The tables of a project that can be read, by their names. */
using ProjectTables = std::map<QString, ProjectTable>;

/** A payment, an allocation or a cost item. What is read from a field has no value when the field
 *  holds null or a value of another kind. */
struct CheckedRow
{
    const ProjectTable *table = nullptr;
    qsizetype storedRow = 0;             ///< in stored order, from 0
    int row = 0;                         ///< in the order in which the program shows them, from 1
    std::optional<qint32> number = {};   ///< of the payment
    std::optional<QString> kind = {};    ///< of a payment's creditor
    std::optional<Currency> gross = {};  ///< what a payment adds up to
    bool isBeyondRange = false;          ///< whether that is more than an amount can be
    std::optional<QString> code = {};    ///< of the cost item
    QByteArray comparableCode = {};      ///< the code in its ComparableText() form
    std::optional<Currency> amount = {}; ///< of an allocation

    /** What the clerk knows it by: "Pagamento 12 (riga 3, Edil Rossi)", "Voce A01 (riga 2)",
     *  "Conto di spesa alla riga 4 (pagamento 12, codice A01)". */
    QString name() const;
    bool isNull(const QString &field) const { return table->isNull(storedRow, field); }
};

/** A project as the checks see it. Each check adds what it finds to the findings and passes over
 *  what needs a table that can't be read; such a table has no rows here. */
struct CheckedProject
{
    const ProjectTables &tables;
    QList<CheckedRow> payments;    ///< as their list shows them
    QList<CheckedRow> allocations; ///< as they are stored
    QList<CheckedRow> budget;      ///< as the overview shows it

    /** @param read outlives the object. */
    explicit CheckedProject(const ProjectTables &read);
    /** Null for one that can't be read. */
    const ProjectTable *table(const QString &name) const;
};

/** A finding about a row. */
Finding FindingAt(const CheckedRow &row, FindingGroup group, const QString &problem,
                  QStringView remedy);

} // namespace saldoro
