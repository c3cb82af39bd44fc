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
Status verifyProject(const CommandLine &line, QString &heading)
{
    const QStringList missingValues = line.options[u"--imposta"_s];
    const QString folder = ExistingFolder(line.folders.first());
    if (!missingValues.isEmpty()) {
        const QString copy =
            SetMissingValues(ArchiveFilePath(ArchiveFile::Ledger, folder), missingValues);
        PrintOut(u"Valori impostati: %1. Copia del registro com'era: %2\n\n"_s.arg(
            QString::number(missingValues.size() / 3), copy));
        heading = u"I valori sono stati impostati; il controllo non è stato possibile."_s;
    }
    const QStringList codes = line.options[u"--codici"_s];
    const Findings findings = VerifyProject(folder, codes.value(codes.size() - 1));
    PrintOut(FindingsReport(findings));
    return findings.isEmpty() ? Done : Found;
}

Status importProject(const CommandLine &line)
{
    const ImportOutcome outcome =
        ImportFiles(line.folders[1], line.folders[0],
                    {line.options.contains(u"--nuovo"_s), line.options.contains(u"--comunque"_s),
                     line.options[u"--sostituisci"_s]});
    PrintError(outcome.remarks());
    PrintOut(outcome.summary);
    return outcome.isDone ? Done : Found;
}

Status run(const QStringList &words, QString &heading)
{
    const CommandLine line = ParseCommandLine(words);
    if (line.command == "verifica"_L1)
        return verifyProject(line, heading);
    if (line.command == "importa"_L1)
        return importProject(line);
    if (line.command == "esporta"_L1)
        PrintOut(ExportProject(line.folders[0], line.folders[1],
                               line.options.contains(u"--sovrascrivi"_s)));
    else
        PrintOut(line.command == "--aiuto"_L1 ? UsageText()
                                              : u"saldoro-archivio " SALDORO_VERSION "\n"_s);
    return Done;
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
