#pragma once

#include "common/program_values.h"

#include <QStringList>

namespace saldoro {

/** Marks the items of the contract sheet that are professionals. */
inline constexpr qint32 ProfessionalTag = 17;

/** Creditors offered for a professional's payment: the contract sheet's items with that tag that
 *  hold a text, without blanks around it. */
QStringList ProfessionalCreditors(const ProgramValues &values);

/** Companies of the procedure whose name starts with @p prefix (which may hold wildcards), by
 *  name; one that takes part twice, twice. An empty prefix gives them all. */
QStringList ParticipatingCompanies(const ProgramValues &values, const QString &prefix);

} // namespace saldoro
