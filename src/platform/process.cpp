#include "platform/process.h"

#include "platform/machine_path.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace saldoro {

bool StartDetached(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.setProgram(MachinePath(program));
#ifdef Q_OS_WIN
    process.setNativeArguments(arguments.join(u' '));
    process.setCreateProcessArgumentsModifier([](QProcess::CreateProcessArguments *start) {
        start->startupInfo->dwFlags |= STARTF_USESHOWWINDOW;
        start->startupInfo->wShowWindow = SW_SHOWNORMAL;
    });
#else
    process.setArguments(arguments);
#endif
    return process.startDetached();
}

#ifdef Q_OS_WIN
// The system's own text, since the separate arguments have lost their blanks and quotes.
QString CommandLineTail(int /*argc*/, char *const /*argv*/[])
{
    return TailOfCommandLine(QString::fromWCharArray(GetCommandLineW()));
}
#else
QString CommandLineTail(int argc, char *const argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments.join(u' ');
}
#endif

QString TailOfCommandLine(const QString &commandLine)
{
    const auto isBlank = [](QChar character) { return character == u' ' || character == u'\t'; };
    bool quoted = false;
    qsizetype at = 0;
    while (at < commandLine.size() && (quoted || !isBlank(commandLine.at(at)))) {
        if (commandLine.at(at) == u'"')
            quoted = !quoted;
        ++at;
    }
    while (at < commandLine.size() && isBlank(commandLine.at(at)))
        ++at;
    return commandLine.mid(at);
}

QString ProgramName()
{
    return QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName();
}

QDateTime ProgramFileTime()
{
    return QFileInfo(QCoreApplication::applicationFilePath()).lastModified();
}

} // namespace saldoro
