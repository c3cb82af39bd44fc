#include "sound_project.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>

using namespace saldoro;

namespace {

/** Exit status and output of the program. */
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

/** What the program saldoro-archivio tells, by its exit status too, sets and leaves alone. */
class TestArchivio : public QObject
{
    Q_OBJECT

private slots:
    void commandLine_data();
    void commandLine();
    void tellsWhatHindersTheCheck();
    void setsMissingValues_data();
    void setsMissingValues();
    void tellsWhatIsDoneBeforeAFailure();
};

void TestArchivio::commandLine_data()
{
    QTest::addColumn<QString>("output");
    const auto add = [](const char *words, const QByteArray &output) {
        QTest::newRow(words) << QString::fromUtf8(output);
    };
    // PROGETTO and CSV stand for folders that are there; no row changes PROGETTO.
    add("", "2 Il comando non è stato eseguito.\nManca il comando: verifica, importa o esporta.\n");
    add("pippo", "2 Il comando non è stato eseguito.\nIl comando pippo non esiste.\n");
    add("--aiuto", "0 Uso: saldoro-archivio verifica");
    add("esporta --versione", "0 saldoro-archivio 1.");
    add("verifica PROGETTO", "0 Nessun difetto trovato.\n");
    add("verifica --codici PROGETTO/Altrove.mdb PROGETTO",
        "1 Archivi\n  - Altrove.mdb: L'archivio non è stato trovato.\n    Che fare: Controllare");
    add("verifica", "2 Il comando non è stato eseguito.\nDopo verifica ci vuole: CARTELLA\n");
    add("verifica PROGETTO PROGETTO", "2 Il comando non è stato eseguito.\nDopo verifica");
    add("verifica PROGETTO/manca", "2 Il comando non è stato eseguito.\nLa cartella non esiste.\n");
    add("verifica PROGETTO --nuovo",
        "2 Il comando non è stato eseguito.\nL'opzione --nuovo non esiste.\n");
    add("verifica PROGETTO --imposta 1 Del",
        "2 Il comando non è stato eseguito.\nDopo --imposta manca qualcosa.\n");
    const char *wrong =
        "1 Errori:\n  Spese.csv, riga 2, campo RelNpag: «x» non è un numero intero, "
        "o è fuori misura.\n";
    add("importa CSV PROGETTO",
        QByteArray(wrong) + "  Spese.csv: la tabella contiene già 3 righe; con --sostituisci");
    add("importa CSV PROGETTO --sostituisci spese --comunque",
        QByteArray(wrong) + "Niente è stato scritto.\n");
    add("importa CSV", "2 Il comando non è stato eseguito.\nDopo importa ci vuole: CARTELLA_CSV");
    add("esporta PROGETTO CSV", "2 Il comando non è stato eseguito.\nIl file c'è già.\n");
    add("esporta PROGETTO CSV --sovrascrivi", "0 Funzioni: 10 righe\n");
}

void TestArchivio::commandLine()
{
    const SoundProject project;
    const QTemporaryDir csv;
    QFile spese(csv.filePath(u"Spese.csv"_s));
    QVERIFY(spese.open(QIODevice::WriteOnly) && spese.write("RelNpag;Cod;Importo\nx;A1;1\n") > 0);
    spese.close();
    const QStringList before = stateOf(project.folder());
    QStringList words = QString::fromUtf8(QTest::currentDataTag()).split(u' ');
    words.replaceInStrings(u"CSV"_s, csv.path());
    // In other letter case the folder is the same.
    words.replaceInStrings(u"PROGETTO"_s, project.folder().replace(u"LAVORI"_s, u"Lavori"_s));
    words.removeAll({});
    const QString told = run(words);
    QFETCH(const QString, output);
    QVERIFY2(told.startsWith(output), qPrintable(told));
    QCOMPARE(stateOf(project.folder()), before);
}

void TestArchivio::tellsWhatHindersTheCheck()
{
    const SoundProject project;
    const QString folder = project.folder();
    // What a crash left behind is not put right, and not taken for sound either.
    QFile journal(folder + u"/Appalto.mdb-journal"_s);
    QVERIFY(journal.open(QIODevice::WriteOnly) && journal.write("x") == 1);
    journal.close();
    const QStringList crashed = stateOf(folder);
    const QString output = run({u"verifica"_s, folder});
    QVERIFY2(output.startsWith(u"2 "_s) && output.contains(u"a metà"_s), qPrintable(output));
    QCOMPARE(stateOf(folder), crashed);
    project.archive.execute(project.path(u'L'), u"UPDATE Fatture SET Del = NULL"_s);
    QVERIFY(run(u"verifica --imposta 2 Del 01/02/2020"_s.split(u' ') << folder)
                .contains(u"I valori sono stati impostati; il controllo non"_s));
    QVERIFY(journal.remove());
#ifndef Q_OS_WIN // where the engine does not mind it
    // A folder in the way of a file of the engine is no change that was broken off.
    QVERIFY(QDir(folder).mkdir(u"Saldoro.mdb-wal"_s));
    QVERIFY(run({u"verifica"_s, folder}).contains(u"Controllare i permessi del file"_s));
#endif
}

void TestArchivio::setsMissingValues_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("output");
    const auto set = [](const char *words, const char *stored, const char *output) {
        QTest::newRow(words) << QString::fromUtf8(stored) << QString::fromUtf8(output);
    };
    set("3 del 5/3/2004", "2004-03-05|-|-", "1 Valori impostati: 1.");
    set("3 Importo 1.234.567,8901", "-|12345678901|-", "1 Valori impostati: 1.");
    set("3 IMPORTOIVA -0,5", "-|-|-5000", "1 Valori impostati: 1.");
    set("3 Importo 922337203685477,5807", "-|9223372036854775807|-", "1 Valori impostati: 1.");
    set("3 Importo 1 3 ImportoIVA 2 3 Del 31/12/1999", "1999-12-31|10000|20000",
        "1 Valori impostati: 3.");
    // Refused: nothing is set, no copy is made.
    const auto refuse = [&set](const char *words, const QString &problem) {
        set(words, "-|-|-", (u"2 Il comando non è stato eseguito.\n"_s + problem + u'\n').toUtf8());
    };
    for (const char *words : {"3 Importo 922337203685477,5808", "3 Importo 12.34",
                              "3 Importo 1.23,4", "3 Importo 1,23456", "3 Importo "})
        refuse(words, u"«%1» non è un importo come 1.234,56."_s.arg(
                          QString::fromUtf8(words).section(u' ', 2)));
    refuse("3 Del 30/02/2004", u"«30/02/2004» non è una data gg/mm/aaaa."_s);
    refuse("3 Del 5/3/04", u"«5/3/04» non è una data gg/mm/aaaa."_s);
    refuse("3 Npag 3", u"Si possono impostare soltanto Del, Importo e ImportoIVA."_s);
    refuse("3x Del 05/03/2004", u"Il numero del pagamento non è un numero intero."_s);
    refuse("7 Del 05/03/2004", u"Nessun pagamento ha questo numero."_s);
    refuse("1 Del 05/03/2004", u"Il campo ha già un valore, che non viene sostituito."_s);
    refuse("4 Del 05/03/2004",
           u"Più di un pagamento ha questo numero: non è chiaro quale cambiare."_s);
    refuse("3 Del 05/03/2004 3 del 05/03/2004", u"Lo stesso campo è indicato due volte."_s);
    refuse("3 Del 05/03/2004 1 Del 05/03/2004",
           u"Il campo ha già un valore, che non viene sostituito."_s);
}

