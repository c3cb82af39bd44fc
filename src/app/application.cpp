#include "app/application.h"

#include "app/error_report.h"
#include "common/ending.h"
#include "controls/application_look.h"
#include "controls/message_box.h"

namespace saldoro {

using namespace Qt::StringLiterals;

Application::Application(int &argc, char **argv)
    : QApplication(argc, argv)
{
    SetUpLook(*this);
}

int Application::run(const std::function<bool()> &startUp)
{
    int status = 0;
    try {
        // An error in an event handler during start-up has ended the program already.
        if (startUp() && !IsEnding())
            status = exec();
    } catch (const std::exception &error) {
        endWithReport(error);
    }
    return IsEnding() ? ErrorStatus : status;
}

bool Application::notify(QObject *receiver, QEvent *event)
{
    // The toolkit can't carry an exception through its event loops, so each one ends here.
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception &error) {
        endWithReport(error);
    }
    return false;
}

/** The first error counts: what fails while it is shown, or on the way out, is its consequence. */
void Application::endWithReport(const std::exception &error)
{
    if (IsEnding())
        return;
    SetEnding(true);
    try {
        ShowMessage(MessageKind::Critical, ErrorReport(error));
    } catch (...) {
        qCritical("Saldoro: %s", error.what());
    }
    exit(ErrorStatus);
}

} // namespace saldoro
