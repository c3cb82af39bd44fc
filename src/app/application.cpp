#include "app/application.h"

#include "app/error_report.h"
#include "common/ending.h"
#include "controls/message_box.h"

#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace saldoro {

using namespace Qt::StringLiterals;

Application::Application(int &argc, char **argv)
    : QApplication(argc, argv)
{
    // Not the display name: window systems append that to every caption.
    setApplicationName(u"Saldoro"_s);
    speakItalian();
}

/** Also the toolkit's own texts, where its translation is installed or built in. */
void Application::speakItalian()
{
    const QLocale italian(QLocale::Italian, QLocale::Italy);
    QLocale::setDefault(italian);
    auto *translator = new QTranslator(this);
    const QString installed = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (translator->load(italian, u"qtbase"_s, u"_"_s, installed) ||
        translator->load(u":/qtbase_it.qm"_s))
        installTranslator(translator);
}

int Application::run(const std::function<bool()> &startUp)
{
    int status = 0;
    try {
        // After an error in a handler of the start-up there is no loop to enter any more.
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
