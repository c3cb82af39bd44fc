#include "app/application.h"
#include "app/error_report.h"
#include "app/form_flow.h"
#include "app/start_up.h"
#include "app/update_handshake.h"
#include "common/program_values.h"
#include "controls/window_placement.h"
#include "overview/frm_principale.h"
#include "platform/console.h"
#include "platform/process.h"

#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

/** Works without a display, so errors go to the standard error stream. Returns the exit status. */
int writeManifest()
{
    try {
        saldoro::WriteUpdateManifest();
    } catch (const std::exception &error) {
        saldoro::PrintError(saldoro::Harmless(saldoro::ErrorReport(error)) + u'\n');
        return saldoro::Application::ErrorStatus;
    }
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    saldoro::LetLargeWritesFail();
    // The toolkit gets only the program's name: the tail belongs to the start-up.
    std::array<char *, 2> programOnly = {argv[0], nullptr};
    int programOnlyCount = 1;
    const QString tail = saldoro::CommandLineTail(argc, argv);
    if (saldoro::AsksForManifest(tail)) {
        const QCoreApplication application(programOnlyCount, programOnly.data());
        return writeManifest();
    }
    saldoro::Application application(programOnlyCount, programOnly.data());
    saldoro::KeepWindowSizes(saldoro::WindowSizesFile());
    saldoro::ProgramValues values;
    std::optional<saldoro::Database> createdLedger; // stays open
    std::optional<saldoro::FormFlow> forms;
    return application.run([&] {
        const bool goesOn = saldoro::StartUp(values, tail, createdLedger);
        if (goesOn)
            forms.emplace(values).mainForm()->reopen();
        return goesOn;
    });
}
