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

/** @p heading stands above the report of an error. */
int check(const Options &options, QString &heading)
{
    const ProjectFiles files = FilesOfProject(existingFolder(options.folder), options.codes);
    if (!options.missingValues.isEmpty()) {
        const QString copy = SetMissingValues(files.ledger, options.missingValues);
        PrintOut(u"Valori impostati: %1. Copia del registro com'era: %2\n\n"_s.arg(
            QString::number(options.missingValues.size()), copy));
        heading = u"I valori sono stati impostati; il controllo non è stato possibile."_s;
    }
    const Findings findings = VerifyProject(files);
    PrintOut(FindingsReport(findings));
    return findings.isEmpty() ? Clean : Found;
}

int run(const QStringList &words, QString &heading)
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
    return check(options, heading);
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QString heading = u"Il comando non è stato eseguito."_s;
    try {
        return run(QCoreApplication::arguments().sliced(1), heading);
    } catch (const SaldoroError &error) {
        if (error.detail(u"Valori già impostati"_s).toInt() > 0)
            heading = u"Il comando è stato eseguito solo in parte."_s;
        PrintError(heading + u'\n' + error.message() + u'\n');
    } catch (const std::exception &error) {
        PrintError(heading + u'\n' + QString::fromUtf8(error.what()) + u'\n');
    }
    return NotPossible;
}
