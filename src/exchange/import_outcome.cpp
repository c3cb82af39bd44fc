#include "exchange/import_outcome.h"

#include "common/message_lines.h"
#include "exchange/command_options.h"

#include <map>
#include <tuple>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QString headed(const QString &heading, const Findings &findings)
{
    return findings.isEmpty()
               ? QString()
               : heading + u"\n  "_s + ShortenedLines(findings).join(u"\n  "_s) + u'\n';
}

} // namespace

QStringList LinesOf(const Findings &findings)
{
    QStringList lines;
    for (const Finding &finding : findings)
        lines.append(LineOf(finding));
    return lines;
}

QStringList ShortenedLines(const Findings &findings)
{
    std::map<std::tuple<FindingGroup, QString, QString>, int> counts;
    Findings first;
    for (const Finding &finding : findings) {
        if (++counts[{finding.group, finding.table, finding.field}] <= MostLinesTold)
            first.append(finding);
    }
    QStringList lines = LinesOf(first);
    for (const auto &[kind, count] : counts) {
        const auto &[group, table, field] = kind;
        const QString about = field.isEmpty() ? table : table + u", campo "_s + field;
        if (count > MostLinesTold)
            lines.append(u"... e altri %1"_s.arg(count - MostLinesTold) +
                         (about.isEmpty() ? QString() : u" in "_s + about));
    }
    return lines;
}

QString ImportOutcome::remarks() const
{
    Findings told;
    for (const QString &warning : warnings)
        told.append(FindingOf(warning));
    return headed(u"Avvertimenti:"_s, told) + headed(u"Errori:"_s, errors) +
           headed(isDone ? u"Darà problemi più tardi:"_s
                         : u"Darebbe problemi più tardi (con %1 si importa lo stesso):"_s.arg(
                               CommandOption::EvenSo),
                  refusals) +
           headed(u"C'era già prima:"_s, known) +
           (isDone ? QString() : NothingWritten.toString() + u'\n');
}

Finding FindingOf(const QString &text)
{
    return {FindingGroup::Files, text, {}, {}};
}

} // namespace saldoro
