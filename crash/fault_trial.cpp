#include "fault_trial.h"

#include "bare_file.h"
#include "database/database.h"
#include "failing_calls.h"
#include "file_content.h"
#include "platform/machine_path.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QStringList databasePaths(const ProgramValues &values)
{
    return {LedgerPath(values), ContractPath(values), CompaniesPath(values), CodesPath(values)};
}

QDir projectFolder(const ProgramValues &values)
{
    return QDir(MachinePath(ProjectFolder(values)));
}

QString settingsFolder(const ProgramValues &values)
{
    return values.ArchiveRoot + u"/impostazioni"_s;
}

/** Of another program, to which this one's come. */
void addSettings(const ProgramValues &values)
{
    WriteFile(settingsFolder(values) + u"/saldoro/registro.ini"_s, "; mia\n[Altro]\nx=1\n");
}

/** The rows of a database, read past the program's own database layer. */
ArchiveState rowsOf(const QString &path)
{
    ArchiveState state;
    BareFile file(path);
    const QString tables = file.rows(u"SELECT name FROM sqlite_master WHERE type = 'table'"_s);
    for (const QString &table : tables.split(u'\n', Qt::SkipEmptyParts)) {
        state[table] = u"made"_s;
        const bool isSheet = table == "SchedaProgetto"_L1;
        const QString rows = file.rows(isSheet ? u"SELECT * FROM SchedaProgetto ORDER BY rowid"_s
                                               : u"SELECT rowid, * FROM "_s + table);
        for (const QString &row : rows.split(u'\n', Qt::SkipEmptyParts))
            state[(isSheet ? QString() : table + u' ') + row.section(u'|', 0, 0)] += row;
    }
    return state;
}

ArchiveState readState(const TestArchive &archive)
{
    ArchiveState state;
    for (const QString &path : databasePaths(archive.values())) {
        const QFileInfo file(MachinePath(path));
        if (!file.exists())
            continue;
        state[file.fileName()] = u"made"_s;
        state.insert(rowsOf(path));
    }
    QFileInfoList files =
        projectFolder(archive.values()).entryInfoList({u"*.rtf"_s, u"*.csv"_s}, QDir::Files);
    files += QDir(settingsFolder(archive.values()) + u"/saldoro"_s).entryInfoList({u"*.ini"_s});
    for (const QFileInfo &file : files)
        state[file.fileName()] = QString::fromUtf8(ContentOf(file.filePath()))
                                     .replace(archive.values().ArchiveRoot, u"root"_s);
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
    addSettings(m_origin.values());
    renew();
    FailingCalls::arm(0, CallFault::Once);
    const Report report = perform();
    const QStringList unflushed = FailingCalls::disarm().unflushed;
    Require(!report, u"it fails untouched"_s, report);
    Require(unflushed.isEmpty(), u"not flushed: "_s + unflushed.join(u", "_s), {});
    m_possible = statesBetween(readState(m_origin), readState(*m_copy), m_work.writes);
    requireTidy({}, true);
}

void FaultTrial::renew()
{
    m_copy.emplace(m_origin);
    addSettings(values());
}

Report FaultTrial::perform()
{
    qputenv("XDG_CONFIG_HOME", settingsFolder(values()).toUtf8());
    ProgramValues values = m_copy->values();
    try {
        m_work.perform(values);
    } catch (const SaldoroError &error) {
        return error;
    }
    return {};
}

bool FaultTrial::isUntouched() const
{
    return readState(*m_copy) == m_possible.first();
}

QStringList FaultTrial::files() const
{
    QStringList names = m_possible.last().keys();
    names.removeIf(
        [](const QString &name) { return !name.endsWith(u".rtf") && !name.endsWith(u".csv"); });
    return names;
}

/** Opens each database as the program does, which undoes what was left half done. */
void FaultTrial::requireSound(const Report &report) const
{
    for (const QString &path : databasePaths(values())) {
        if (QFileInfo(MachinePath(path)).size() == 0)
            continue;
        Database::open(path);
        const QString found = BareFile(path).rows(u"PRAGMA integrity_check"_s);
        Require(found == "ok"_L1, u"damaged: "_s + path + u": "_s + found, report);
    }
}

/** Looks at the copies, and unless something kept the work from tidying up at what else is left. */
void FaultTrial::requireTidy(const Report &report, bool canTidy) const
{
    int copies = 0;
    QStringList rest;
    QStringList databases;
    for (const QString &path : databasePaths(values()))
        databases.append(QFileInfo(MachinePath(path)).fileName());
    const QDir folder = projectFolder(values());
    for (const QString &name : folder.entryList(QDir::AllEntries | QDir::NoDotAndDotDot)) {
        if (name.contains(u" copia ") && name.endsWith(u".mdb")) {
            ++copies;
            const QString original = name.section(u" copia "_s, 0, 0) + u".mdb"_s;
            Require(rowsOf(folder.filePath(name)) ==
                        rowsOf(projectFolder(m_origin.values()).filePath(original)),
                    name + u" is not as the database was"_s, report);
        } else if (!databases.contains(name) && !name.endsWith(u".rtf") &&
                   !name.endsWith(u".csv")) {
            rest.append(name);
        }
    }
    const ArchiveState found = readState(*m_copy);
    const bool isBetween = found != m_possible.first() && found != m_possible.last();
    const bool isMarked = report && rest.removeOne(m_work.mark); // perhaps without need
    Require(m_work.mark.isEmpty() || !isBetween || isMarked,
            u"nothing says that the files are mixed"_s, report);
    if (!canTidy)
        return;
    Require(rest.isEmpty(), u"left behind: "_s + rest.join(u", "_s), report);
    Require(copies == (report ? 0 : m_work.copies) || (report && found != m_possible.first()),
            u"%1 copies"_s.arg(copies), report);
}

void FaultTrial::check(const Report &report, bool canTidy)
{
    requireSound(report);
    const ArchiveState found = readState(*m_copy);
    const ArchiveState &end = m_possible.last();
    const qsizetype state = m_possible.indexOf(found);
    Require(state >= 0, u"not a state of the order of writes:\n"_s + difference(found, end),
            report);
    Require(report || found == end, u"success without having written all"_s, report);
    requireTidy(report, canTidy);
    // Many faults leave the same state; once is enough for each, and for what stands aside.
    const qsizetype asides = projectFolder(values()).entryList({u"*.nuovo"_s}, QDir::Files).size();
    const std::pair left(state, asides);
    if (!m_work.isRepeatable || m_completed.contains(left))
        return;
    m_completed.insert(left);
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
    Require(QFileInfo(report->detail(Detail::File)).isAbsolute(),
            u"the report does not name the file"_s, report);
    Require(!report->problem().isEmpty() && !report->remedy().isEmpty(),
            u"the report says too little"_s, report);
    Require(std::any_of(parts.begin(), parts.end(),
                        [&](const QString &part) { return report->problem().contains(part); }),
            u"the report says something else than "_s + parts.join(u" or "), report);
}

} // namespace saldoro
