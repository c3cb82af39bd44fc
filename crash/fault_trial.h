#pragma once

#include "common/errors.h"
#include "works.h"

#include <QMap>
#include <QSet>

#include <optional>
#include <utility>

namespace saldoro {

/**
 * Everything of a project that the program writes, as texts that can be compared: each row under
 * its table and row id ("Spese 7"), each item of the contract sheet under its key, each document,
 * CSV file and the settings under its name; databases and tables, which may be empty, under theirs.
 */
using ArchiveState = QMap<QString, QString>;

/** What the program reported; nothing when it took its work for done. */
using Report = std::optional<SaldoroError>;

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
    const ProgramValues &values() const { return m_copy->values(); }

    /** A fresh copy of the archive. */
    void renew();
    /** Does the work on the copy as it stands. */
    Report perform();
    /** Looks at what the work has left, with the fault gone; throws std::runtime_error. @p canTidy:
     *  nothing kept it from clearing away what it had not finished. */
    void check(const Report &report, bool canTidy);
    /** Whether the archive is as before the work. */
    bool isUntouched() const;
    /** Names of the documents and CSV files that the work leaves. */
    QStringList files() const;

private:
    void requireSound(const Report &report) const;
    void requireTidy(const Report &report, bool canTidy) const;

    Work m_work;
    TestArchive m_origin;
    std::optional<TestArchive> m_copy;
    QList<ArchiveState> m_possible;
    /** States, with the number of files aside, from which the work was brought to its end. */
    QSet<std::pair<qsizetype, qsizetype>> m_completed;
};

/** Throws std::runtime_error with what was tried and what came of it, unless @p holds. */
void Require(bool holds, const QString &what, const Report &report);

/** The report must name a file of the project and say what to do; its first sentence must hold one
 *  of @p parts. */
void RequireReport(const Report &report, const QStringList &parts);

} // namespace saldoro
