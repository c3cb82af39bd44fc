// saldoro_demo_archive CARTELLA [CODICE...]: makes the demo archive in a folder, for one project or
// several. Without a code: the demo's own project, and the one that the program opens by itself.

#include "common/errors.h"
#include "demo_archive.h"

#include <QCoreApplication>
#include <QTextStream>

using namespace saldoro;
using namespace Qt::StringLiterals;

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments().mid(1);
    QTextStream output(stdout);
    if (arguments.isEmpty()) {
        output << u"Uso: saldoro_demo_archive CARTELLA [CODICE...]\n"_s;
        return 2;
    }
    const QString root = arguments.takeFirst();
    if (arguments.isEmpty()) {
        arguments = {u"00112"_s, u"00039"_s};
    }
    try {
        for (const QString &code : arguments) {
            MakeDemoProject(root, code);
        }
    } catch (const SaldoroError &error) {
        output << error.message() << u'\n';
        return 1;
    }
    output << u"Archivio dimostrativo creato in %1 (progetti %2).\n"_s.arg(root,
                                                                           arguments.join(u", "_s));
    return 0;
}
