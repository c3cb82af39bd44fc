// Lets every call of the system that changes a file fail or kill the program, and other programs
// and rights get in its way; looks at what it reports and leaves: saldoro_faults

#include "common/message_box.h"
#include "faults.h"

#include <QCoreApplication>
#include <QDir>

#include <cstdio>
#include <exception>

int main(int argc, char *argv[])
{
    using namespace saldoro;
    // Nothing here depends on a real disk.
    if (QDir(QStringLiteral("/dev/shm")).exists())
        qputenv("TMPDIR", "/dev/shm");
    const QCoreApplication application(argc, argv);
    ReplaceMessageBoxes([](MessageKind, const QString &) { return MessageAnswer::Yes; });
    int faults = 0;
    for (const Work &work : AllWorks()) {
        try {
            FaultTrial trial(work);
            faults += TryCallFaults(trial);
            faults += TrySystemFaults(trial);
        } catch (const std::exception &error) {
            std::printf("faults: FAILED: %s: %s\n", qPrintable(work.name), error.what());
            return 1;
        }
    }
    std::printf("faults: %d: nothing lost\n", faults);
    return 0;
}
