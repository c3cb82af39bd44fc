#include "platform/console.h"

#include "common/characters.h"

#include <QStringList>

#include <cstdio>

#ifdef Q_OS_WIN
#include <io.h>
#include <string>
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace saldoro {

namespace {

#ifdef Q_OS_WIN
/** Writes to a console, whatever its code page; false when the stream is no console. */
bool printToConsole(std::FILE *stream, const QString &text)
{
    const auto console = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
    DWORD mode = 0;
    if (GetConsoleMode(console, &mode) == 0)
        return false;
    return WriteConsoleW(console, text.utf16(), static_cast<DWORD>(text.size()), nullptr,
                         nullptr) != 0;
}
#endif

bool print(std::FILE *stream, const QString &text)
{
#ifdef Q_OS_WIN
    if (printToConsole(stream, text))
        return true;
#endif
    const QByteArray bytes = text.toUtf8();
    const auto size = static_cast<size_t>(bytes.size());
    return std::fwrite(bytes.constData(), 1, size, stream) == size && std::fflush(stream) == 0;
}

} // namespace

bool PrintOut(const QString &text)
{
    return print(stdout, text);
}

bool PrintError(const QString &text)
{
#ifdef Q_OS_WIN
    if (_fileno(stderr) < 0) // a program of windows that was not started from a console
        return MessageBoxW(nullptr, text.toStdWString().c_str(), L"Saldoro", MB_ICONERROR) != 0;
#endif
    return print(stderr, text);
}

QString Harmless(const QString &text)
{
    QStringList lines = text.split(u'\n');
    for (QString &line : lines)
        line = WithUnseenMarked(line);
    return lines.join(u'\n');
}

bool IsErrorTerminal()
{
#ifdef Q_OS_WIN
    return _isatty(_fileno(stderr)) != 0;
#else
    return isatty(STDERR_FILENO) != 0;
#endif
}

} // namespace saldoro
