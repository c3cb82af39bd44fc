#include "database_probe.h"
#include "platform/progress.h"
#include "sound_project.h"
#include "verify/verification.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#ifndef Q_OS_WIN
#include "full_disk.h"
#endif

using namespace saldoro;

namespace {

/** Subjects and problems, one a line, each cut to what is expected there if it begins so. */
QString summary(const Findings &findings, const QString &expected)
{
    QStringList lines = expected.split(u'\n');
    lines.resize(findings.size());
    for (qsizetype at = 0; at < findings.size(); ++at) {
        const QString text = findings[at].subject + u": "_s + findings[at].problem;
        if (lines[at].isEmpty() || !text.startsWith(lines[at]))
            lines[at] = text;
    }
    return lines.join(u'\n');
}

} // namespace

/** What the check finds. */
class TestVerify : public QObject
{
    Q_OBJECT

private slots:
    void finds();
    void unreadableFilesAreFindings();
    void folderThatTakesNoFiles();
    void readsOneMoment();
    void aValueTakesNoLineOfTheReport();
};

void TestVerify::finds()
{
    const auto add = [](const char *file, const QByteArray &sql, const char *findings) {
        const SoundProject project;
        // A value that the engine would not take from the program may come from another one.
        project.archive.execute(project.path(QLatin1Char(*file)),
                                u"PRAGMA ignore_check_constraints=1;"_s + QString::fromUtf8(sql));
        const QString found = QString::fromUtf8(findings);
        QCOMPARE(summary(VerifyProject(project.folder()), found), found);
    };
    // Each finding begins with the line that is expected of it.
    add("L",
        "UPDATE Fatture SET (Importo, ImportoIVA, Creditore, Del, ImportoPrest, Contributo, "
        "CassaPrev, ImportoRA) = (NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL) WHERE Npag = 2",
        "Pagamento 2 (riga 2): manca il valore di Creditore: la schermata\n"
        "Pagamento 2 (riga 2): manca il valore di Del: la schermata\n"
        "Pagamento 2 (riga 2): manca il valore di Importo: la schermata\n"
        "Pagamento 2 (riga 2): manca il valore di ImportoIVA: la schermata\n"
        "Pagamento 2 (riga 2): manca il valore di ImportoPrest: la chiusura\n"
        "Pagamento 2 (riga 2): manca il valore di Contributo: la chiusura\n"
        "Pagamento 2 (riga 2): manca il valore di CassaPrev: la chiusura\n"
        "Pagamento 2 (riga 2): manca il valore di ImportoRA: la chiusura");
    add("L",
        "UPDATE Fatture SET Npag = NULL WHERE Npag = 2; UPDATE Spese SET RelNpag = NULL "
        "WHERE Cod = 'B2'",
        "Pagamento senza numero (riga 1, Ing. Po): manca il valore di Npag:\n"
        "Riga 2: qui l'elenco mostra il pagamento 1,\n"
        "Conto di spesa alla riga 2 (pagamento 2, codice A1): non è di nessun\n"
        "Conto di spesa alla riga 3 (pagamento mancante, codice B2): non è di nessun");
    add("L", "UPDATE Fatture SET AziProf = iif(Npag = 1, 'a', NULL)",
        "Pagamento 1 (riga 1, Edil Valle): il tipo di creditore (AziProf) è «a» e\n"
        "Pagamento 2 (riga 2, Ing. Po): manca il valore di AziProf: «Modifica»\n"
        "Pagamento 2 (riga 2, Ing. Po): i conti di spesa sommano 61,50 e il totale della fattura è "
        "61,00.");
    add("L",
        "INSERT INTO Fatture SELECT * FROM Fatture WHERE Npag = 1; UPDATE Fatture SET ImportoIVA = "
        "0 WHERE Npag = 1",
        "Pagamento 1: il numero è usato da 2 pagamenti (dalla riga 1): ad\n"
        "Righe da 2 a 3: qui l'elenco mostra i pagamenti da 1 a 2, ma");
    add("L", "UPDATE Fatture SET Npag = Npag - 1; UPDATE Spese SET RelNpag = RelNpag - 1",
        "Righe da 1 a 2: qui l'elenco mostra i pagamenti da 0 a 1,");
    add("L",
        "UPDATE Fatture SET Npag = 3 WHERE Npag = 2; UPDATE Spese SET RelNpag = 3 WHERE RelNpag = "
        "2",
        "Riga 2: qui l'elenco mostra il pagamento 3,\n"
        "Pagamento 3 (riga 2, Ing. Po): «Nuovo» userà il numero 3,");
    add("L", "UPDATE Fatture SET Importo = 9223372036854775807, ImportoIVA = 1 WHERE Npag = 1",
        "Pagamento 1 (riga 1, Edil Valle): la somma degli importi");
    add("L", "UPDATE Fatture SET Importo = 'dieci', Del = 'ieri', Npag = 1.5e10 WHERE Npag = 1",
        "Pagamento senza numero (riga 1, Edil Valle), Fatture.Npag: il valore «15000000000» non è "
        "un numero intero:\n"
        "Pagamento senza numero (riga 1, Edil Valle), Fatture.Del: il valore «ieri» non è una\n"
        "Pagamento senza numero (riga 1, Edil Valle), Fatture.Importo: il valore «dieci» non è un\n"
        "Conto di spesa alla riga 1 (pagamento 1, codice A1): non è di nessun");
    add("L",
        "UPDATE Fatture SET (Importo, Del, Npag) = (1000000.5, '2020/01/31', 1.0) WHERE Npag = 1; "
        "UPDATE Fatture SET Del = '2020-02-01 10:30' WHERE Npag = 2",
        "Pagamento 1 (riga 1, Edil Valle), Fatture.Del: il valore «2020/01/31» non è una data\n"
        "Pagamento 1 (riga 1, Edil Valle), Fatture.Importo: il valore «100.00005» non è un importo "
        "esatto: il programma si ferma quando lo legge, o ne legge un altro.");
    add("L", "UPDATE Fatture SET ImportoIVA = ImportoIVA + 49", "");
    add("L", "UPDATE Fatture SET ImportoIVA = ImportoIVA + 50 WHERE Npag = 1",
        "Pagamento 1 (riga 1, Edil Valle): i conti di spesa sommano 122,00 e il totale della "
        "fattura è 122,01.");
    add("L",
        "UPDATE Spese SET Importo = Importo - 51 WHERE RelNpag = 2; UPDATE Fatture SET "
        "ImportoIVA = ImportoIVA - 102 WHERE Npag = 2",
        "Pagamento 2 (riga 2, Ing. Po): i conti di spesa sommano 61,48 e");
    add("L", "UPDATE Spese SET Importo = NULL WHERE Cod = 'B2'",
        "Conto di spesa alla riga 3 (pagamento 2, codice B2): manca l'importo, o non si legge\n"
        "Pagamento 2 (riga 2, Ing. Po): i conti di spesa sommano 60,00 e");
    add("L", "UPDATE Spese SET (Importo, Cod) = (NULL, 'Z9') WHERE Cod = 'B2'",
        "Conto di spesa alla riga 3 (pagamento 2, codice Z9): l'appalto non ha una\n"
        "Pagamento 2 (riga 2, Ing. Po): i conti di spesa sommano 60,00 e");
    add("L", "INSERT INTO Spese VALUES (NULL, NULL, 'x', 0), (2, 'Z9', 'x', 0), (2, 'b2', 'x', 0)",
        "Conto di spesa alla riga 6 (pagamento 2, codice b2): il pagamento ha già\n"
        "Conto di spesa alla riga 4 (pagamento mancante, codice mancante): manca il codice\n"
        "Conto di spesa alla riga 5 (pagamento 2, codice Z9): l'appalto non ha una\n"
        "Conto di spesa alla riga 6 (pagamento 2, codice b2): la voce dell'appalto si scrive «B2»\n"
        "Conto di spesa alla riga 4 (pagamento mancante, codice mancante): non è di nessun");
    add("C",
        "INSERT INTO UltimaPerVariante VALUES (NULL, 'x', 'y'), ('', 'x', 1), (' E1', 'x', 1), "
        "('a1', 'x', 1), ('C3', NULL, 1), ('D''4567', 'x', 1)",
        "Voce senza codice (riga 1), UltimaPerVariante.Importo: il valore «y» non è un importo\n"
        "Voce senza codice (riga 1): manca il valore di Voce:\nVoce  (riga 2): il codice è vuoto\n"
        "Voce  E1 (riga 3): il codice è vuoto\nVoce a1 (riga 5): il codice è uguale,\n"
        "Voce C3 (riga 7): manca il valore di Descri:\nVoce D'4567 (riga 8): il codice contiene "
        "un\n"
        "Voce D'4567 (riga 8): il codice ha più di cinque caratteri: inserita in un pagamento, la "
        "voce riceve il codice «D'456»");
    const QByteArray items = "WITH RECURSIVE n(i) AS (SELECT 10000 UNION ALL SELECT i + 1 FROM n "
                             "LIMIT 199) INSERT INTO UltimaPerVariante SELECT i, 'x', 1 FROM n";
    add("C", items, "");
    add("C", items + "; INSERT INTO UltimaPerVariante VALUES ('C3', 'x', 1)",
        "Elenco delle voci: le voci sono 202: «Inserisci» ne può offrire 201");
    add("C", "DROP TABLE UltimaPerVariante; ALTER TABLE SchedaProgetto DROP COLUMN NomeFile",
        "Appalto.mdb, tabella SchedaProgetto, campo NomeFile: Nella tabella manca un\n"
        "Appalto.mdb, tabella UltimaPerVariante: Nell'archivio manca una tabella.");
    // Rules of the file that the next record breaks, and some that none does.
    add("L",
        "CREATE UNIQUE INDEX i ON Fatture (Npag); CREATE UNIQUE INDEX j ON Spese (RelNpag, Cod); "
        "ALTER TABLE Spese ADD COLUMN x NOT NULL DEFAULT 1 CHECK (Importo > 0)",
        "");
    add("L", "CREATE UNIQUE INDEX i ON Fatture (Creditore)",
        "Saldoro.mdb, tabella Fatture: il prossimo salvataggio si fermerà qui: Una regola propria "
        "della tabella (trigger, controllo o indice) non ha lasciato scrivere il record. (UNIQUE "
        "constraint failed: Fatture.Creditore)");
    add("L", "CREATE UNIQUE INDEX i ON Spese (RelNpag) WHERE RelNpag > 2",
        "Saldoro.mdb, tabella Spese: il prossimo salvataggio si fermerà qui: Una regola propria");
    add("L",
        "DROP TABLE Spese; CREATE TABLE Spese (RelNpag LONG, Cod TEXT(10), Descrizione TEXT(50), "
        "Importo CURRENCY, Anno LONG NOT NULL); INSERT INTO Spese VALUES (1, 'A1', '', 1220000, 1),"
        " (2, 'A1', '', 615000, 1)",
        "Saldoro.mdb, tabella Spese, campo Anno: il prossimo salvataggio si fermerà qui: Manca un");
    add("C", "ALTER TABLE SchedaProgetto ADD COLUMN x CHECK (NomeFile IS NULL)",
        "Appalto.mdb, tabella SchedaProgetto: il prossimo salvataggio si fermerà qui: Una regola");
    add("C", "UPDATE SchedaProgetto SET Link = NULL", "Appaltatore (voce D0101): manca il coll");
    add("C", "UPDATE SchedaProgetto SET Link = 0", "Appaltatore (voce D0101): non è collegato");
    add("C", "UPDATE SchedaProgetto SET Link = 5",
        "Appaltatore (voce D0101): il collegamento (Link) 5 non porta");
    add("C", "UPDATE SchedaProgetto SET Stringa = 'Edilvalle'", "");
    add("C", "DELETE FROM SchedaProgetto", "");
    const char *another = "Appaltatore (voce D0101): si chiama «Edil Valle», ma il suo "
                          "collegamento (Link) porta all'impresa «Alfa»";
    add("A", "UPDATE Anag SET nominativo = 'Alfa'; INSERT INTO Anag VALUES (5, 'edil valle', '')",
        another);
    add("A", "UPDATE Anag SET nominativo = 'Alfa', TipImprese = 'ATI'", another);
    add("A",
        "INSERT INTO Anag VALUES (4, 'Beta', ''), (7, 'Gamma', ''), (NULL, '', ''), (NULL, '', '');"
        "INSERT INTO Partecip VALUES (1, 4), (2, 5), (3, NULL);"
        "INSERT INTO Manda VALUES (4, 7), (4, 6), (8, 7)",
        "Anag, riga 2: il numero (ID) 4 è già di un'altra impresa\n"
        "Partecip, riga 2: nessuna impresa ha il numero (AnagRel) 5\n"
        "Manda, riga 2: nessuna impresa ha il numero (AnagRel) 6\n"
        "Manda, riga 3: nessuna impresa ha il numero (AnagPar) 8");
    add("K",
        "UPDATE Funzioni SET CodExt = 'Q''1' WHERE CodInt = 'DA1'; UPDATE Funzioni SET Desc = NULL "
        "WHERE CodInt IN ('P99', 'QS1A'); DELETE FROM Funzioni WHERE CodInt IN ('P98P', 'QS1P')",
        "Codice DA1: il codice esterno «Q'1» contiene un apostrofo\n"
        "Codice P99: non ha una descrizione: la chiusura\n"
        "Codice P98P: manca nella tabella: la chiusura\n"
        "Codice QS1P: manca nella tabella: la chiusura");
    add("K", "DELETE FROM Funzioni WHERE CodInt IN ('DA1', 'P97')",
        "Codice DA1: manca nella tabella: le fatture delle aziende non trovano\n"
        "Codice P97: manca nella tabella: i mandati");
    add("K", "UPDATE Funzioni SET CodExt = NULL WHERE CodInt IN ('DA1', 'P97', 'P99', 'QS1A')",
        "Codice DA1: non ha un codice esterno (CodExt): le fatture delle aziende non si aprono\n"
        "Codice P97: non ha un codice esterno (CodExt): aprire, confermare\n"
        "Codice P99: non ha un codice esterno (CodExt): la chiusura\n"
        "Codice QS1A: non ha un codice esterno (CodExt): la chiusura");
    add("K", "UPDATE Funzioni SET CodExt = '' WHERE CodInt IN ('DA1', 'P97', 'P98', 'QS1T')",
        "Codice DA1: ha un codice esterno vuoto: le fatture delle aziende non trovano\n"
        "Codice P97: ha un codice esterno vuoto: i mandati\n"
        "Codice P98: ha un codice esterno vuoto: il documento si scrive con il nome «.rtf»\n"
        "Codice QS1T: ha un codice esterno vuoto: il totale si scrive");
}

