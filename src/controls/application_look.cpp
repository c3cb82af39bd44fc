#include "controls/application_look.h"

#include "controls/screen_reader.h"
#include "controls/stray_input.h"

#include <QGuiApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace saldoro {

using namespace Qt::StringLiterals;

void SetUpLook(QCoreApplication &application)
{
    // Not the display name: window systems append that to every caption.
    QCoreApplication::setApplicationName(u"Saldoro"_s);
    QGuiApplication::setDesktopFileName(u"saldoro"_s);
    const QLocale italian(QLocale::Italian, QLocale::Italy);
    QLocale::setDefault(italian);
    auto *translator = new QTranslator(&application);
    const QString installed = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (translator->load(italian, u"qtbase"_s, u"_"_s, installed) ||
        translator->load(u":/qtbase_it.qm"_s))
        QCoreApplication::installTranslator(translator);
    // Task switchers show it, too; the menu entry has its own.
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256})
        icon.addFile(u":/icons/saldoro-%1.png"_s.arg(size));
    QGuiApplication::setWindowIcon(icon);
    GiveWindowsTheirRole();
    WatchStrayInput();
}

QColor MixedColor(const QColor &from, const QColor &to, int percent)
{
    const auto mix = [percent](int a, int b) { return a + (b - a) * percent / 100; };
    return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

} // namespace saldoro
