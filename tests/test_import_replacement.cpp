#include "exchange/archive_tables.h"
#include "office.h"
#include "platform/machine_path.h"
#include "platform/progress.h"
#include "store/project_open_mark.h"

#include <QTest>

using namespace saldoro;

/** What becomes of rows that are there when CSV files come in. */
class TestImportReplacement : public QObject
{
    Q_OBJECT

private slots:
    void replaces();
    void takesOverOrRefuses();
    void keepsCodesAndWhatTheProgramWrote();
};

void TestImportReplacement::replaces()
{
    const Office office;
    office.putBudget("A1;Scavi;1\n");
#ifndef Q_OS_WIN
    // A file that is not there, while its link is.
    QFile::link(u"nowhere"_s, office.csv() + u"/Spese.csv"_s);
    QVERIFY(office.import().contains(u"Il file non può essere letto."_s));
    QVERIFY(QFile::remove(office.csv() + u"/Spese.csv"_s));
    // The same of a project: none is made in the place of what is away.
    QVERIFY(QDir().mkpath(QFileInfo(office.project()).path()) &&
            QFile::link(u"nowhere"_s, office.project()));
    const QString away = office.import();
    QVERIFY2(away.contains(u"L'archivio non è stato trovato.\nFile: "_s + office.project() + u'\n'),
             qPrintable(away));
    QVERIFY(office.archive().isEmpty() && QFile::remove(office.project()));
#endif
    // A name that is found taken only at the end: the new code map does not stay either.
    Progress::setWatcher([&office](const QString &state) {
        if (state == "Controllo"_L1)
            QDir().mkdir(office.project());
    });
    QVERIFY(office.import().contains(u"Il file c'è già."_s) && office.archive().isEmpty());
    Progress::setWatcher({});
    QVERIFY(QDir().rmdir(office.project()));
    // The journal of a missing database is neither played into the new one nor deleted.
    const QString journal = office.project() + u"/Appalto.mdb-journal"_s;
    WriteFile(journal, "x");
    QVERIFY(office.import().contains(u"Il file è di un archivio che manca."_s));
    QVERIFY(QFile::remove(journal) && office.import().contains(u"Appalto.mdb: creato"_s));
#ifndef Q_OS_WIN
    // Nor is a database made in the place of one whose disk is away.
    const QString ledger = office.project() + u"/Saldoro.mdb"_s;
    QVERIFY(QFile::rename(ledger, office.path(u"away"_s)) && QFile::link(u"nowhere"_s, ledger));
    QVERIFY(office.import(true).contains(u"L'archivio non è stato trovato."_s));
    QVERIFY(QFile::remove(ledger) && QFile::rename(office.path(u"away"_s), ledger));
#endif
    office.put(u"ULTIMAPERVARIANTE"_s, "");
    if (QDir(office.csv()).count() > 3) // where letter case tells files apart
        QVERIFY(office.import().contains(u"un altro file è per la stessa tabella"_s));
    QDir(office.csv()).removeRecursively();
    office.putBudget("A1;Scavi;2\nA2;Ponti;3\n");
    const auto before = office.archive();
    QVERIFY(
        office.import().contains(u"contiene già 1 righe; con --sostituisci UltimaPerVariante"_s));
    QVERIFY(office.import(false, {u"Spese"_s}).contains(u"--sostituisci Spese: nella cartella"_s));
    QCOMPARE(office.archive(), before);
    const QString said = office.import(false, {u"ultimapervariante"_s});
    QVERIFY(said.contains(u"UltimaPerVariante: 2 righe, totale Importo 5,00\n"_s));
    const QString budget = u"SELECT * FROM UltimaPerVariante"_s;
    QCOMPARE(office.rows(ArchiveFile::Contract, budget), u"A1|Scavi|20000\nA2|Ponti|30000"_s);
    // The copy beside it is the database as it was.
    const QString copy = said.section(u"com'era sta in "_s, 1).section(u'\n', 0, 0);
    QCOMPARE(BareFile(copy).rows(budget), u"A1|Scavi|10000"_s);
    QVERIFY(said.contains(u"A1 (Scavi): da 1,00 a 2,00\n  A2 (Ponti): nuova, 3,00\n"_s));
}

