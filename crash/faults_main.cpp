// Lets the disk, its rights and other programs get in the way of every write, and looks at what the
// program reports and leaves: saldoro_faults

#include "storage_faults.h"

#include <QCoreApplication>
#include <QDir>

#include <cstdio>
#include <exception>

int main(int argc, char *argv[])
{
    // Nothing here depends on a real disk.
    if (QDir(QStringLiteral("/dev/shm")).exists())
        qputenv("TMPDIR", "/dev/shm");
    const QCoreApplication application(argc, argv);
    try {
        const int calls = saldoro::TryStorageFaults();
        const int others = saldoro::TrySystemFaults();
        std::printf("faults: %d failing calls and %d other faults: nothing lost\n", calls, others);
    } catch (const std::exception &error) {
        std::printf("faults: FAILED: %s\n", error.what());
        return 1;
    }
    return 0;
}
