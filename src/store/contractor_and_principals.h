#pragma once

#include "common/program_values.h"

#include <QStringList>

namespace saldoro {

/** What the register of companies calls an association. */
inline constexpr QStringView AssociationKind = u"ATI";

/** The contractor of the contract. */
struct Contractor
{
    /** Identity in the register of companies; 0 or less when there is no link, -1 when the
     *  contract sheet names no contractor. */
    qint32 IdImpresa = -1;
    /** The creditor that a new payment starts with; empty when no contractor is named. */
    QString name;
    /** Whether it is an association of companies, whose principals may be listed. */
    bool isAssociation = false;
};

/** Looks the contractor up in the contract sheet and, when linked, in the register of companies.
 *  A contractor without a link value (null) throws NullValue; database errors pass. */
Contractor LoadContractor(const ProgramValues &values);

/** Principals of the association @p IdImpresa, by name; one without a name is an empty text. */
QStringList Principals(const ProgramValues &values, qint32 IdImpresa);

} // namespace saldoro
