#include "office/task.h"

#include "controls/message_box.h"
#include "platform/progress.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProgressDialog>
#include <QScopeGuard>

#include <limits>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** What ends a task that the user gives up; no error to be told. */
struct Cancelled
{
};

} // namespace

void HideProgress()
{
    Progress::setWatcher([](const QString & /*state*/) {});
}

bool Attempt(const std::function<void()> &action)
{
    try {
        action();
        return true;
    } catch (const Cancelled &) {
        return false;
    } catch (const std::exception &error) {
        ShowMessage(MessageKind::Critical, QString::fromUtf8(error.what()));
    }
    return false;
}

bool AttemptLong(QWidget &parent, const QString &title, const std::function<void()> &action)
{
    constexpr int moment = 500; // milliseconds
    QElapsedTimer time;
    time.start();
    QProgressDialog dialog(title, u"&Annulla"_s, 0, 0, &parent);
    dialog.setObjectName(u"Avanzamento"_s);
    dialog.setWindowTitle(title);
    dialog.setWindowModality(Qt::WindowModal);
    // The dialog would also show itself once this time has passed.
    dialog.setMinimumDuration(std::numeric_limits<int>::max());
    Progress::setWatcher([&](const QString &state) {
        if (time.elapsed() < moment)
            return;
        dialog.setLabelText(state);
        dialog.show();
        QCoreApplication::processEvents();
        if (dialog.wasCanceled())
            throw Cancelled();
    });
    const auto end = qScopeGuard(HideProgress);
    return Attempt(action);
}

} // namespace saldoro
