#include "answered_boxes.h"
#include "app/application.h"
#include "app/error_report.h"
#include "app/start_up.h"
#include "app/update_handshake.h"
#include "common/ending.h"
#include "common/errors.h"
#include "common/version.h"
#include "file_content.h"
#include "platform/machine_path.h"
#include "platform/process.h"
#include "platform/registry.h"
#include "store/archive_paths.h"
#include "store/archives_root.h"
#include "test_archive.h"

#include <QDialog>
#include <QDir>
#include <QProcess>
#include <QSettings>
#include <QTest>
#include <QTimer>

#include <stdexcept>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

const QString SaldoroProgram = QFileInfo(QStringLiteral(SALDORO_PROGRAM)).absoluteFilePath();

void setArchivesRoot(const QString &root)
{
    const QString key = SettingsKey.toString();
    if (RegistryFilePath().isEmpty()) { // there is a registry
        QSettings(u"HKEY_CURRENT_USER\\"_s + key, QSettings::NativeFormat)
            .setValue(ArchiveRootValue.toString(), root);
        return;
    }
    QFile::remove(RegistryFilePath());
    SetRegistryValue(key, ArchiveRootValue.toString(), root);
}

/** A program on a machine without a display: "status, what it said". */
QString runWithoutDisplay(const QString &path, const QString &argument)
{
    QProcess program;
    auto environment = QProcessEnvironment::systemEnvironment();
    for (const char *display : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(QString::fromLatin1(display));
    program.setProcessEnvironment(environment);
    program.start(path, {argument});
    if (!program.waitForFinished() || program.exitStatus() != QProcess::NormalExit)
        return u"crashed"_s;
    return QString::number(program.exitCode()) + u", "_s +
           QString::fromUtf8(program.readAllStandardError());
}

Application &application()
{
    return *static_cast<Application *>(QCoreApplication::instance());
}

} // namespace

