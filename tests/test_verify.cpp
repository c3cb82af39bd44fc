#include "sound_project.h"

#include <QFile>
#include <QTest>

using namespace saldoro;

namespace {

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

} // namespace

/** What the check finds. */
class TestVerify : public QObject
{
    Q_OBJECT

private slots:
    void finds_data();
    void finds();
    void countsWhatTheScreensCannotHold();
    void unreadableFilesAreFindings();
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

QTEST_GUILESS_MAIN(TestVerify)
#include "test_verify.moc"