/** What stands in the tables that are replaced, and what keeps them from it. */
void TestImportReplacement::takesOverOrRefuses()
{
    Office office;
    office.putBudget("A1;Scavi;100\nB2;Ponti;50\n");
    office.put(u"Anag"_s, "ID;nominativo;TipImprese\n1;Alfa;\n2;Beta;ATI\n");
    office.put(u"Fatture"_s, "AziProf;Npag;Creditore;Del;Importo;ImportoIVA;Memo\n"
                             "A;1;Alfa;1/2/2024;10;2;nota\nA;2;Beta;1/2/2024;5;0;\n");
    office.put(u"Spese"_s, "RelNpag;Cod;Importo\n1;A1;12\n2;A1;5\n");
    QVERIFY(office.import().startsWith(u"chiavi.mdb: creato\n"_s));
    auto sound = office.archive();
    // What another program did to the table, the new file, what is said and the rows that stand
    // there after; without rows nothing has changed, wanted or not.
    const auto check = [&](const char *table, const char *sql, const char *file, const char *told,
                           const char *rows = nullptr, bool evenSo = true) {
        const QString name = QString::fromUtf8(table);
        const ArchiveFile place = TableNamed(name)->archive;
        office.restore(sound);
        office.rows(place, QString::fromUtf8(sql));
        QDir(office.csv()).removeRecursively();
        office.put(name, file);
        const auto before = office.archive();
        const QString said = office.import(evenSo, {name});
        QVERIFY2(said.contains(QString::fromUtf8(told)),
                 qPrintable(said + QString::fromUtf8(told)));
        QCOMPARE(said.startsWith(u"NO\n"_s), rows == nullptr);
        if (rows == nullptr)
            QCOMPARE(office.archive(), before);
        else
            QCOMPARE(office.rows(place, u"SELECT * FROM "_s + name), QString::fromUtf8(rows));
    };
    const char *wide =
        "ALTER TABLE Anag ADD COLUMN Via BLOB; UPDATE Anag SET Via = CAST('Po' AS BLOB); "
        "ALTER TABLE Anag ADD COLUMN _rowid_ DEFAULT 7";
    check("Anag", wide, "nominativo;ID\nNuova;3\nBeta;2\nAlfa srl;1\n", "Anag: 3 righe",
          "3|Nuova|-|-|7\n2|Beta|ATI|Po|7\n1|Alfa srl|-|Po|7");
    check("Anag", wide, "nominativo;ID\nAlfa;1\n",
          "la riga «2» dell'archivio perderebbe i valori di Via, _rowid_, che il file non dà: nel "
          "file non c'è.");
    check("Anag", "", "nominativo;ID\nBeta;2\nBis;2\nAlfa;1\n",
          "la riga «2» dell'archivio perderebbe i valori di TipImprese, che il file non dà: più "
          "righe hanno la stessa chiave.");
    check("Anag", "INSERT INTO Anag VALUES (2, 'Bis', 'Altro')", "nominativo;ID\nBeta;2\nAlfa;1\n",
          "la riga «2» dell'archivio perderebbe i valori di TipImprese");
    check("Anag", "", "nominativo;ID\nAlfa;1\n", "Anag: 1 riga", "1|Alfa|-");
    check("Anag",
          "DROP TABLE Anag; CREATE TABLE Anag (ID INTEGER PRIMARY KEY, nominativo TEXT, TipImprese "
          "TEXT, Cap GENERATED ALWAYS AS (ID + 1)); INSERT INTO Anag VALUES (1, 'Alfa', NULL)",
          "ID;nominativo\n3;Gamma\n1;Alfa\n", "Anag: 2 righe", "1|Alfa|-|2\n3|Gamma|-|4");
    const char *onlyFirst = "AziProf;Npag;Creditore;Del;Importo;ImportoIVA\n"
                            "A;1;Alfa;1/2/2024;10;2\n";
    check("Fatture", "", onlyFirst, "Fatture.csv: toglie il pagamento A|2 (Beta).", nullptr, false);
    check("Fatture", "", onlyFirst, "Darà problemi più tardi:\n  Fatture.csv: toglie",
          "A|1|Alfa|-|2024-02-01|nota|-|-|100000|20000|-|-|-|-|-|-");
    const char *withoutPaid = "Voce;Descri;Importo\nB2;Ponti;50\n";
    check("UltimaPerVariante", "", withoutPaid,
          "A1 (Scavi): tolta, era 100,00, ed è già pagata\n  Conto di spesa alla riga 1", nullptr,
          false);
    check("UltimaPerVariante", "", "Voce;Descri;Importo\nA1;Scavi;99\n",
          "cambiate:\n  B2 (Ponti): tolta, era 50,00\n  A1 (Scavi): da 100,00 a 99,00\n",
          "A1|Scavi|990000", false);
    check("UltimaPerVariante", "", "Voce;Descri;Importo\nB2;Scavi;50\nA1;Muri;90\n",
          "cambiate:\n  B2 (Scavi): era «Ponti»\n  A1 (Muri): da 100,00 a 90,00, era «Scavi», ed è "
          "già pagata\n",
          "B2|Scavi|500000\nA1|Muri|900000", false);
    check("UltimaPerVariante", "INSERT INTO UltimaPerVariante VALUES ('A0', 'Muri', NULL)",
          withoutPaid, "già pagata\n  A0 (Muri): tolta, era senza importo\n", "B2|Ponti|500000");
    check("UltimaPerVariante", "", "Voce;Descri;Importo\n", "2 righe, resterebbe vuota.", nullptr,
          false);
    check("UltimaPerVariante",
          "CREATE TRIGGER t AFTER INSERT ON UltimaPerVariante BEGIN UPDATE UltimaPerVariante SET "
          "Importo = 1; END",
          withoutPaid, "L'archivio ha cambiato da sé");
    check(
        "UltimaPerVariante",
        "CREATE TRIGGER t AFTER INSERT ON UltimaPerVariante BEGIN DELETE FROM SchedaProgetto; END",
        "Voce;Descri;Importo\nA1;Scavi;100\nB2;Ponti;51\n", "regole proprie (trigger t)", nullptr,
        false);
    check("UltimaPerVariante", "PRAGMA journal_mode = WAL", withoutPaid, "Appalto.mdb: ha un gior");
    check("UltimaPerVariante",
          "DROP TABLE UltimaPerVariante; CREATE VIEW UltimaPerVariante AS SELECT 'A1' Voce, 'x' "
          "Descri, 1 Importo",
          withoutPaid, "Appalto.mdb ha sotto questo nome un'interrogazione");
    // What was so before is no reason to refuse what has nothing to do with it.
    check("Spese", "UPDATE Fatture SET Npag = 3 WHERE Npag = 2",
          "RelNpag;Cod;Importo\n1;A1;12\n3;A1;5\n", "C'era già prima:\n  Riga 2: qui l'elenco",
          "1|A1|-|120000\n3|A1|-|50000", false);
    // Values that can't be read right are one, whenever they came.
    check("Spese", "UPDATE Fatture SET Importo = 'dodici' WHERE Npag = 2",
          "RelNpag;Cod;Importo\n1;A1;12\n", "«dodici» non è un importo esatto", nullptr, false);
    // Documents without a code are no items that rows of other tables could be.
    office.restore(sound);
    office.rows(ArchiveFile::Codes, u"UPDATE Funzioni SET CodExt = ''"_s);
    sound = office.archive();
    check("Spese", "", "RelNpag;Cod;Importo\n1;A1;12\n", "Spese: 1 riga", "1|A1|-|120000");
    const ProjectOpenMark opened(MachinePath(office.project()));
    check("Spese", "", "RelNpag;Cod;Importo\n1;A1;12\n2;B2;5\n", "Saldoro ha aperto il progetto",
          nullptr, false);
    // Files that the engine can't write together.
    const QString companies = ArchiveFilePath(ArchiveFile::Companies, office.project());
    WriteFile(companies, {});
    BareFile(companies).rows(u"PRAGMA encoding = 'UTF-16'; CREATE TABLE Anag (ID)"_s);
    const QString mixed = office.import(true, {u"Spese"_s});
    QVERIFY2(mixed.contains(u"codifica (UTF-8 o UTF-16)"_s) && mixed.contains(u"AZIDB.mdb"_s),
             qPrintable(mixed));
    // A database that is in use stops all before one is changed.
    office.restore(sound);
    BareFile otherProgram(companies);
    otherProgram.rows(u"BEGIN IMMEDIATE"_s);
    QVERIFY(office.import(true, {u"Spese"_s}).contains(u"occupato da un altro programma"_s));
    QCOMPARE(office.archive(), sound);
}

