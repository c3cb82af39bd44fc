#pragma once

#include "works.h"

#include <QSet>

#include <functional>
#include <optional>

namespace saldoro {

/** What the program reported when something failed. */
struct Report
{
    QString text;    ///< the whole report; empty when nothing failed
    QString file;    ///< the file it names
    QString problem; ///< its first sentence
};

/**
 * A work done over and over on copies of one archive while something goes wrong. Each time the
 * archive must be sound afterwards and in one of the states that the order of writes allows, and
 * the same work done again must bring it to its end.
 */
class FaultTrial
{
public:
    explicit FaultTrial(Work work);

    const Work &work() const { return m_work; }
    const ProgramValues &values() const { return m_copy.values(); }

    /** A fresh copy of the archive. */
    void renew();
    /** Does the work on the copy as it stands. */
    Report perform();
    /** The same in a process of its own, after @p prepare: what that process does to itself does
     * not come back. No report when it was killed. */
    std::optional<Report> performApart(const std::function<void()> &prepare);
    /** Looks at what the work has left, with the fault gone; throws std::runtime_error. */
    void check(const Report &report);

private:
    Work m_work;
    TestArchive m_origin;
    TestArchive m_copy;
    QList<ArchiveState> m_possible;
    QSet<qsizetype> m_completed; ///< states from which the work was brought to its end
};

/** Throws std::runtime_error with what was tried and what came of it, unless @p holds. */
void Require(bool holds, const QString &what, const Report &report);

/** The report must name a file of the project and say what to do; its first sentence must hold one
 *  of @p parts. */
void RequireReport(const Report &report, const QStringList &parts);

} // namespace saldoro
