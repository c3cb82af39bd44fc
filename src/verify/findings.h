#pragma once

#include <QList>
#include <QString>

namespace saldoro {

/** What a finding is about; the report lists them in this order. */
enum class FindingGroup
{
    Files,
    Values,
    Payments,
    Numbering,
    Allocations,
    Budget,
    Codes,
    Contract
};

/** One thing that will trip the clerk. */
struct Finding
{
    FindingGroup group = FindingGroup::Files;
    QString place;   ///< payment, row, code... that it is found at
    QString problem; ///< what is wrong and what comes of it
    QString remedy;  ///< what to do
};

using Findings = QList<Finding>;

/** The report, grouped, one finding after the other in the order they were made; a last line with
 *  their number. Ends with a line end. */
QString FindingsReport(const Findings &findings);

} // namespace saldoro
