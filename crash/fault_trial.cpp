#include "fault_trial.h"

#include "common/errors.h"
#include "failing_calls.h"
#include "rtf_reader.h"

#include <QFile>

#include <algorithm>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>
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
    m_possible = m_work.states(m_copy);
}

void FaultTrial::renew()
{
    CopyProject(m_origin.values(), m_copy.values());
}

Report FaultTrial::perform()
{
    ProgramValues values = m_copy.values();
    try {
        m_work.perform(values);
    } catch (const SaldoroError &error) {
        return {error.message(), error.detail(u"File"_s), error.problem()};
    }
    return {};
}

std::optional<Report> FaultTrial::performApart(const std::function<void()> &prepare)
{
    int ends[2];
    if (::pipe(ends) != 0)
        throw std::runtime_error("no pipe");
    const pid_t pid = ::fork();
    if (pid == 0) {
        prepare();
        const Report report = perform();
        FailingCalls::disarm();
        const QByteArray text =
            QStringList{report.text, report.file, report.problem}.join(QChar(u'\0')).toUtf8();
        ::_exit(::write(ends[1], text.constData(), size_t(text.size())) == text.size() ? 0 : 1);
    }
    ::close(ends[1]);
    QFile pipe;
    if (!pipe.open(ends[0], QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        throw std::runtime_error("no pipe");
    const QStringList parts = QString::fromUtf8(pipe.readAll()).split(QChar(u'\0'));
    int status = 0;
    ::waitpid(pid, &status, 0);
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL)
        return std::nullopt;
    if (status != 0 || parts.size() != 3)
        throw std::runtime_error("the process under trial died");
    return Report{parts[0], parts[1], parts[2]};
}

void FaultTrial::check(const Report &report)
{
    const QString faults = DatabaseFaults(m_copy.values());
    Require(faults.isEmpty(), u"damaged: "_s + faults, report);
    const ArchiveState found = ReadState(m_copy);
    for (const auto &[name, text] : found.asKeyValueRange()) {
        if (name.endsWith(u".rtf"))
            ReadRtf(text.toLatin1());
    }
    const qsizetype state = m_possible.indexOf(found);
    Require(state >= 0,
            u"not a state of the order of writes:\n"_s + Difference(found, m_possible.last()),
            report);
    Require(!report.text.isEmpty() || found == m_possible.last(),
            u"success without having written all"_s, report);
    if (m_completed.contains(state)) // many faults leave the same state; once is enough for each
        return;
    m_completed.insert(state);
    if (!m_work.isRepeatable)
        return;
    const Report again = perform();
    Require(again.text.isEmpty(), u"the same work fails once more"_s, again);
    const ArchiveState completed = ReadState(m_copy);
    Require(completed == m_possible.last(),
            u"the same work done again ends elsewhere:\n"_s +
                Difference(completed, m_possible.last()),
            report);
}

void Require(bool holds, const QString &what, const Report &report)
{
    if (!holds)
        throw std::runtime_error(
            (what + u"\nThe report was: "_s + (report.text.isEmpty() ? u"none"_s : report.text))
                .toStdString());
}

void RequireReport(const Report &report, const QStringList &parts)
{
    Require(report.text.contains(report.file) &&
                (report.file.endsWith(u".mdb") || report.file.endsWith(u".rtf")),
            u"the report does not name the file"_s, report);
    Require(!report.problem.isEmpty() && report.text.size() > report.problem.size(),
            u"the report says too little"_s, report);
    Require(std::any_of(parts.begin(), parts.end(),
                        [&](const QString &part) { return report.problem.contains(part); }),
            u"the report says something else than "_s + parts.join(u" or "), report);
}

} // namespace saldoro
