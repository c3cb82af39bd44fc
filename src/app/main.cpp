#include "app/application.h"
#include "app/form_wiring.h"
#include "app/start_up.h"
#include "common/program_values.h"
#include "platform/process.h"

#include <array>

int main(int argc, char *argv[])
{
    // The toolkit gets the program's name alone: the whole tail belongs to the start-up sequence.
    std::array<char *, 2> programOnly = {argv[0], nullptr};
    int programOnlyCount = 1;
    saldoro::Application application(programOnlyCount, programOnly.data());

    saldoro::ProgramValues values;
    saldoro::FormWiring forms(values);
    saldoro::StartUp startUp(values, saldoro::CommandLineTail(argc, argv),
                             [&forms] { forms.showMainForm(); });
    QObject::connect(&forms, &saldoro::FormWiring::lastFormClosed, &application,
                     [] { QCoreApplication::exit(0); });
    return application.run(
        [&startUp] { return startUp.run() == saldoro::StartUpOutcome::MainFormShown; });
}
