#include "overview_probe.h"
#include "platform/machine_path.h"
#include "verify/options.h"
#include "verify/verification.h"

#include <QDir>
#include <QProcess>
#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

/** A project without any defect: two payments, their allocations, notes and the contractor. */
class SoundProject
{
public:
    /** Made once, then copied: every write of the making is synced to the disk. */
    SoundProject()
    {
        static QHash<QChar, QByteArray> made;
        if (made.isEmpty())
            make();
        for (const QChar name : u"LCAK"_s) {
            QFile file(MachinePath(path(name)));
            if (made.contains(name) && file.open(QIODevice::WriteOnly))
                file.write(made.value(name));
            else if (file.open(QIODevice::ReadOnly))
                made.insert(name, file.readAll());
        }
    }

    void make()
    {
        archive.build().addStandardCodes();
        archive.build().addCompany(4, u"Edil Valle"_s, u"ATI"_s);
        archive.execute(
            ContractPath(archive.values()),
            u"INSERT INTO UltimaPerVariante VALUES ('A1','Scavi',90000000),('B2','Ponti',NULL);"
            "INSERT INTO SchedaProgetto (Voce, Stringa, Link) VALUES ('D0101','Edil Valle',4),"
            "('M0097_1','Mandato nr.7 del 01/02/2020',NULL),"
            "('M0097_2','Mandato nr. del __/__/____',NULL)"_s);
        archive.execute(
            LedgerPath(archive.values()),
            u"INSERT INTO Fatture (AziProf, Npag, Creditore, Del, Importo, ImportoIVA, "
            "AltriImporti01) VALUES ('A',1,'Edil Valle','2020-01-31',1000000,220000,77),"
            "('P',2,'Ing. Po','2020-02-01',500000,110000,5000);"
            "UPDATE Fatture SET (ImportoPrest, Contributo, CassaPrev, ImportoRA) = (500000, 0, 0, "
            "0)"
            " WHERE AziProf = 'P';"
            "INSERT INTO Spese VALUES (1,'A1','Scavi',1220000),(2,'A1','Scavi',600000),"
            "(2,'B2','Ponti',15000)"_s);
    }

    QString path(QChar file) const { return PathOf(archive, file); }
    QString folder() const { return MachinePath(ProjectFolder(archive.values())); }
    Findings check() const { return VerifyProject(FilesOfProject(folder(), {})); }

    TestArchive archive;
};

/** Places and problems, one a line, each cut to what is expected there if it begins so. */
QString summary(const Findings &findings, const QString &expected)
{
    QStringList lines = expected.split(u'\n');
    lines.resize(findings.size());
    for (qsizetype place = 0; place < findings.size(); ++place) {
        const QString text = findings[place].place + u": "_s + findings[place].problem;
        if (lines[place].isEmpty() || !text.startsWith(lines[place]))
            lines[place] = text;
    }
    return lines.join(u'\n');
}

/** Output and exit status of the program. */
QString run(const QStringList &words)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QString::fromLocal8Bit(VERIFY_PROGRAM), words);
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

class TestVerify : public QObject
{
    Q_OBJECT

private slots:
    void finds_data();
    void finds();
    void countsWhatTheScreensCannotHold();
    void unreadableFilesAreFindings();
    void tellsByItsExitStatusAndChangesNothing();
    void setsAMissingValue_data();
    void setsAMissingValue();
    void leavesACopyThatIsWhole();
};

