#pragma once

#include "exchange/cell_rows.h"
#include "exchange/csv_table.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace saldoro {

/*
 * The creditors of a contract as an office without the suite lists them: the companies that take
 * part, associations with their members, and the professionals.
 */

/** What such a list is brought in as: `Nome`, and for companies `Mandanti`, the members of an
 *  association with ";" between their names. */
const ExchangedTable &CompanyList();
const ExchangedTable &ProfessionalList();

/** The creditors that a project holds; a text for each field of their list. */
struct KnownCreditors
{
    QList<QStringList> companies;
    QList<QStringList> professionals;
    QString contractor; ///< name; empty for none
};

/** Reads them from the project in @p folder (of the machine). Throws DatabaseError. */
KnownCreditors ReadCreditors(const QString &folder);

/** Names that are there already or stand twice among @p rows, whatever their letter case; a fault's
 *  line is the place among the rows. */
QList<CellFault> RepeatedNames(const TableRows &rows, const QList<QStringList> &known);

/**
 * The tables of the project, to be imported, with companies and professionals more (rows of their
 * lists) and @p contractor, a company's name, as the contractor; empty leaves it as it is. Members
 * that are no companies yet become such, but take no part by themselves. Companies and companies'
 * order numbers go on from the highest, professionals get the first free items I01, I02... Throws
 * DatabaseError.
 */
QList<CsvTable> TablesWithCreditors(const QString &folder, const TableRows &companies,
                                    const TableRows &professionals, const QString &contractor);

} // namespace saldoro
