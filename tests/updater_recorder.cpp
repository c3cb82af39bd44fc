// Stands in for the suite's updater: writes its arguments, one a line, beside itself when it starts
// and, where UPDATER_SECONDS says how long it works, once more when it ends.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>

namespace {

void record(const std::string &path, int argc, char *argv[])
{
    const std::string draft = path + ".new";
    std::FILE *file = std::fopen(draft.c_str(), "wb");
    if (file == nullptr)
        std::exit(1);
    for (int i = 1; i < argc; ++i)
        std::fprintf(file, "%s\n", argv[i]);
    std::fclose(file);
    if (std::rename(draft.c_str(), path.c_str()) != 0) // never seen half written
        std::exit(1);
}

} // namespace

int main(int argc, char *argv[])
{
    const std::string self = argv[0];
    record(self + ".txt", argc, argv);
    if (const char *seconds = std::getenv("UPDATER_SECONDS")) {
        std::this_thread::sleep_for(std::chrono::seconds(std::atoi(seconds)));
        record(self + ".ended.txt", argc, argv);
    }
    return 0;
}