void TestVerify::finds_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("found");
    const auto add = [](const char *file, const char *sql, const char *found) {
        QTest::newRow(sql) << QString::fromUtf8(file) << QString::fromUtf8(found);
    };
    add("L",
        "UPDATE Fatture SET (Importo, ImportoIVA, Creditore, Del, ImportoPrest, Contributo, "
        "CassaPrev, ImportoRA) = (NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL) WHERE Npag = 2",
        "Pagamento 2 (riga 2): manca il valore di Creditore:\n"
        "Pagamento 2 (riga 2): manca il valore di Del:\n"
        "Pagamento 2 (riga 2): manca il valore di Importo:\n"
        "Pagamento 2 (riga 2): manca il valore di ImportoIVA:\n"
        "Pagamento 2 (riga 2): manca il valore di Importo Prestazione, Contributo, Cassa "
        "Previdenza, Importo R.A.: la chiusura");
    add("L", "UPDATE Fatture SET Npag = NULL WHERE Npag = 2",
        "Pagamento senza numero (riga 1, Ing. Po): manca il valore di\n"
        "Conto di spesa alla riga 2 (pagamento 2, codice A1): non è di nessun\n"
        "Conto di spesa alla riga 3 (pagamento 2, codice B2): non è di nessun\n"
        "Mandato M0097_2: il pagamento 2 non");
    add("L", "UPDATE Fatture SET AziProf = 'a' WHERE Npag = 1",
        "Pagamento 1 (riga 1, Edil Valle): il tipo di creditore");
    add("L", "UPDATE Fatture SET AziProf = NULL WHERE Npag = 1",
        "Pagamento 1 (riga 1, Edil Valle): manca il tipo di creditore (AziProf):");
    add("L",
        "INSERT INTO Fatture SELECT * FROM Fatture WHERE Npag = 1; UPDATE Spese SET RelNpag = 3 "
        "WHERE RelNpag = 2; UPDATE Fatture SET Npag = 3 WHERE Npag = 2",
        "Pagamento 1: il numero è usato\nNumero 2: nessun pagamento ha questo\n"
        "Riga 2: qui l'elenco mostra il pagamento 1,\nMandato M0097_2: il pagamento 2 non");
    add("L", "UPDATE Fatture SET Npag = Npag - 1; UPDATE Spese SET RelNpag = RelNpag - 1",
        "Pagamento 0 (riga 1, Edil Valle): il numero è minore\n"
        "Righe da 1 a 2: qui l'elenco mostra\nMandato M0097_2: il pagamento 2 non");
    add("L",
        "UPDATE Fatture SET Npag = 3 WHERE Npag = 2; UPDATE Spese SET RelNpag = RelNpag + 1 "
        "WHERE RelNpag = 2",
        "Numero 2: nessun pagamento ha questo\nRiga 2: qui l'elenco mostra il pagamento 3,\n"
        "Pagamento 3 (riga 2, Ing. Po): «Nuovo» userà il numero\n"
        "Mandato M0097_2: il pagamento 2 non");
    add("L", "UPDATE Fatture SET Importo = 9223372036854775807, ImportoIVA = 1 WHERE Npag = 1",
        "Pagamento 1 (riga 1, Edil Valle): la somma degli importi\n"
        "Pagamenti alle aziende: la somma supera il");
    add("L",
        "UPDATE Fatture SET Importo = 'dieci', Del = 'ieri', NFat = '12345678901', "
        "Descrizione = 'a' || char(0) || 'b' WHERE Npag = 1",
        "Pagamento 1 (riga 1, Edil Valle), Fatture.NFat: il testo ha 11\n"
        "Pagamento 1 (riga 1, Edil Valle), Fatture.Del: il valore «ieri» non\n"
        "Pagamento 1 (riga 1, Edil Valle), Fatture.Descrizione: il testo contiene caratteri\n"
        "Pagamento 1 (riga 1, Edil Valle), Fatture.Importo: il valore «dieci» non");
    add("L", "UPDATE Fatture SET ImportoIVA = ImportoIVA + 49", "");
    add("L", "UPDATE Fatture SET ImportoIVA = ImportoIVA + 50",
        "Pagamento 1 (riga 1, Edil Valle): i conti di spesa\n"
        "Pagamento 2 (riga 2, Ing. Po): i conti di spesa");
    add("L", "UPDATE Spese SET Importo = NULL WHERE Cod = 'B2'",
        "Conto di spesa alla riga 3 (pagamento 2, codice B2): manca l'importo: il quadro");
    add("L", "UPDATE Spese SET Cod = NULL, Importo = NULL WHERE Cod = 'B2'",
        "Conto di spesa alla riga 3 (pagamento 2, codice mancante): manca il codice della\n"
        "Conto di spesa alla riga 3 (pagamento 2, codice mancante): manca l'importo: nella "
        "fattura");
    add("L", "INSERT INTO Spese VALUES (2, 'Z9', 'x', 0), (2, 'b2', 'x', 0)",
        "Conto di spesa alla riga 4 (pagamento 2, codice Z9): l'appalto non ha una\n"
        "Conto di spesa alla riga 5 (pagamento 2, codice b2): la voce dell'appalto si\n"
        "Conto di spesa alla riga 5 (pagamento 2, codice b2): il pagamento ha già");
    add("C",
        "INSERT INTO UltimaPerVariante VALUES (NULL, 'x', 'y'), ('C3', NULL, 1), ('a1', 'x', 1), "
        "('D''4567', 'x', 1), (' E1', 'x', 1)",
        "Voce senza codice (riga 1), UltimaPerVariante.Importo: il valore «y» non\n"
        "Voce senza codice (riga 1): manca il codice (Voce):\n"
        "Voce  E1 (riga 2): il codice è vuoto\n"
        "Voce C3 (riga 6): manca la descrizione (Descri):\n"
        "Voce D'4567 (riga 7): il codice contiene un\nVoce D'4567 (riga 7): il codice ha più\n"
        "Voce a1 (riga 4): il codice è uguale,");
    add("C", "DROP TABLE UltimaPerVariante; ALTER TABLE SchedaProgetto DROP COLUMN NomeFile",
        "Appalto.mdb, tabella UltimaPerVariante: Nell'archivio manca una tabella.\n"
        "Appalto.mdb, tabella SchedaProgetto, campo NomeFile: Nella tabella manca un");
    add("C",
        "INSERT INTO SchedaProgetto (Voce, Stringa) VALUES ('m0097_3', 'pagato'), "
        "('M0097_02', 'Mandato nr.1 del 30/02/2020'), ('m0097_1', 'Mandato nr.8 del 01/02/2020')",
        "Mandato M0097_02: il codice non finisce\nMandato M0097_02: il testo «Mandato nr.1\n"
        "Mandato m0097_1: compare più volte: vale\n"
        "Mandato m0097_3: il pagamento 3 non\nMandato m0097_3: il testo «pagato» non");
    add("C", "UPDATE SchedaProgetto SET Link = NULL WHERE Voce = 'D0101'",
        "Appaltatore (voce D0101): manca il collegamento (Link)");
    add("C", "UPDATE SchedaProgetto SET Link = 0 WHERE Voce = 'D0101'",
        "Appaltatore (voce D0101): non è collegato all'anagrafe");
    add("C", "DELETE FROM SchedaProgetto WHERE Voce = 'D0101'",
        "Appaltatore (voce D0101): la voce manca nella");
    add("A", "UPDATE Anag SET ID = 5",
        "Appaltatore (voce D0101): il collegamento porta all'impresa");
    add("K",
        "DELETE FROM Funzioni WHERE CodInt = 'QS1P'; INSERT INTO Funzioni VALUES ('qdp', 'X', 'x');"
        "UPDATE Funzioni SET CodExt = 'q0100' WHERE CodInt = 'P98P'",
        "Codice QDP: compare 2 volte nella\nCodice QS1P: manca nella tabella: la chiusura\n"
        "Codice P98P: ha lo stesso codice");
    add("K",
        "UPDATE Funzioni SET CodExt = 'M*' WHERE CodInt = 'P97';"
        "UPDATE Funzioni SET CodExt = 'Q:1', Desc = NULL WHERE CodInt = 'P99'",
        "Codice P97: il codice esterno «M*»\nCodice P99: il codice esterno «Q:1»\n"
        "Codice P99: non ha una descrizione:");
    add("K", "UPDATE Funzioni SET CodExt = NULL WHERE CodInt IN ('DA1', 'P97')",
        "Codice DA1: non ha un codice esterno (CodExt): le fatture delle aziende non si aprono\n"
        "Codice P97: non ha un codice esterno (CodExt): aprire, confermare o eliminare");
    add("K", "UPDATE Funzioni SET CodExt = '' WHERE CodInt IN ('DA1', 'P97', 'P98', 'QS1T')",
        "Codice DA1: ha un codice esterno vuoto: le fatture delle aziende non trovano\n"
        "Codice P97: ha un codice esterno vuoto: i mandati\n"
        "Codice P98: ha un codice esterno vuoto: il documento si scrive con il nome «.rtf»\n"
        "Codice QS1T: ha un codice esterno vuoto: il totale si scrive");
}

