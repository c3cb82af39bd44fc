#include "archivio/command_line.h"
#include "archivio/missing_values.h"
#include "common/errors.h"
#include "exchange/export.h"
#include "exchange/import.h"
#include "platform/console.h"
#include "store/project_files.h"
#include "verify/verification.h"

#include <QCoreApplication>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

/** Exit status of the program. */
enum Status
{
    Done = 0,       ///< and nothing was found
    Found = 1,      ///< or refused for what was found
    NotPossible = 2 ///< to do the command
};

/** @p heading stands above the report of an error. */
int verifyProject(const CommandLine &line, QString &heading)
{
    const QList<QStringList> missingValues = line.words(u"--imposta"_s);
    const QList<QStringList> codes = line.words(u"--codici"_s);
    const QString folder = ExistingFolder(line.folders.first());
    if (!missingValues.isEmpty()) {
        const QString copy =
            SetMissingValues(ArchiveFilePath(ArchiveFile::Ledger, folder), missingValues);
        PrintOut(u"Valori impostati: %1. Copia del registro com'era: %2\n\n"_s.arg(
            QString::number(missingValues.size()), copy));
        heading = u"I valori sono stati impostati; il controllo non è stato possibile."_s;
    }
    const Findings findings =
        VerifyProject(folder, codes.isEmpty() ? QString() : codes.last().first());
    PrintOut(FindingsReport(findings));
    return findings.isEmpty() ? Done : Found;
}

int importProject(const CommandLine &line)
{
    ImportRequest request{
        line.folders[0], line.folders[1], line.has(u"--nuovo"_s), line.has(u"--comunque"_s), {}};
    for (const QStringList &words : line.words(u"--sostituisci"_s))
        request.replacedTables.append(words.first());
    const ImportOutcome outcome = ImportProject(request);
    PrintError(outcome.remarks);
    PrintOut(outcome.summary);
    return outcome.isDone ? Done : Found;
}

int exportProject(const CommandLine &line)
{
    PrintOut(ExportProject(line.folders[0], line.folders[1], line.has(u"--sovrascrivi"_s)));
    return Done;
}

int run(const QStringList &words, QString &heading)
{
    const CommandLine line = ParseCommandLine(words);
    switch (line.command) {
    case Command::Help:
        PrintOut(UsageText());
        return Done;
    case Command::Version:
        PrintOut(u"saldoro-archivio " SALDORO_VERSION "\n"_s);
        return Done;
    case Command::Verify:
        return verifyProject(line, heading);
    case Command::Import:
        return importProject(line);
    case Command::Export:
        return exportProject(line);
    }
    return NotPossible;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QString heading = u"Il comando non è stato eseguito."_s;
    try {
        return run(QCoreApplication::arguments().sliced(1), heading);
    } catch (const SaldoroError &error) {
        if (!error.detail(u"Prima di questo"_s).isEmpty()) // some databases are done
            heading = u"Il comando è stato eseguito solo in parte."_s;
        PrintError(heading + u'\n' + error.message() + u'\n');
    } catch (const std::exception &error) {
        PrintError(heading + u'\n' + QString::fromUtf8(error.what()) + u'\n');
    }
    return NotPossible;
}
