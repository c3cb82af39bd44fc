#include "common/errors.h"
#include "platform/console.h"
#include "platform/machine_path.h"
#include "verify/options.h"
#include "verify/verification.h"

#include <QCoreApplication>
#include <QFileInfo>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

/** Exit status of the program. */
enum Status
{
    Clean = 0,
    Found = 1,
    NotPossible = 2
};

/** The folder as it was given, or whatever its letter case. */
QString existingFolder(const QString &given)
{
    QString folder = QFileInfo(given).isDir() ? given : MachinePath(given);
    if (!QFileInfo(folder).isDir())
        throw FileError(folder, u"La cartella del progetto non esiste."_s,
                        u"Controllare il nome della cartella."_s);
    return folder;
}

int check(const Options &options)
{
    const ProjectFiles files = FilesOfProject(existingFolder(options.folder), options.codes);
    if (!options.missingValues.isEmpty()) {
        const QString copy = SetMissingValues(files.ledger, options.missingValues);
        PrintOut(u"Valori impostati: %1. Copia del registro com'era: %2\n\n"_s.arg(
            QString::number(options.missingValues.size()), copy));
    }
    const Findings findings = VerifyProject(files);
    PrintOut(FindingsReport(findings));
    return findings.isEmpty() ? Clean : Found;
}

int run(const QStringList &words)
{
    const Options options = ParseOptions(words);
    switch (options.request) {
    case Request::Help:
        PrintOut(UsageText());
        return Clean;
    case Request::Version:
        PrintOut(u"saldoro-verifica " SALDORO_VERSION "\n"_s);
        return Clean;
    case Request::Check:
        break;
    }
    return check(options);
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    try {
        return run(QCoreApplication::arguments().sliced(1));
    } catch (const SaldoroError &error) {
        PrintError(u"Il comando non è stato eseguito.\n"_s + error.message() + u'\n');
    } catch (const std::exception &error) {
        PrintError(u"Il comando non è stato eseguito: "_s + QString::fromUtf8(error.what()) +
                   u'\n');
    }
    return NotPossible;
}
