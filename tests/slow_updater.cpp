// Stands in for the suite's updater where it must outlive its caller: leaves its raw command line
// in "started.txt" in the folder that SLOW_UPDATER_FOLDER names, waits, and copies it to
// "ended.txt".
#include <cstdio>
#include <cstdlib>
#include <string>
#include <windows.h>

namespace {

bool leave(const std::string &name, const std::string &text)
{
    const char *folder = std::getenv("SLOW_UPDATER_FOLDER");
    if (folder == nullptr)
        return false;
    std::FILE *file = std::fopen((std::string(folder) + "\\" + name).c_str(), "wb");
    if (file == nullptr)
        return false;
    const bool written = std::fputs(text.c_str(), file) >= 0;
    return std::fclose(file) == 0 && written;
}

} // namespace

int main()
{
    constexpr DWORD waitInMilliseconds = 8000;
    const std::string commandLine = GetCommandLineA();
    if (!leave("started.txt", commandLine))
        return 1;
    Sleep(waitInMilliseconds);
    return leave("ended.txt", commandLine) ? 0 : 1;
}
