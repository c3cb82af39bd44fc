// saldoro_demo_tour PROGETTO CARTELLA_IMMAGINI: the program's windows without a display. The
// archive is the one that the per-user setting names, as for the program itself.

#include "app/application.h"
#include "app/start_up.h"
#include "common/message_box.h"
#include "demo_tour.h"

#include <array>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

MessageAnswer printMessage(MessageKind kind, const QString &text)
{
    QTextStream(stderr) << u'\n' << text << u'\n';
    return kind == MessageKind::Question ? MessageAnswer::No : MessageAnswer::Ok;
}

/** The off-screen platform remarks on everything that needs a screen; only failures matter. */
void printFailure(QtMsgType type, const QMessageLogContext & /*context*/, const QString &text)
{
    if (type == QtCriticalMsg || type == QtFatalMsg) {
        QTextStream(stderr) << text << u'\n';
    }
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 3) {
        QTextStream(stderr) << u"Uso: saldoro_demo_tour PROGETTO CARTELLA_IMMAGINI\n"_s;
        return 2;
    }
    qInstallMessageHandler(printFailure);
    if (!qgetenv("QT_QPA_PLATFORM").startsWith("offscreen")) { // whose screen may be described
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    std::array<char *, 2> programOnly = {argv[0], nullptr};
    int programOnlyCount = 1;
    Application application(programOnlyCount, programOnly.data());
    ReplaceMessageBoxes(printMessage);
    ProgramValues values;
    FormFlow forms(values);
    StartUp startUp(values, u"TUSMQDE7W"_s + QString::fromLocal8Bit(argv[1]),
                    [&forms] { forms.showMainForm(); });
    const QString pictures = QString::fromLocal8Bit(argv[2]);
    // The tour is over when it returns: there is no loop to be entered.
    return application.run([&] {
        if (startUp.run()) {
            DemoTour(values, forms, pictures).run();
        }
        return false;
    });
}
