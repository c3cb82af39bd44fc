#include "controls/application_look.h"
#include "controls/window_placement.h"
#include "office/frm_appalti.h"
#include "office/task.h"
#include "platform/process.h"

#include <QApplication>

using namespace Qt::StringLiterals;

int main(int argc, char *argv[])
{
    saldoro::LetLargeWritesFail();
    QApplication application(argc, argv);
    saldoro::SetUpLook(application);
    saldoro::KeepWindowSizes(saldoro::WindowSizesFile());
    saldoro::HideProgress();
    saldoro::FrmAppalti contracts;
    contracts.show(); // and read when it becomes active
    return QApplication::exec();
}
