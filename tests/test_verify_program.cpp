#include "sound_project.h"
#include "verify/missing_value.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>

using namespace saldoro;

namespace {

/** Output and exit status of the program. */
QString run(const QStringList &words)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QString::fromLocal8Bit(COMPANION), words);
    if (!process.waitForFinished())
        return u"did not end"_s;
    return QString::number(process.exitCode()) + u' ' +
           QString::fromUtf8(process.readAllStandardOutput().replace("\r\n", "\n"));
}

/** Names, times and bytes of the files of a folder. */
QStringList stateOf(const QString &folder)
{
    QStringList state;
    for (const QFileInfo &info : QDir(folder).entryInfoList(QDir::Files, QDir::Name)) {
        QFile file(info.filePath());
        state += info.fileName() + info.lastModified().toString(Qt::ISODateWithMs) +
                 (file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll().toHex())
                                                 : u"unreadable"_s);
    }
    return state;
}

} // namespace

/** What the program saldoro-archivio tells, sets and leaves alone. */
class TestVerifyProgram : public QObject
{
    Q_OBJECT

private slots:
    void tellsByItsExitStatusAndChangesNothing();
    void setsAMissingValue_data();
    void setsAMissingValue();
    void leavesACopyThatIsWhole();
};

void TestVerifyProgram::tellsByItsExitStatusAndChangesNothing()
{
    const SoundProject project;
    const QString folder = project.folder();
    const QStringList before = stateOf(folder);
    QCOMPARE(run({u"verifica"_s, QString(folder).replace(u"LAVORI"_s, u"Lavori"_s)}),
             u"0 Nessun difetto trovato.\n"_s);
    QCOMPARE(stateOf(folder), before);
    // What a crash left behind is not put right, and not taken for sound either.
    {
        QFile file(folder + u"/Appalto.mdb-journal"_s);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("x") == 1);
        file.close();
        const QStringList crashed = stateOf(folder);
        const QString output = run({u"verifica"_s, folder});
        QVERIFY2(output.startsWith(u"2 "_s) && output.contains(u"a metà"_s), qPrintable(output));
        QCOMPARE(stateOf(folder), crashed);
        project.archive.execute(project.path(u'L'), u"UPDATE Fatture SET Del = NULL"_s);
        QVERIFY(run(u"verifica --imposta 2 Del 01/02/2020"_s.split(u' ') << folder)
                    .contains(u"I valori sono stati impostati; il controllo non"_s));
        QVERIFY(file.remove());
    }
#ifndef Q_OS_WIN // where the engine does not mind it
    // A folder in the way of a file of the engine is no change that was broken off.
    QVERIFY(QDir(folder).mkdir(u"Saldoro.mdb-wal"_s));
    QVERIFY(run({u"verifica"_s, folder}).contains(u"Controllare i permessi del file"_s));
    QVERIFY(QDir(folder).rmdir(u"Saldoro.mdb-wal"_s));
#endif
    QVERIFY(run({u"verifica"_s, u"--codici"_s, folder + u"/Altrove.mdb"_s, folder})
                .startsWith(u"1 Archivi\n"_s));
    for (const QStringList &words : {QStringList{u"verifica"_s, folder + u"/manca"_s},
                                     QStringList(),
                                     {u"verifica"_s},
                                     {u"verifica"_s, folder, folder},
                                     {u"verifica"_s, folder, u"--imposta"_s, u"1"_s, u"Del"_s}})
        QVERIFY2(run(words).startsWith(u"2 "_s), qPrintable(words.join(u' ')));
    QVERIFY(run({u"--aiuto"_s}).contains(u"--imposta PAGAMENTO CAMPO VALORE"_s));
    QVERIFY(run({u"--versione"_s}).startsWith(u"0 saldoro-archivio 1."_s));
}

