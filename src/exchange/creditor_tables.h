#pragma once

#include "common/program_values.h"
#include "exchange/archive_tables.h"
#include "exchange/cell_rows.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace saldoro {

/*
 * The creditors of a contract as an office without the suite lists them: the companies that take
 * part, associations with their members, and the professionals.
 */

/** The table that such a list is pasted into. Its fields are `Nome` and, for companies, `Mandanti`:
 *  the members of an association with ";" between their names. */
const ExchangedTable &CompanyList();
const ExchangedTable &ProfessionalList();

/** The names of all creditors that a project holds. */
struct KnownCreditors
{
    QStringList companies;    ///< of the register; those without a name are left out
    QStringList members;      ///< for each company those of the association, with "; " between them
    QStringList participants; ///< the companies that take part in the procedure
    QStringList professionals;
    QString contractor;              ///< empty for none
    bool isContractorLinked = false; ///< to a company of its name
};

/** Names that are among @p known or stand twice among @p rows, whatever their letter case, and
 *  headings of lists such as "Ragione sociale"; a fault's line is the row's number, from 1. */
QList<CellFault> NameFaults(const TableRows &rows, const QStringList &known);

/** NameFaults() of companies, the known ones being those that take part. It is also a fault if a
 *  member stands twice in its row or is the association itself, and if a company that is in the
 *  register already, where it stays what it is, is given members. */
QList<CellFault> CompanyFaults(const TableRows &rows, const KnownCreditors &known);

/** Throws DatabaseError. */
KnownCreditors ReadCreditors(const ProgramValues &values);

/**
 * Adds companies and professionals (rows of their lists) to the project, and makes @p contractor, a
 * company's name, the contractor, which is added when it is no company yet; empty leaves it as it
 * is. A company that is in the register already takes part from now on, and stays what it is there.
 * Members that are no companies yet become such, but take no part by themselves. New companies get
 * the numbers after the highest one that any table of their register holds, and so do their places
 * in the procedure. Professionals get the first free items I01, I02...
 *
 * All or nothing, in one transaction over both databases; copies are made beside both first.
 * Returns the copies' paths. Throws SaldoroError while any program has the project open, and when
 * CompanyFaults() of the companies or NameFaults() of the professionals find something by now;
 * DatabaseError, FieldTooSmall when there is no higher number; and FileError, also for a database
 * without a plain journal. Then nothing is changed, and there are no copies.
 */
QStringList AddCreditors(const ProgramValues &values, const TableRows &companies,
                         const TableRows &professionals, const QString &contractor);

} // namespace saldoro
