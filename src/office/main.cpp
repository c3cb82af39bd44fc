#include "controls/form_helpers.h"
#include "office/frm_appalti.h"

#include <QApplication>

using namespace Qt::StringLiterals;

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"Saldoro"_s);
    saldoro::FrmAppalti contracts;
    saldoro::CentraForm(contracts);
    contracts.load();
    contracts.show();
    return QApplication::exec();
}
