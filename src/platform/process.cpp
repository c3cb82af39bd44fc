#include "platform/process.h"

#include "platform/machine_path.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>

#ifdef Q_OS_WIN
#include <QDir>

#include <string>
#include <windows.h>
#else
#include <csignal>
#endif

namespace saldoro {

using namespace Qt::StringLiterals;

#ifdef Q_OS_WIN
namespace {

/** The toolkit would put two blanks behind the program and quotes around arguments. */
std::wstring wholeCommandLine(const QString &path, const QStringList &arguments)
{
    const QString native = QDir::toNativeSeparators(path);
    const QString name = native.contains(u' ') ? u'"' + native + u'"' : native;
    return (QStringList(name) + arguments).join(u' ').toStdWString();
}

} // namespace
#endif

bool StartDetached(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.setProgram(MachinePath(program));
#ifdef Q_OS_WIN
    std::wstring commandLine = wholeCommandLine(process.program(), arguments);
    // A program that asks for more rights is started in another way, which takes only these.
    process.setNativeArguments(arguments.join(u' '));
    process.setCreateProcessArgumentsModifier(
        [&commandLine](QProcess::CreateProcessArguments *start) {
            start->arguments = commandLine.data();
            start->flags &= ~static_cast<unsigned long>(CREATE_NO_WINDOW);
            start->startupInfo->dwFlags |= STARTF_USESHOWWINDOW;
            start->startupInfo->wShowWindow = SW_SHOWNORMAL;
        });
#else
    process.setArguments(arguments);
#endif
    return process.startDetached();
}

#ifdef Q_OS_WIN
// The system's text: separate arguments have lost their blanks and quotes.
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
    static const QRegularExpression name(uR"(\A(?:[^" \t]|"[^"]*(?:"|\z))*[ \t]*)"_s);
    return QString(commandLine).remove(name);
}

void LetLargeWritesFail()
{
#ifndef Q_OS_WIN
    std::signal(SIGXFSZ, SIG_IGN);
#endif
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
