#pragma once

#include <QApplication>

#include <exception>
#include <functional>

namespace saldoro {

/**
 * The application object with the last-resort handler. An error that nothing has caught, during
 * start-up or in an event handler however deeply nested, is shown to the user once and ends the
 * program with status 1. From then on no form does its closing work (see IsEnding()).
 */
class Application : public QApplication
{
    Q_OBJECT

public:
    /** Exit status after an error. */
    static constexpr int ErrorStatus = 1;

    /** As for QApplication: both must outlive the object. */
    Application(int &argc, char **argv);

    /** Runs @p startUp and, if that returns true, the event loop until the last window has closed;
     *  returns the exit status. */
    int run(const std::function<bool()> &startUp);

    bool notify(QObject *receiver, QEvent *event) override;

private:
    void endWithReport(const std::exception &error);
};

} // namespace saldoro
