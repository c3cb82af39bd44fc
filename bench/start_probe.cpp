#include "app/application.h"
#include "app/form_flow.h"
#include "app/start_up.h"
#include "bare_reads.h"
#include "overview/frm_principale.h"

#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <cstdlib>

// Measured from outside, from the start of the process to its end:
//   saldoro_bench_start program PROJECT   the program's own start until its main screen is painted
//   saldoro_bench_start bare PROJECT      an empty window, and the main screen's rows read bare

namespace {

using namespace saldoro;
using namespace Qt::StringLiterals;

/** Ends the process, without any closing work, when the first window was painted. */
class EndWhenPainted : public QObject
{
public:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        // The whole window is painted before the event loop comes to the timer.
        if (event->type() == QEvent::Paint && watched->isWidgetType())
            QTimer::singleShot(0, this, [] { std::_Exit(EXIT_SUCCESS); });
        return false;
    }
};

int startProgram(int argc, char **argv, const QString &project)
{
    Application application(argc, argv);
    EndWhenPainted end;
    application.installEventFilter(&end);
    ProgramValues values;
    FormFlow forms(values);
    std::optional<Database> createdLedger;
    return application.run([&] {
        const bool goesOn = StartUp(values, LaunchToken.toString() + project, createdLedger);
        if (goesOn)
            forms.mainForm()->reopen();
        return goesOn;
    });
}

int startBare(int argc, char **argv, const QString &project)
{
    const QApplication application(argc, argv);
    EndWhenPainted end;
    qApp->installEventFilter(&end);
    ProgramValues values;
    InitInstallSettings(values);
    values.ProjectCode = project;
    if (ReadMainScreenRows(values) == 0)
        return EXIT_FAILURE;
    QWidget window;
    window.resize(900, 620);
    window.show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3)
        return EXIT_FAILURE;
    const QString project = QString::fromLocal8Bit(argv[2]);
    if (qstrcmp(argv[1], "program") == 0)
        startProgram(1, argv, project);
    else
        startBare(1, argv, project);
    return EXIT_FAILURE; // the window was never painted
}
