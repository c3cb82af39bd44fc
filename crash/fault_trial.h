#pragma once

#include "session_model.h"

#include <QJsonObject>
#include <QList>
#include <QSet>
#include <QString>

#include <functional>

namespace saldoro {

/** What the program reported when something failed. */
struct Report
{
    QString text;    ///< the whole report; empty when nothing failed
    QString file;    ///< the file it names
    QString problem; ///< its first sentence
    bool isDatabaseError = false;
};

/**
 * One piece of the program's work, done over and over on copies of one archive while something goes
 * wrong: a save, a deletion, the closing work (see session_model.h for the steps). Each time the
 * archive must be sound afterwards and in one of the states that the order of writes allows, and
 * the same work done again must bring it to its end.
 */
class FaultTrial
{
public:
    explicit FaultTrial(QJsonObject step);

    const QString &name() const { return m_name; }

    /** Takes a fresh copy of the archive and does the work on it. */
    Report attempt();
    /** Looks at what attempt() has left, with the fault gone; throws std::runtime_error. */
    void check(const Report &report);

    /** The copy that attempt() works on next. */
    void renew();
    const ProgramValues &values() const { return m_copy.values(); }
    /** Does the work on the copy as it stands. */
    Report perform();

private:
    TestArchive m_origin;
    TestArchive m_copy;
    QJsonObject m_step;
    QString m_name;
    TextTable m_screen;
    QList<ArchiveState> m_possible;
    QSet<qsizetype> m_completed; ///< states from which the work was brought to its end
};

/** The works that the fault tests try: saves of both kinds, new and changed, and the others. */
QList<QJsonObject> TriedSteps();

/** Throws std::runtime_error with what was tried and what came of it, unless @p holds. */
void Require(bool holds, const QString &what, const Report &report);

} // namespace saldoro
