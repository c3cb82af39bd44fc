#include "exchange/import_outcome.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QString headed(const QString &heading, QStringList lines)
{
    constexpr qsizetype most = 20;
    if (lines.size() > most) {
        const qsizetype more = lines.size() - most;
        lines.resize(most);
        lines.append(u"... e altri %1"_s.arg(more));
    }
    return lines.isEmpty() ? QString() : heading + u"\n  "_s + lines.join(u"\n  "_s) + u'\n';
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
                         : u"Darebbe problemi più tardi (con --comunque si importa lo stesso):"_s,
                  LinesOf(refusals)) +
           headed(u"C'era già prima:"_s, LinesOf(known)) +
           (isDone ? QString() : u"Niente è stato scritto.\n"_s);
}

Finding LineFinding(const QString &text)
{
    return {FindingGroup::Files, text, {}, {}};
}

} // namespace saldoro
