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

    /** Warnings, errors and findings with headings, as ShortenedLines(), and whether nothing was
     *  written. */
    QString remarks() const;
};

/** The lines of the findings. Of each group, table and field only the first MostLinesTold; lines at
 *  the end count the rest. */
QStringList ShortenedLines(const Findings &findings);

/** LineOf() each finding. */
QStringList LinesOf(const Findings &findings);

/** A finding that is one line, complete in itself. */
Finding FindingOf(const QString &text);

inline constexpr QStringView NothingWritten = u"Niente è stato scritto.";

/** Calls @p action; an error of it says so. */
template <typename Action>
auto SayingNothingIsWritten(const Action &action)
{
    return WithDetail(Detail::Outcome, NothingWritten.toString(), action);
}

} // namespace saldoro
