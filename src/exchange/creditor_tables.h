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
    bool isContractorLinked = false; ///< to a company of its name, see CheckContractor()
};

/** Names that are among @p known or stand twice among @p rows, whatever their letter case, and
 *  headings of lists such as "Ragione sociale"; a fault's line is the row's number, from 1. */
QList<CellFault> NameFaults(const TableRows &rows, const QStringList &known);

/** NameFaults() of companies, the known ones being those that take part. Further faults: a member
 *  twice in a row, an association as its own member, members for a company that is in the register
 *  already. */
QList<CellFault> CompanyFaults(const TableRows &rows, const KnownCreditors &known);

/** Throws DatabaseError. */
KnownCreditors ReadCreditors(const ProgramValues &values);

/**
 * Adds companies and professionals (rows of their lists) to the project. Makes @p contractor the
 * contractor; a company of that name is added if there is none. An empty name leaves the contractor
 * as it is (how a chosen one follows its corrected name: office/frm_creditori). A company that is
 * in the register already takes part from now on, and stays what it is there. Members that are no
 * companies yet become such, but take no part by themselves. New companies are numbered on from the
 * highest number that any table of the register holds, new places in the procedure from the highest
 * place. Professionals get the first free items I01, I02...
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