class TestStartUp : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { InitInstallSettings(m_before); }
    void cleanupTestCase() { setArchivesRoot(m_before.ArchiveRoot); }

    void init()
    {
        m_archive = std::make_unique<TestArchive>(u"00039"_s);
        setArchivesRoot(m_archive->values().ArchiveRoot);
        m_workingFolder = std::make_unique<QTemporaryDir>();
        QDir::setCurrent(m_workingFolder->path());
        m_values = ProgramValues();
        m_boxes = std::make_unique<AnsweredBoxes>();
    }

    void cleanup()
    {
        QDir::setCurrent(QDir::tempPath());
        m_boxes.reset();
        SetEnding(false);
    }

    void buildText()
    {
        QCOMPARE(BuildText({1, 0, 1234}), u"10234"_s);
        QCOMPARE(BuildText({2, 3, 5}), u"23005"_s);
    }

    void manifestSwitch()
    {
        QVERIFY(AsksForManifest(u"/INI"_s) && AsksForManifest(u"/inI"_s));
        for (const QString &other : {u"/INI "_s, u" /INI"_s, u"/ını"_s, u"/INI /INI"_s, QString()})
            QVERIFY2(!AsksForManifest(other), qPrintable(other));
    }

    /** Without a display, a setting or an update check; what is there is overwritten. */
    void writesTheManifestAnywhere()
    {
        QVERIFY(QDir().mkdir(u"bin"_s));
        const QString program =
            u"bin/"_s + QFileInfo(SaldoroProgram).fileName().replace(u"Saldoro"_s, u"Prova"_s);
        QVERIFY(QFile::copy(SaldoroProgram, program));
        QFile file(program);
        QVERIFY(file.open(QIODevice::Append) &&
                file.setFileTime(QDateTime({2003, 2, 1}, {12, 0}), QFile::FileModificationTime));
        file.close();
        const QString name = u"Prova.ini"_s;
        WriteFile(name, QByteArray(5000, 'x'));
        WriteFile(updatePath(name), "[Configuration]\nBuild=99999\n");
        const QDateTime before = QDateTime::currentDateTime();
        QCOMPARE(runWithoutDisplay(program, u"/ini"_s), u"0, "_s);
        const QString text = QString::fromUtf8(ContentOf(name));
        const QString date = text.section(u"\nData = "_s, 1).left(10);
        const QString time = text.section(u"\nTime = "_s, 1).left(8);
        const QDateTime written(QDate::fromString(date, u"dd/MM/yyyy"_s),
                                QTime::fromString(time, u"HH:mm:ss"_s));
        QVERIFY(before.secsTo(written) >= 0 && written <= QDateTime::currentDateTime());
        QCOMPARE(text, u"[Configuration]\r\nAutorun = Prova.exe\r\n"
                       "Versione = %1     (01/02/2003)\r\nBuild = %2\r\n"
                       "KeyReg = Software\\Dornvale\\ZELT\r\nData = %3\r\nTime = %4\r\n\r\n"
                       "[FILE]\r\nNUMFILE = 1\r\nFILE1 = Prova.EXE\r\n"_s.arg(
                           VersionText, BuildText(OwnVersion()), date, time));
        QCOMPARE(QDir().entryList(QDir::Files), QStringList{name});

        const QString unseen = u"Pro\u200Bva"_s;
        QVERIFY(QFile::remove(name) && QFile::rename(program, u"bin/"_s + unseen) &&
                QDir().mkdir(unseen + u".ini"_s)); // a folder stands in the way
        const QString said = runWithoutDisplay(u"bin/"_s + unseen, u"/INI"_s);
        QVERIFY2(said.startsWith(u"1, Al posto del file"), qPrintable(said));
        QVERIFY2(
            said.contains(QDir::toNativeSeparators(QDir().absoluteFilePath(u"Pro\uFFFDva.ini"_s))),
            qPrintable(said));
    }

    void updateCheck()
    {
        InitInstallSettings(m_values);
        const QString next = QString::number(m_values.ProgramBuild.toInt() + 1);
        QVERIFY(!UpdateIsWaiting(m_values)); // no manifest
        for (const auto &[build, isWaiting] : {std::pair{u" = "_s + next, true},
                                               {u"="_s + m_values.ProgramBuild + u".5"_s, true},
                                               {u"="_s + m_values.ProgramBuild, false},
                                               {u"=9999"_s, false}, // greater as text
                                               {u"=x"_s + next, false}}) {
            putManifest("Build" + build.toUtf8());
            QVERIFY2(UpdateIsWaiting(m_values) == isWaiting, qPrintable(build));
        }
    }

    /** Before anything else: the updater is called, or missed, without a ledger. */
    void updateComesFirst()
    {
        QVERIFY(QFile::remove(MachinePath(LedgerPath(m_archive->values()))));
        putManifest("Build=99999");
        QVERIFY(!start({}));
        QCOMPARE(m_boxes->messages.join(u'|'), u"!Il file Updrun2.exe Non è stato trovato"_s);
        const QString updater = updatePath(u"UPDRUN2.exe"_s);
        QVERIFY(QFile::copy(QCoreApplication::applicationDirPath() +
                                QStringLiteral("/" UPDATER_RECORDER),
                            updater));
        QVERIFY(!start({}));
        QTRY_COMPARE(ContentOf(updater + u".txt"_s), "/F\n" + ProgramName().toUtf8() + '\n');
        QCOMPARE(m_boxes->messages.size(), 1);
        QVERIFY(!QFile::exists(MachinePath(LedgerPath(m_archive->values()))));
    }

    void projectCode()
    {
        QCOMPARE(ProjectCodeFromTail({}), u"00039"_s);
        QCOMPARE(ProjectCodeFromTail(u"TUSMQDE7W 00 112 "_s), u" 00 112 "_s);
        QCOMPARE(ProjectCodeFromTail(u"TUSMQDE7W"_s), QString());
        QCOMPARE(ProjectCodeFromTail(u"tusmqde7w00112"_s), u"00039"_s);
    }

    void ledgerIsMadeOnlyWhenMissing()
    {
        const QString ledger = MachinePath(LedgerPath(m_archive->values()));
        QVERIFY(QFile::remove(ledger));
        // Nor where the disk is away that a link leads to, or one is missing that needs its
        // journal.
        if (QSysInfo::kernelType() != "winnt"_L1) {
            QVERIFY(QFile::link(u"nowhere"_s, ledger) && start({}));
            QVERIFY(!QFile::exists(ledger) && QFile::remove(ledger));
        }
        WriteFile(ledger + u"-journal"_s, "x");
        QVERIFY_THROWS_EXCEPTION(FileError, start({}));
        QVERIFY(!QFile::exists(ledger) && QFile::remove(ledger + u"-journal"_s));
        QVERIFY(start({}));
        QCOMPARE(m_values.ArchiveRoot, m_archive->values().ArchiveRoot);
        QCOMPARE(m_archive->ledgerRows(u"SELECT count(*) FROM Fatture"_s).trimmed(), u"0"_s);

        WriteFile(ledger, "no database"); // nor is a damaged or oddly spelt one replaced
        QVERIFY(QFile::rename(ledger, QString(ledger).replace(u"Saldoro.mdb"_s, u"SALDORO.MDB"_s)));
        QVERIFY(start(u"TUSMQDE7W00039"_s));
        QCOMPARE(ContentOf(MachinePath(LedgerPath(m_values))), QByteArray("no database"));
    }

    void missingFolderEndsTheProgram()
    {
        QCOMPARE(application().run([this] { return start(u"TUSMQDE7W77777"_s); }), 1);
        QCOMPARE(m_boxes->messages.size(), 1);
        const QString missing = QDir::toNativeSeparators(MachinePath(ProjectFolder(m_values)));
        for (const QString &part : {u"Saldoro.mdb"_s, u"\"drivers\" di "_s,
                                    u"Non esiste la cartella: "_s + missing + u'\n'})
            QVERIFY2(m_boxes->messages[0].contains(part), qUtf8Printable(m_boxes->messages[0]));
        QVERIFY(IsEnding());
    }

    /** An error below an open dialog leaves through both loops; one during the report is swallowed.
     */
    void errorInNestedHandlerEndsOnce()
    {
        QStringList messages;
        ReplaceMessageBoxes([&messages](MessageKind, const QString &text) {
            messages += text;
            QTimer::singleShot(0, qApp, [] { throw OverflowError(u"secondo"_s); });
            QCoreApplication::processEvents();
            throw std::runtime_error("third");
            return false;
        });
        QDialog dialog;
        int dialogResult = -1;
        QTimer::singleShot(0, &dialog, [&] {
            QTimer::singleShot(0, &dialog, [] { throw OverflowError(u"primo"_s, u"rimedio"_s); });
            dialogResult = dialog.exec();
        });
        QTest::ignoreMessage(QtCriticalMsg, "Saldoro: primo\n\nrimedio");
        QCOMPARE(application().run([] { return true; }), 1);
        QCOMPARE(messages, QStringList{u"primo\n\nrimedio"_s});
        QCOMPARE(dialogResult, static_cast<int>(QDialog::Rejected));

        SetEnding(false); // and without an error: no form, no loop
        QCOMPARE(application().run([] { return false; }), 0);
    }

    void reportNamesTheCheck()
    {
        const auto report = [](DatabaseFault fault, const QString &file) {
            return ErrorReport(DatabaseError(fault, file)).section(u'\n', -1);
        };
        const auto restore = qScopeGuard([path = qgetenv("PATH")] { qputenv("PATH", path); });
        qputenv("PATH", "");
        const QString place = QCoreApplication::applicationDirPath() + u"/saldoro-archivio"_s;
        const QString check =
            u"Per controllare l'archivio: «Controlla» in Saldoro - Appalti, oppure eseguire: "
            "\"%1\" verifica "_s.arg(QDir::toNativeSeparators(place));
        QCOMPARE(report(DatabaseFault::NullValue, u"/a b/Saldoro.mdb"_s), check + u"\"/a b\""_s);
        QCOMPARE(report(DatabaseFault::NullValue, u"/a/chiavi.mdb"_s), check + u"CARTELLA"_s);
        QVERIFY(!report(DatabaseFault::Locked, u"/a/Saldoro.mdb"_s).contains(u"verifica"_s));
        QVERIFY(
            ErrorReport(std::runtime_error("bad")).contains(u"imprevisto.\nParticolari: bad\n"_s));
    }

private:
    bool start(const QString &tail)
    {
        std::optional<Database> ledger;
        return StartUp(m_values, tail, ledger);
    }

    QString updatePath(const QString &name) const
    {
        return MachinePath(UpdateFolder(m_archive->values()) + name);
    }

    void putManifest(const QByteArray &build) const
    {
        WriteFile(updatePath(ProgramName().toLower() + u".ini"_s), "[Configuration]\r\n" + build);
    }

    std::unique_ptr<TestArchive> m_archive;
    ProgramValues m_before;
    std::unique_ptr<QTemporaryDir> m_workingFolder;
    ProgramValues m_values;
    std::unique_ptr<AnsweredBoxes> m_boxes;
};

int main(int argc, char *argv[])
{
    Application application(argc, argv);
    TestStartUp test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_start_up.moc"
