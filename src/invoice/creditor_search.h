#pragma once

#include "common/program_values.h"

#include <QStringList>

namespace saldoro {

/** Creditors offered for a professional's payment: the contract sheet's items of tag 17 that hold
 *  a text, without blanks around it. */
QStringList ProfessionalCreditors(const ProgramValues &values);

/** Companies of the procedure whose name starts with @p prefix (which may hold wildcards), by
 *  name. An empty prefix gives them all. */
QStringList ParticipatingCompanies(const ProgramValues &values, const QString &prefix);

} // namespace saldoro
