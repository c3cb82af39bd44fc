#include "exchange/import_outcome.h"

#include "common/message_lines.h"
#include "exchange/command_options.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QString headed(const QString &heading, const QStringList &lines)
{
    const QStringList told = FirstLines(lines, u"... e altri %1"_s);
    return told.isEmpty() ? QString() : heading + u"\n  "_s + told.join(u"\n  "_s) + u'\n';
}

} // namespace

QStringList LinesOf(const Findings &findings)
{
    QStringList lines;
    for (const Finding &finding : findings)
        lines.append(finding.problem.isEmpty() ? finding.place
                                               : finding.place + u": "_s + finding.problem);
    return lines;
}

QString ImportOutcome::remarks() const
{
    return headed(u"Avvertimenti:"_s, warnings) + headed(u"Errori:"_s, LinesOf(errors)) +
           headed(isDone ? u"Darà problemi più tardi:"_s
                         : u"Darebbe problemi più tardi (con %1 si importa lo stesso):"_s.arg(
                               CommandOption::EvenSo),
                  LinesOf(refusals)) +
           headed(u"C'era già prima:"_s, LinesOf(known)) +
           (isDone ? QString() : u"Niente è stato scritto.\n"_s);
}

Finding LineFinding(const QString &text)
{
    return {FindingGroup::Files, text, {}, {}};
}

} // namespace saldoro