void TestVerify::aValueTakesNoLineOfTheReport()
{
    for (const QString &end : {u"\n"_s, u"\r"_s, u"\u2028"_s}) {
        const Finding finding{FindingGroup::Values, u"Riga"_s, u"«X%1Difetti: 0»"_s.arg(end), {}};
        QVERIFY(FindingsReport({finding}).contains(u"«X\uFFFDDifetti: 0»"_s));
    }
}

void TestVerify::unreadableFilesAreFindings()
{
    const SoundProject project;
    const QString contract = MachinePath(project.path(u'C'));
    QVERIFY(QFile::setPermissions(contract, QFile::ReadOwner));
    const bool isClosed = !QFileInfo(contract).isWritable(); // not to a superuser
    const QString closed =
        isClosed ? u"Appalto.mdb: L'archivio non accetta modifiche."_s : QString();
    QCOMPARE(summary(VerifyProject(project.folder()), closed), closed);
    QVERIFY(QFile::setPermissions(contract, QFile::ReadOwner | QFile::WriteOwner));
    QFile companies(MachinePath(project.path(u'A')));
    QVERIFY(companies.resize(companies.size() - 1));
    const QString cut = u"AZIDB.mdb: il file è danneggiato (manca la fine)"_s;
    QCOMPARE(summary(VerifyProject(project.folder()), cut), cut);
    QVERIFY(companies.remove());
    QFile codes(MachinePath(project.path(u'K')));
    QVERIFY(codes.resize(0));
    project.archive.execute(project.path(u'C'), u"PRAGMA journal_mode = WAL"_s);
    project.archive.execute(
        project.path(u'L'),
        u"CREATE TABLE Altro AS SELECT * FROM Fatture; DROP TABLE Spese; CREATE "
        "VIEW Spese AS SELECT 1 RelNpag, 'A1' Cod, '' Descrizione, 1 Importo"_s);
    QFile ledger(MachinePath(project.path(u'L')));
    QVERIFY(ledger.open(QIODevice::ReadWrite) && ledger.seek(ledger.size() - 200));
    QCOMPARE(ledger.write(QByteArray(200, '\x0d')), 200);
    ledger.close();
    const QString found =
        u"chiavi.mdb: Il file non è un archivio\nAppalto.mdb: ha un giornale (WAL)\nAZIDB.mdb: "
        "L'archivio non è stato trovato.\nSaldoro.mdb: il file è danneggiato (\nSaldoro.mdb: nella "
        "tabella Spese il"_s;
    QCOMPARE(summary(VerifyProject(project.folder()).first(5), found), found);
    const SoundProject unopened;
    QVERIFY(QFile::remove(MachinePath(unopened.path(u'L'))));
    const QString made = u"Saldoro.mdb: non c'è: Saldoro lo fa, vuoto, quando apre il progetto."_s;
    QCOMPARE(summary(VerifyProject(unopened.folder()), made), made);
    QVERIFY(QFile::remove(MachinePath(unopened.path(u'C')))); // no project any more
    QVERIFY(!FindingsReport(VerifyProject(unopened.folder())).contains(made));
}