void TestVerify::finds()
{
    QFETCH(const QString, file);
    const QString sql = QString::fromUtf8(QTest::currentDataTag());
    const SoundProject project;
    // A value that the engine would not take from the program may come from another one.
    project.archive.execute(project.path(file.front()),
                            u"PRAGMA ignore_check_constraints=1;"_s + sql);
    QFETCH(const QString, found);
    QCOMPARE(summary(project.check(), found), found);
}

void TestVerify::countsWhatTheScreensCannotHold()
{
    const SoundProject project;
    const QString numbers = u"WITH RECURSIVE n(i) AS (SELECT %1 UNION ALL SELECT i + 1 FROM n "
                            "WHERE i < %2) INSERT INTO "_s;
    project.archive.execute(project.path(u'C'),
                            numbers.arg(3).arg(201) +
                                u"UltimaPerVariante SELECT printf('%03d', i), 'x', 1 FROM n"_s);
    const QString payments = u"Fatture (AziProf, Npag, Creditore, Del, Importo, ImportoIVA) "
                             "SELECT iif(i = 32769, 'a', 'A'), i, 'x', '2020-01-01', 0, 0 FROM n"_s;
    project.archive.execute(project.path(u'L'), numbers.arg(3).arg(32768) + payments);
    QCOMPARE(summary(project.check(), {}), QString());
    project.archive.execute(project.path(u'C'),
                            u"INSERT INTO UltimaPerVariante VALUES ('9', 'x', 1)"_s);
    project.archive.execute(project.path(u'L'), numbers.arg(32769).arg(32769) + payments);
    const QString found =
        u"Pagamento 32769 (riga 32769, x): il tipo di creditore\n"
        "Pagamenti alle aziende: sono 32768, più dei\nElenco delle voci: le voci sono 202:"_s;
    QCOMPARE(summary(project.check(), found), found);
}

