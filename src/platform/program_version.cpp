#include "platform/program_version.h"

#include <QtGlobal>

#ifdef Q_OS_WIN
#include <QByteArray>
#include <QCoreApplication>
#include <QDir>
#include <QString>

#include <windows.h>
#endif

namespace saldoro {

#ifdef Q_OS_WIN

std::optional<ProgramVersion> VersionResource()
{
    const std::wstring file =
        QDir::toNativeSeparators(QCoreApplication::applicationFilePath()).toStdWString();
    const DWORD size = GetFileVersionInfoSizeW(file.c_str(), nullptr);
    QByteArray resource(static_cast<qsizetype>(size), '\0');
    void *found = nullptr;
    UINT foundSize = 0;
    if (size == 0 || !GetFileVersionInfoW(file.c_str(), 0, size, resource.data()) ||
        !VerQueryValueW(resource.data(), L"\\", &found, &foundSize) ||
        foundSize < sizeof(VS_FIXEDFILEINFO))
        return std::nullopt;
    const auto *fixed = static_cast<const VS_FIXEDFILEINFO *>(found);
    return ProgramVersion{HIWORD(fixed->dwFileVersionMS), LOWORD(fixed->dwFileVersionMS),
                          HIWORD(fixed->dwFileVersionLS)};
}

#else

std::optional<ProgramVersion> VersionResource()
{
    return std::nullopt;
}

#endif

} // namespace saldoro
