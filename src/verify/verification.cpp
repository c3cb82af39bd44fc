#include "verify/verification.h"

#include "verify/checks.h"

namespace saldoro {

Findings VerifyProject(const ProjectFiles &files)
{
    Findings findings;
    const ProjectData data = ReadProject(files, findings);
    for (const auto check :
         {CheckPayments, CheckNumbering, CheckAllocations, CheckBudget, CheckCodes, CheckContract})
        check(data, findings);
    return findings;
}

} // namespace saldoro
