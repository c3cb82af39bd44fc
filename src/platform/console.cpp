#include "platform/console.h"

#include <cstdio>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace saldoro {

namespace {

void print(std::FILE *stream, const QString &text)
{
#ifdef Q_OS_WIN
    // The console outlives this program, and with it the code page that is set.
    const UINT before = GetConsoleOutputCP();
    SetConsoleOutputCP(CP_UTF8);
#endif
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stream);
    std::fflush(stream);
#ifdef Q_OS_WIN
    SetConsoleOutputCP(before);
#endif
}

} // namespace

void PrintOut(const QString &text)
{
    print(stdout, text);
}

void PrintError(const QString &text)
{
    print(stderr, text);
}

} // namespace saldoro
