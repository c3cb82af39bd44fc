// The program with a player in the place of the person: saldoro_crash_player SEED STEPS TAIL

#include "app/application.h"
#include "app/start_up.h"
#include "common/message_box.h"
#include "session_player.h"

#include <QTimer>

#include <array>

int main(int argc, char *argv[])
{
    using namespace saldoro;
    if (argc != 4)
        return 2;
    std::array<char *, 2> programOnly = {argv[0], nullptr};
    int programOnlyCount = 1;
    Application application(programOnlyCount, programOnly.data());
    ReplaceMessageBoxes([](MessageKind kind, const QString &text) {
        if (kind == MessageKind::Critical)
            SessionPlayer::say({{QStringLiteral("error"), text}});
        return kind == MessageKind::Question ? MessageAnswer::Yes : MessageAnswer::Ok;
    });

    ProgramValues values;
    FormWiring forms(values);
    StartUp startUp(values, QString::fromLocal8Bit(argv[3]), [&forms] { forms.showMainForm(); });
    QObject::connect(&forms, &FormWiring::lastFormClosed, &application,
                     [] { QCoreApplication::exit(0); });
    SessionPlayer player(forms, QByteArray(argv[1]).toUInt(), QByteArray(argv[2]).toInt());
    QTimer::singleShot(0, &application, [&player] { player.play(); });
    return application.run([&startUp] { return startUp.run() == StartUpOutcome::MainFormShown; });
}
