#include "fault_trial.h"

#include "bare_file.h"
#include "database/database.h"
#include "platform/machine_path.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Adds rows whose first cell, behind @p kind, is their key. */
void addRows(ArchiveState &state, const QString &kind, const QString &rows)
{
    for (const QString &row : rows.split(u'\n', Qt::SkipEmptyParts))
        state[kind + row.section(u'|', 0, 0)] += row;
}

/** Reads the state of @p archive past the program's own database layer. */
ArchiveState readState(const TestArchive &archive)
{
    ArchiveState state;
    addRows(state, {}, archive.contractRows(u"SELECT * FROM SchedaProgetto ORDER BY rowid"_s));
    addRows(state, u"UltimaPerVariante "_s,
            archive.contractRows(u"SELECT rowid, * FROM UltimaPerVariante"_s));
    if (QFile::exists(MachinePath(LedgerPath(archive.values())))) {
        state[ArchiveFiles::Ledger.toString()] = u"made"_s;
        const QString tables = archive.ledgerRows(u"SELECT name FROM sqlite_master"_s);
        addRows(state, {}, tables);
        for (const QString &table : tables.split(u'\n', Qt::SkipEmptyParts))
            addRows(state, table + u' ', archive.ledgerRows(u"SELECT rowid, * FROM "_s + table));
    }
    const QDir folder(MachinePath(ProjectFolder(archive.values())));
    for (const QString &name : folder.entryList({u"*.rtf"_s}, QDir::Files)) {
        QFile file(folder.filePath(name));
        state[name] = file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll())
                                                     : u"(cannot be read)"_s;
    }
    return state;
}

/** Where two states differ, for a person. */
QString difference(const ArchiveState &found, const ArchiveState &expected)
{
    QStringList lines;
    for (const QString &key : found.keys() + expected.keys()) {
        if (found.value(key) != expected.value(key))
            lines += key + u": found\n"_s + found.value(key, u"(none)"_s).left(4000) +
                     u"\n    expected\n"_s + expected.value(key, u"(none)"_s).left(4000);
    }
    lines.removeDuplicates();
    return lines.join(u'\n');
}

/** The states of an archive that a work takes from @p start to @p end, what each of @p writes names
 *  being as at the end from that write on. */
QList<ArchiveState> statesBetween(const ArchiveState &start, const ArchiveState &end,
                                  const QStringList &writes)
{
    QList<ArchiveState> states = {start};
    for (const QString &write : writes) {
        const QRegularExpression named(QRegularExpression::anchoredPattern(write));
        ArchiveState next;
        for (const QString &key : start.keys() + end.keys()) {
            const ArchiveState &from = named.match(key).hasMatch() ? end : states.last();
            if (from.contains(key))
                next[key] = from[key];
        }
        Require(next != states.last(), write + u" is not written"_s, {});
        states += next;
    }
    Require(states.last() == end,
            u"more is written than is known of:\n"_s + difference(end, states.last()), {});
    return states;
}

} // namespace

FaultTrial::FaultTrial(Work work)
    : m_work(std::move(work))
    , m_origin(FilledProject())
{
    if (m_work.prepare)
        m_work.prepare(m_origin);
    renew();
    const Report report = perform();
    Require(!report, u"it fails untouched"_s, report);
    m_possible = statesBetween(readState(m_origin), readState(*m_copy), m_work.writes);
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
        Database::open(path);
        const QString found = BareFile(path).rows(u"PRAGMA integrity_check"_s);
        Require(found == "ok"_L1, u"damaged: "_s + path + u": "_s + found, report);
    }
}

void FaultTrial::check(const Report &report)
{
    requireSound(report);
    const ArchiveState found = readState(*m_copy);
    const ArchiveState &end = m_possible.last();
    const qsizetype state = m_possible.indexOf(found);
    Require(state >= 0, u"not a state of the order of writes:\n"_s + difference(found, end),
            report);
    Require(report || found == end, u"success without having written all"_s, report);
    if (!m_work.isRepeatable || m_completed.contains(state))
        return; // many faults leave the same state; once is enough for each
    m_completed.insert(state);
    const Report again = perform();
    Require(!again, u"the same work fails once more"_s, again);
    Require(readState(*m_copy) == end,
            u"the same work done again ends elsewhere:\n"_s + difference(readState(*m_copy), end),
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
