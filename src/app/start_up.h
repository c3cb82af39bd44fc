#pragma once

#include "common/program_values.h"
#include "database/database.h"

#include <QString>

#include <functional>
#include <optional>

namespace saldoro {

/** The project code in a command-line tail: everything behind the launch token, verbatim, or the
 *  default project's code when the tail does not begin with the token. */
QString ProjectCodeFromTail(const QString &tail);

/**
 * The start-up sequence: settings, update check, project, ledger, main form, in this order. The
 * object must live as long as the program, since it keeps the ledger open that it has created.
 */
class StartUp
{
public:
    /** @param tail the command line behind the program's name, verbatim.
     *  @param showMainForm loads and shows the main form; called last, unless an update is waiting.
     */
    StartUp(ProgramValues &values, QString tail, std::function<void()> showMainForm);

    /** Runs the sequence; true when it came to the main form, without which the program ends.
     *  Errors of the ledger's creation (no project folder, no right to write) and of the main form
     *  pass through. */
    bool run();

private:
    void createLedgerIfMissing();

    ProgramValues &m_values;
    QString m_tail;
    std::function<void()> m_showMainForm;
    std::optional<Database> m_createdLedger;
};

} // namespace saldoro
