#pragma once

#include "common/errors.h"
#include "verify/findings.h"

#include <QString>
#include <QStringList>

namespace saldoro {

/** What has become of an import. */
struct ImportOutcome
{
    bool isDone = false;       ///< false: nothing was written
    Findings errors = {};      ///< for which nothing is ever written
    Findings refusals = {};    ///< for which nothing is written unless it is wanted even so
    Findings known = {};       ///< which were there before; no reason to refuse
    QStringList warnings = {}; ///< what was passed over, a line each
    QStringList copies = {};   ///< paths of the databases as they were, where one has changed
    QString summary = {};      ///< what was written: rows and total of each table, changed items

    /** Warnings, errors and findings with headings, as FirstLinesOf(), and whether nothing was
     *  written. */
    QString remarks() const;
};

/** LinesOf() those findings; of one group, table and field the first MostLinesTold and, last of
 *  all, how many more there are. */
QStringList FirstLinesOf(const Findings &findings);

/** LineOf() each finding. */
QStringList LinesOf(const Findings &findings);

/** A finding that is one line, complete in itself. */
Finding LineFinding(const QString &text);

/** Calls @p action; an error of it says that nothing was written. */
template <typename Action>
auto SayingNothingIsWritten(const Action &action)
{
    return WithDetail(Detail::Outcome, QStringLiteral("Niente è stato scritto."), action);
}

} // namespace saldoro
