#include "verify/findings.h"

#include "common/characters.h"

#include <array>
#include <utility>

namespace saldoro {

namespace {

using namespace Qt::StringLiterals;

constexpr std::array<std::pair<FindingGroup, QStringView>, 8> Groups{{
    {FindingGroup::Files, u"Archivi"},
    {FindingGroup::Values, u"Valori"},
    {FindingGroup::Payments, u"Pagamenti"},
    {FindingGroup::Numbering, u"Numerazione dei pagamenti"},
    {FindingGroup::Allocations, u"Conti di spesa dei pagamenti"},
    {FindingGroup::Budget, u"Voci di spesa dell'appalto"},
    {FindingGroup::Codes, u"Tabella dei codici"},
    {FindingGroup::Companies, u"Appaltatore e imprese"},
}};

} // namespace

QString LineOf(const Finding &finding)
{
    return WithUnseenMarked(
        finding.problem.isEmpty() ? finding.subject : finding.subject + u": "_s + finding.problem);
}

QString FindingsReport(const Findings &findings)
{
    QString report;
    for (const auto &[group, title] : Groups) {
        QString body;
        for (const Finding &finding : findings) {
            if (finding.group == group)
                body +=
                    u"  - "_s + LineOf(finding) + u"\n    Che fare: "_s + finding.remedy + u'\n';
        }
        if (!body.isEmpty())
            report += title.toString() + u'\n' + body + u'\n';
    }
    if (findings.isEmpty())
        return u"Nessun difetto trovato.\n"_s;
    return report + u"Difetti trovati: "_s + QString::number(findings.size()) + u'\n';
}

} // namespace saldoro
