#include "bench_archive.h"
#include "bench_tasks.h"

#include <QApplication>
#include <QTemporaryDir>

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;

    const QTemporaryDir folder;
    saldoro::SetBenchFolder(folder.path());
    saldoro::AddStartUp();
    saldoro::AddLoad();
    saldoro::AddSave();
    saldoro::AddDelete();
    saldoro::AddClose();
    return benchmark::RunSpecifiedBenchmarks() == 0 ? 1 : 0;
}