void TestVerifyProgram::setsAMissingValue_data()
{
    QTest::addColumn<QString>("stored");
    QTest::newRow("3 del 5/3/2004") << u"2004-03-05|-|-"_s;
    QTest::newRow("3 Importo 1.234.567,8901") << u"-|12345678901|-"_s;
    QTest::newRow("3 IMPORTOIVA -0,5") << u"-|-|-5000"_s;
    QTest::newRow("3 Importo 922337203685477,5807") << u"-|9223372036854775807|-"_s;
    // Refused: nothing is set, no copy is made.
    for (const char *words :
         {"3 Importo 922337203685477,5808", "3 Importo 12.34", "3 Importo 1.23,4",
          "3 Importo 1,23456", "3 Importo ", "3 Del 30/02/2004", "3 Del 5/3/04", "3 Npag 3",
          "3x Del 05/03/2004", "7 Del 05/03/2004", "1 Del 05/03/2004", "4 Del 05/03/2004"})
        QTest::newRow(words) << u"-|-|-"_s;
}

void TestVerifyProgram::setsAMissingValue()
{
    const QString words = QString::fromUtf8(QTest::currentDataTag());
    QFETCH(const QString, stored);
    const SoundProject project;
    project.archive.execute(project.path(u'L'),
                            u"INSERT INTO Fatture (AziProf, Npag, Creditore) VALUES "
                            "('P', 3, 'x'), ('P', 4, 'y'), ('A', 4, 'z')"_s);
    const QStringList before = stateOf(project.folder());
    const QString output = run(QStringList{u"verifica"_s, u"--imposta"_s} + words.split(u' ') +
                               QStringList{project.folder()});
    QCOMPARE(project.archive.ledgerRows(
                 u"SELECT Del, Importo, ImportoIVA FROM Fatture WHERE Npag = 3"_s),
             stored);
    if (stored != "-|-|-"_L1) {
        QVERIFY2(output.startsWith(u"1 Valori impostati: 1."_s), qPrintable(output));
        QVERIFY(output.contains(u"--imposta 3 "_s) && !output.contains(u"--imposta 4 "_s));
        return;
    }
    QVERIFY2(output.startsWith(u"2 "_s), qPrintable(output));
    QCOMPARE(stateOf(project.folder()), before);
}

void TestVerifyProgram::leavesACopyThatIsWhole()
{
    const SoundProject project;
    project.archive.execute(project.path(u'L'), u"UPDATE Fatture SET Del = NULL"_s);
    const QString all = u"SELECT * FROM Fatture, Spese"_s;
    const QString before = project.archive.ledgerRows(all);
    const QString ledger = MachinePath(project.path(u'L'));
    const QString first = SetMissingValues(ledger, {{1, u"Del"_s, QDate(2021, 2, 3)}});
    const QString second = SetMissingValues(ledger, {{2, u"Del"_s, QDate(2021, 2, 4)}});
    QVERIFY(first != second);
    QCOMPARE(project.archive.rows(first, all), before);
    QCOMPARE(project.archive.rows(second, u"SELECT Npag, Del FROM Fatture"_s),
             u"1|2021-02-03\n2|-"_s);
    QVERIFY(project.check().isEmpty());
    // One that can't be set keeps all of them from being set.
    project.archive.execute(project.path(u'L'), u"UPDATE Fatture SET Del = NULL WHERE Npag = 1"_s);
    const MissingValue missing = {1, u"Del"_s, QDate(2021, 2, 3)};
    const QStringList copies = stateOf(project.folder());
    for (const MissingValue &other : {MissingValue{2, u"Del"_s, QDate(2021, 2, 4)}, missing})
        QVERIFY_THROWS_EXCEPTION(SaldoroError, SetMissingValues(ledger, {missing, other}));
    QCOMPARE(stateOf(project.folder()), copies);
    // One that fails all the same does not hide what was done before it.
    project.archive.execute(project.path(u'L'),
                            u"UPDATE Fatture SET Del = NULL; CREATE TRIGGER t BEFORE UPDATE ON "
                            "Fatture WHEN OLD.Npag = 2 BEGIN SELECT RAISE(ABORT, 'x'); END"_s);
    const QString output =
        run(u"verifica --imposta 1 Del 03/02/2021 --imposta 2 Del 04/02/2021"_s.split(u' ')
            << project.folder());
    QVERIFY(output.startsWith(u"2 Il comando è stato eseguito solo in parte."_s));
    QVERIFY(output.contains(u"Valori già impostati: 1\n"_s));
}

QTEST_GUILESS_MAIN(TestVerifyProgram)
#include "test_verify_program.moc"
