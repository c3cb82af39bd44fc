#pragma once

#include "common/program_values.h"

#include <QStringList>

namespace saldoro {

/** Creditors offered for a professional's payment: the texts, without blanks around them, of the
 *  contract sheet's items that have the professionals' tag, in stored order; empty ones are left
 *  out. */
QStringList ProfessionalCreditors(const ProgramValues &values);

/** Companies of the procedure whose name starts with @p prefix (which may hold wildcards), by
 *  name; one that takes part twice, twice. An empty prefix gives all. Companies whose name is null
 *  are left out; a name that is an empty text gives an empty line. */
QStringList ParticipatingCompanies(const ProgramValues &values, const QString &prefix);

} // namespace saldoro