/** A save makes files beside the databases. The trial leaves none. */
void TestVerify::folderThatTakesNoFiles()
{
    const SoundProject project;
    const QDir folder(project.folder());
    const QString found = u"Cartella %1: il prossimo salvataggio si fermerà qui: "_s.arg(
        QFileInfo(folder.path()).fileName());
    const QStringList before = folder.entryList(QDir::AllEntries | QDir::Hidden);
#ifndef Q_OS_WIN
    {
        const FullDisk disk(0);
        QCOMPARE(summary(VerifyProject(folder.path()), found), found);
    }
    QVERIFY(QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::ExeOwner));
    const QString closed = QFileInfo(folder.path()).isWritable() ? QString() : found; // superuser
    QCOMPARE(summary(VerifyProject(folder.path()), closed), closed);
    QVERIFY(QFile::setPermissions(folder.path(),
                                  QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
#endif
    QCOMPARE(VerifyProject(folder.path()).size(), 0);
    QCOMPARE(folder.entryList(QDir::AllEntries | QDir::Hidden), before);
}

/** What another program saves between two tables does not show as a difference of theirs. */
void TestVerify::readsOneMoment()
{
    const SoundProject project;
    QString refusal;
    Progress::setWatcher([&](const QString &state) {
        if (state == "Lettura di Spese"_L1)
            refusal = DirectConnection(project.path(u'L')).run(u"DELETE FROM Spese"_s);
    });
    QCOMPARE(VerifyProject(project.folder()).size(), 0);
    Progress::setWatcher({});
    QVERIFY(refusal.contains(u"locked"_s));
}

QTEST_GUILESS_MAIN(TestVerify)
#include "test_verify.moc"