void TestArchivio::setsMissingValues()
{
    const SoundProject project;
    project.archive.execute(project.path(u'L'),
                            u"INSERT INTO Fatture (AziProf, Npag, Creditore) VALUES "
                            "('P', 3, 'x'), ('P', 4, 'y'), ('A', 4, 'z')"_s);
    const QString all = u"SELECT * FROM Fatture, Spese"_s;
    const QString rows = project.archive.ledgerRows(all);
    const QStringList before = stateOf(project.folder());
    QStringList words{u"verifica"_s, project.folder()};
    const QStringList values = QString::fromUtf8(QTest::currentDataTag()).split(u' ');
    for (qsizetype place = 0; place < values.size(); place += 3)
        words += QStringList{u"--imposta"_s} + values.sliced(place, 3);
    const QString told = run(words);
    QFETCH(const QString, output);
    QVERIFY2(told.startsWith(output), qPrintable(told));
    QFETCH(const QString, stored);
    QCOMPARE(project.archive.ledgerRows(
                 u"SELECT Del, Importo, ImportoIVA FROM Fatture WHERE Npag = 3"_s),
             stored);
    if (output.startsWith(u'2')) {
        QCOMPARE(stateOf(project.folder()), before);
        return;
    }
    QCOMPARE(told.contains(u"--imposta 3 Del gg/mm/aaaa"_s), stored.startsWith(u'-'));
    // The copy beside it is the ledger as it was.
    const QString copy = told.section(u"com'era: "_s, 1).section(u'\n', 0, 0);
    QCOMPARE(project.archive.rows(copy, all), rows);
}

void TestArchivio::tellsWhatIsDoneBeforeAFailure()
{
    const SoundProject project;
    project.archive.execute(project.path(u'L'),
                            u"UPDATE Fatture SET Del = NULL; CREATE TRIGGER t BEFORE UPDATE ON "
                            "Fatture WHEN OLD.Npag = 2 BEGIN SELECT RAISE(ABORT, 'x'); END"_s);
    const QString output =
        run(u"verifica --imposta 1 Del 03/02/2021 --imposta 2 Del 04/02/2021"_s.split(u' ')
            << project.folder());
    QVERIFY(output.startsWith(u"2 Il comando è stato eseguito solo in parte."_s));
    QVERIFY(output.contains(u"Valori già impostati: 1\n"_s));
}

QTEST_GUILESS_MAIN(TestArchivio)
#include "test_archivio.moc"
