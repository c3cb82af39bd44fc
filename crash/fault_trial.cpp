#include "fault_trial.h"

#include "bare_file.h"
#include "database/database.h"
#include "platform/machine_path.h"

#include <QFileInfo>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

FaultTrial::FaultTrial(Work work)
    : m_work(std::move(work))
{
    FillProject(m_origin);
    if (m_work.prepare)
        m_work.prepare(m_origin);
    renew();
    m_possible = m_work.states(*m_copy);
}

void FaultTrial::renew()
{
    m_copy.emplace(m_origin);
}

Report FaultTrial::perform()
{
    ProgramValues values = m_copy->values();
    try {
        m_work.perform(values);
    } catch (const SaldoroError &error) {
        return error;
    }
    return {};
}

/** Opens each database as the program does, which undoes what was left half done. */
void FaultTrial::requireSound(const Report &report) const
{
    for (const QString &path : {LedgerPath(values()), ContractPath(values()),
                                CompaniesPath(values()), CodesPath(values())}) {
        if (QFileInfo(MachinePath(path)).size() == 0)
            continue;
        Database::open(path).close();
        const QString found = BareFile(path).rows(u"PRAGMA integrity_check"_s);
        Require(found == "ok"_L1, u"damaged: "_s + path + u": "_s + found, report);
    }
}

void FaultTrial::check(const Report &report)
{
    requireSound(report);
    const ArchiveState found = ReadState(*m_copy);
    const ArchiveState &end = m_possible.last();
    const qsizetype state = m_possible.indexOf(found);
    Require(state >= 0, u"not a state of the order of writes:\n"_s + Difference(found, end),
            report);
    Require(report || found == end, u"success without having written all"_s, report);
    if (!m_work.isRepeatable || m_completed.contains(state))
        return; // many faults leave the same state; once is enough for each
    m_completed.insert(state);
    const Report again = perform();
    Require(!again, u"the same work fails once more"_s, again);
    Require(ReadState(*m_copy) == end,
            u"the same work done again ends elsewhere:\n"_s + Difference(ReadState(*m_copy), end),
            report);
}

void Require(bool holds, const QString &what, const Report &report)
{
    if (!holds)
        throw std::runtime_error(
            (what + u"\nThe report was: "_s + (report ? report->message() : u"none"_s))
                .toStdString());
}

void RequireReport(const Report &report, const QStringList &parts)
{
    Require(report.has_value(), u"no report"_s, report);
    const QString file = report->detail(u"File"_s);
    Require(file.endsWith(u".mdb") || file.endsWith(u".rtf"),
            u"the report does not name the file"_s, report);
    Require(!report->problem().isEmpty() && !report->remedy().isEmpty(),
            u"the report says too little"_s, report);
    Require(std::any_of(parts.begin(), parts.end(),
                        [&](const QString &part) { return report->problem().contains(part); }),
            u"the report says something else than "_s + parts.join(u" or "), report);
}

} // namespace saldoro
