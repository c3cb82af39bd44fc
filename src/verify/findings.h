#pragma once

#include <QList>
#include <QString>
#include <QStringView>

namespace saldoro {

/** What a finding is about, as FindingsReport() lists them. */
enum class FindingGroup
{
    Files,
    Values,
    Payments,
    Numbering,
    Allocations,
    Budget,
    Codes,
    Companies ///< contractor, participants and members
};

/** One thing that will trip the clerk. */
struct Finding
{
    FindingGroup group = FindingGroup::Files;
    QString subject; ///< names what it is about; the whole text when @ref problem is empty
    QString problem; ///< what is wrong and what comes of it
    QString remedy;  ///< what to do
    // What it is about, as far as that is one table, row or field.
    QString table = {};
    qsizetype row = -1; ///< in stored order, from 0; -1 for none
    QString field = {};
};

using Findings = QList<Finding>;

/** The remedy for what the program itself can't put right. */
inline constexpr QStringView InTheArchive =
    u"correggere il valore nell'archivio, con l'aiuto dell'assistenza.";

/** What comes of a value without which the closing work can't be done. */
inline constexpr QStringView StopsClosing =
    u"la chiusura della schermata principale si ferma senza completare i documenti.";

/** "Subject: problem", or the subject alone where that is the whole finding. It is one line:
 *  characters that no screen shows have a mark in their place. */
QString LineOf(const Finding &finding);

/** The report: the findings by their groups, within one in the order they were made, and a last
 *  line with their number; without any, a line that says so. Ends with a line end. */
QString FindingsReport(const Findings &findings);

} // namespace saldoro