void TestVerify::unreadableFilesAreFindings()
{
    const SoundProject project;
    QVERIFY(QFile::remove(MachinePath(project.path(u'A'))));
    QFile codes(MachinePath(project.path(u'K')));
    QVERIFY(codes.resize(0));
    QFile contract(MachinePath(project.path(u'C')));
    QVERIFY(contract.open(QIODevice::ReadWrite));
    QVERIFY(contract.resize(contract.size() - 1024));
    const QString found = summary(project.check(), {});
    QVERIFY2(found.startsWith(u"Appalto.mdb: "_s), qPrintable(found));
    QVERIFY(found.contains(u"AZIDB.mdb: L'archivio non è stato"_s));
    QVERIFY(found.contains(u"chiavi.mdb: Il file non è"_s));
}

void TestVerify::tellsByItsExitStatusAndChangesNothing()
{
    const SoundProject project;
    const QString folder = project.folder();
    const QStringList before = stateOf(folder);
    QCOMPARE(run({QString(folder).replace(u"LAVORI"_s, u"Lavori"_s)}),
             u"0 Nessun difetto trovato.\n"_s);
    QCOMPARE(stateOf(folder), before);
    // What a crash left behind is not put right, and not taken for sound either.
    {
        QFile file(folder + u"/Appalto.mdb-journal"_s);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("x") == 1);
        file.close();
        const QStringList crashed = stateOf(folder);
        const QString output = run({folder});
        QVERIFY2(output.startsWith(u"2 "_s) && output.contains(u"a metà"_s), qPrintable(output));
        QCOMPARE(stateOf(folder), crashed);
        project.archive.execute(project.path(u'L'), u"UPDATE Fatture SET Del = NULL"_s);
        QVERIFY(run(u"--imposta 2 Del 01/02/2020"_s.split(u' ') << folder)
                    .contains(u"I valori sono stati impostati; il controllo non"_s));
        QVERIFY(file.remove());
    }
    // A folder in the way of a file of the engine is no change that was broken off.
    QVERIFY(QDir(folder).mkdir(u"Saldoro.mdb-wal"_s));
    QVERIFY(run({folder}).contains(u"Controllare i permessi del file"_s));
    QVERIFY(QDir(folder).rmdir(u"Saldoro.mdb-wal"_s));
    QVERIFY(run({u"--codici"_s, folder + u"/Altrove.mdb"_s, folder}).startsWith(u"1 Archivi\n"_s));
    for (const QStringList &words : {QStringList{folder + u"/manca"_s},
                                     QStringList(),
                                     {folder, folder},
                                     {folder, u"--imposta"_s, u"1"_s, u"Del"_s}})
        QVERIFY2(run(words).startsWith(u"2 "_s), qPrintable(words.join(u' ')));
    QVERIFY(run({u"--aiuto"_s}).contains(u"--imposta PAGAMENTO CAMPO VALORE"_s));
    QVERIFY(run({u"--versione"_s}).startsWith(u"0 saldoro-verifica 1."_s));
}

void TestVerify::setsAMissingValue_data()
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

void TestVerify::setsAMissingValue()
{
    const QString words = QString::fromUtf8(QTest::currentDataTag());
    QFETCH(const QString, stored);
    const SoundProject project;
    project.archive.execute(project.path(u'L'),
                            u"INSERT INTO Fatture (AziProf, Npag, Creditore) VALUES "
                            "('P', 3, 'x'), ('P', 4, 'y'), ('A', 4, 'z')"_s);
    const QStringList before = stateOf(project.folder());
    const QString output =
        run(QStringList{u"--imposta"_s} + words.split(u' ') + QStringList{project.folder()});
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

void TestVerify::leavesACopyThatIsWhole()
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
    QCOMPARE(summary(project.check(), {}), QString());
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
    const QString output = run(
        u"--imposta 1 Del 03/02/2021 --imposta 2 Del 04/02/2021"_s.split(u' ') << project.folder());
    QVERIFY(output.startsWith(u"2 Il comando è stato eseguito solo in parte."_s));
    QVERIFY(output.contains(u"Valori già impostati: 1\n"_s));
}

QTEST_GUILESS_MAIN(TestVerify)
#include "test_verify.moc"