void TestImportReplacement::keepsCodesAndWhatTheProgramWrote()
{
    const Office office;
    office.put(u"SchedaProgetto"_s, "Voce;Descri;Importo\nm0097_3;Pag. N.3 - Rossi;\n"
                                    "S0103;Totale;5\nQ0100;Prospetto;\nA1;Oggetto;\nM0097_x;;\n");
    {
        const ProjectOpenMark other(MachinePath(office.project())); // which is being made
        QVERIFY(office.import().contains(u"sta facendo lo stesso progetto"_s));
    }
    office.import();
    office.rows(ArchiveFile::Codes, u"DELETE FROM Funzioni"_s); // as where a first import died
    QVERIFY(office.import().contains(u"Funzioni: 10 righe"_s));
    office.put(u"SchedaProgetto"_s, "Voce;Descri\nq0100;Prospetto\n");
    // Of two codes that differ in letter case alone every search gets the first.
    office.rows(ArchiveFile::Codes, u"INSERT INTO Funzioni VALUES ('p97', 'Z', '')"_s);
    const auto before = office.archive();
    const QString said = office.import(true, {u"SchedaProgetto"_s});
    QVERIFY2(said.contains(u"andrebbe persa la voce m0097_3 (Pag. N.3 - Rossi)"_s) &&
                 said.contains(u"andrebbe persa la voce S0103"_s),
             qPrintable(said));
    QCOMPARE(said.count(u"andrebbe persa"_s), 2);
    QCOMPARE(office.archive(), before);
    office.rows(ArchiveFile::Codes, u"DELETE FROM Funzioni WHERE CodExt = 'Z'"_s);
    // Codes that are equal, here to those that a new code map gets, need no option.
    QByteArray codes = ContentOf(QStringLiteral(DEMO_FOLDER "/Funzioni.csv"));
    office.put(u"Funzioni"_s, codes);
    office.put(u"SchedaProgetto"_s, "Voce;Descri\nq0100;x\nm0097_3;x\ns0103;x\n");
    QVERIFY(office.import(false, {u"SchedaProgetto"_s}).contains(u"3 righe"_s));
    office.put(u"Funzioni"_s, codes.replace("DA1\";\"D0101", "da1\";\"X"));
    QVERIFY(office.import().startsWith(u"NO\n"_s));
    const QString changed = office.import(false, {u"Funzioni"_s});
    QVERIFY2(changed.contains(u"per tutti i progetti"_s) &&
                 changed.contains(u"chiavi.mdb: cambiato"_s),
             qPrintable(changed));
}

QTEST_GUILESS_MAIN(TestImportReplacement)
#include "test_import_replacement.moc"
