#include "archivio/command_line.h"
#include "common/errors.h"
#include "common/version.h"
#include "exchange/command_options.h"
#include "exchange/export.h"
#include "exchange/import_files.h"
#include "exchange/missing_payment_values.h"
#include "platform/console.h"
#include "platform/process.h"
#include "platform/whole_file.h"
#include "store/archive_paths.h"
#include "verify/verification.h"

#include <QCoreApplication>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

/** Exit status of the program. */
enum Status
{
    Done = 0,       ///< without findings
    Found = 1,      ///< with findings, or refused for them
    NotPossible = 2 ///< the command could not be carried out
};

/** What a command has to say. */
struct Outcome
{
    Status status = Done;
    QString text;
    QString remarks = {}; ///< for the error stream
};

Outcome verifyProject(const CommandLine &line)
{
    const QStringList codes = line.options[CommandOption::Codes];
    const Findings findings =
        VerifyProject(ExistingFolder(line.operands.first()), codes.value(codes.size() - 1));
    return {findings.isEmpty() ? Done : Found, FindingsReport(findings)};
}

Outcome setValues(const CommandLine &line)
{
    const QStringList values = line.operands.sliced(1);
    const QString folder = ExistingFolder(line.operands.first());
    const QString copy = SetPaymentValues(ArchiveFilePath(ArchiveFile::Ledger, folder), values);
    return {Done, u"Valori impostati: %1. Copia del registro com'era: %2\n"_s.arg(
                      QString::number(values.size() / 3), copy)};
}

Outcome importFiles(const CommandLine &line)
{
    const ImportOutcome outcome = ImportFiles(line.operands[1], line.operands[0],
                                              {line.options.contains(CommandOption::NewProject),
                                               line.options.contains(CommandOption::EvenSo),
                                               line.options[CommandOption::Replace]});
    return {outcome.isDone ? Done : Found, outcome.summary, outcome.remarks()};
}

Outcome run(const CommandLine &line)
{
    if (line.command == "verifica"_L1)
        return verifyProject(line);
    if (line.command == "imposta"_L1)
        return setValues(line);
    if (line.command == "importa"_L1)
        return importFiles(line);
    if (line.command == "esporta"_L1)
        return {Done, ExportProject(line.operands[0], line.operands[1],
                                    line.options.contains(CommandOption::Overwrite))};
    return {Done, line.command == "--aiuto"_L1 ? QString::fromUtf8(ReadWholeFile(u":/uso.txt"_s))
                                               : u"saldoro-archivio %1\n"_s.arg(VersionText)};
}

void tellError(const QString &text)
{
    PrintError(u"saldoro-archivio: "_s + Harmless(text));
}

} // namespace

int main(int argc, char *argv[])
{
    LetLargeWritesFail();
    const QCoreApplication application(argc, argv);
    QString heading = u"Il comando non è stato eseguito."_s;
    try {
        const Outcome outcome = run(ParseCommandLine(QCoreApplication::arguments().sliced(1)));
        if (!outcome.remarks.isEmpty())
            tellError(outcome.remarks);
        if (PrintOut(Harmless(outcome.text)))
            return outcome.status;
        tellError(u"Il comando è stato eseguito, ma l'uscita non accetta ciò che ha da dire.\n"_s);
    } catch (const SaldoroError &error) {
        if (!error.detail(Detail::FilesReplaced).isEmpty())
            heading = u"Il comando è stato eseguito solo in parte."_s;
        tellError(heading + u'\n' + error.message() + u'\n');
    } catch (const std::exception &error) {
        tellError(heading + u'\n' + QString::fromUtf8(error.what()) + u'\n');
    }
    return NotPossible;
}
