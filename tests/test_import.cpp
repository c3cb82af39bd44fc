#include "exchange/archive_tables.h"
#include "office.h"
#include "platform/machine_path.h"
#include "platform/registry.h"
#include "store/project_open_mark.h"

#include <QTest>

using namespace saldoro;

/** What of CSV files comes in, what does not, and what is said about it. */
class TestImport : public QObject
{
    Q_OBJECT

private slots:
    void comesIn();
    void refuses();
    void replaces();
    void takesOverOrRefuses();
    void keepsCodesAndWhatTheProgramWrote();
    void setsTheArchivesRootOnce();
};

void TestImport::comesIn()
{
    const QByteArray names = "Voce;Descri;Importo\n";
    const std::pair<QByteArray, const char *> cases[] = {
        {"Voce;Descri;Importo\r\nA1;Scavi;1.000,50\r\n", "A1|Scavi|10005000"},
        {"\xE2\x80\x8Evoce,DESCRI,Importo\nA1,\"Scavi; ponti\",1000.5\n",
         "A1|Scavi; ponti|10005000"},
        {"\"Voce,\";Voce;Descri;Importo\nx;A1;Scavi;1,5\n", "A1|Scavi|15000"},
        {"\xEF\xBB\xBFVoce;Descri;Importo\nA1;Città;1", "A1|Città|10000"},
        {names + "A1;Citt\xE0 \x80;1\n", "A1|Città €|10000"},
        {"sep=;\r\nNota;Importo;Voce;Descri;\n;;;;\nx;1;A1;Scavi;\n\n;;;;\n", "A1|Scavi|10000"},
        {names + "A1;\"\";\n0010;1/2;\n", "A1||-\n0010|1/2|-"},
        {"\"Voce\";\"Descri\";\"Importo\"\nA1;\"\"\"x\"\"; a\r\n\r\nb\";\"1,5\"\nA2;\"\"\"\";1\n",
         "A1|\"x\"; a\r\n\r\nb|15000\nA2|\"|10000"},
        {"Voce;Descri;Importo\rA1;a;1\rA2;b;2\r", "A1|a|10000\nA2|b|20000"},
        {names, ""}};
    for (const auto &[file, rows] : cases) {
        const Office office;
        office.put(u"ultimaPERvariante"_s, file);
        WriteFile(office.csv() + u"/appunti.txt"_s, "x");
        const QString said = office.import();
        QVERIFY2(said.contains(u"UltimaPerVariante: "_s), qPrintable(said));
        QCOMPARE(office.rows(ArchiveFile::Contract,
                             u"SELECT Voce, Descri, Importo FROM UltimaPerVariante"_s),
                 QString::fromUtf8(rows));
        // What was left out is named; a second time everything is there already.
        QCOMPARE(said.contains(u"campi tralasciati: Nota."_s), file.contains("Nota"));
        QVERIFY(office.import().contains(u"(c'era già, uguale)"_s));
    }
}

/** Nothing is written for errors, nor for what would trip the program unless it is wanted. */
void TestImport::refuses()
{
    const QByteArray budget = "Voce;Descri;Importo\n";
    const QByteArray payments = "AziProf;Npag;Creditore;Del;Importo;ImportoIVA;Contributo\n";
    const std::tuple<const char *, QByteArray, QByteArray> errors[] = {
        {"Voci", "Voce\n", "Voci.csv: nessuna tabella ha questo nome."},
        {"UltimaPerVariante", "Voce;Nota\nA1;x\n",
         "manca il campo Descri.|manca il campo Importo."},
        {"Manda", "", "nessuna nomina i campi AnagPar, AnagRel, sep"},
        {"Manda", "AnagPar;AnagRel;anagrel;\n1;2;2;3\n", "il campo anagrel è nominato due volte."},
        {"UltimaPerVariante",
         budget + "A1;x;12.5\nA2;\"y\n\ny\";uno\nA3;x;\"\"\nA4\nA5;x;1;2\nA6;" +
             QByteArray(256, 'x') + ";1\n",
         "riga 2, campo Importo: «12.5» non è un importo come 1.234,56|riga 3, campo Importo: "
         "«uno»|riga 6, campo Importo: «» non è|riga 7: le celle sono 1, e 3 "
         "nell'intestazione.|riga "
         "8: le celle sono 4|riga 9, campo Descri: il testo ha 256 caratteri e il campo ne tiene "
         "255."},
        {"UltimaPerVariante", "\xEF\xBB\xBF" + budget + "A1;Citt\xE0;1\n",
         "riga 2: c'è un byte che non è UTF-8"},
        {"UltimaPerVariante",
         budget + QByteArray("A1;x;uno\n").repeated(23) + "A2;" + QByteArray(256, 'x') + ";1\n",
         "riga 21, campo Importo|riga 25, campo Descri|... e altri 3 in UltimaPerVariante, campo "
         "Importo\n"},
        {"UltimaPerVariante", budget + "A1;x;1,234\nA2;x;0,500\n",
         "«1,234» può essere mille volte"},
        {"Manda", "AnagPar;AnagRel;\n1;2;3\n", "riga 2: la cella 3 sta in una colonna"},
        {"UltimaPerVariante", budget + "A1;a \"b\";1\n", "riga 2: ci sono virgolette dentro"},
        {"UltimaPerVariante", budget + "A1;\"a\" b;1\n", "riga 2: dopo le virgolette chiuse"},
        {"UltimaPerVariante", budget + "A1;\"a;1\nA2;b;2\n", "riga 2: le virgolette aperte"},
        {"UltimaPerVariante", "A1;Scavi;1\n" + budget + "A2;b;2\n",
         "riga 1: sta sopra l'intestazione, che va in cima"},
        {"UltimaPerVariante", "\"Voce\" ;Descri;Importo\n", "riga 1: dopo le virgolette chiuse"},
        {"SchedaProgetto", "Voce;Funzione;Link\nA;32768;1\nB;1;2147483648\nC;1.0;1\n",
         "riga 2, campo Funzione: il valore non sta nel campo|riga 3, campo Link: "
         "«2147483648»|riga 4, campo Funzione: «1.0» non è un numero intero"},
        {"Fatture",
         "AziProf,Npag,Creditore,NFat,Del,Importo,ImportoIVA\n"
         "A,1,Rossi,1,2024-01-31,1.00,0\nA,2,\"\",12345678901,31/01/2024,1.234,0\n",
         "riga 3, campo "
         "Creditore: il testo è vuoto|riga 3, campo NFat: il testo ha 11|campo Del: «31/01/2024» "
         "non è una data aaaa-mm-gg|campo Importo: «1.234»"}};
    const std::tuple<const char *, QByteArray, QByteArray> doubts[] = {
        {"UltimaPerVariante", budget + ";x;1\na;x;1\nA;x;1\nB\u200B;x;1\n",
         "csv, riga 2: Voce senza codice (riga 1): manca|csv, riga 4: Voce A (riga 3): il "
         "codice|csv, riga 5: Voce B\u200B (riga 4): il codice contiene caratteri che non"},
        {"Spese", "RelNpag;Cod;Importo\n1;A1;1\n", "riga 2: Conto di spesa alla riga 1 (pag"},
        {"Fatture", payments + "A;1;Rossi;;1;1;\nB;3;Rossi;1/1/2024;1;1;\n",
         "riga 2: Pagamento 1 (riga 1, Rossi): manca il valore di Del|riga 3: Pagamento 3 (riga 2, "
         "Rossi): il tipo di creditore (AziProf) è «B»|riga 3: Riga 2: qui l'elenco"},
        {"SchedaProgetto", "Voce;Link\nd0101;0\n", "riga 2: Appaltatore (voce D0101): non è"},
        {"Funzioni", "CodInt;CodExt;Desc\nDA1;X';x\n", "riga 2: Codice DA1: il codice|Codice P97"}};
    const auto check = [](const auto &cases, bool evenSo) {
        for (const auto &[table, file, lines] : cases) {
            const Office office;
            office.put(QString::fromUtf8(table), file);
            office.put(u"Anag"_s, "ID;nominativo\n1;Rossi\n");
            const QString said = office.import(evenSo);
            QVERIFY2(said.startsWith(u"NO\n"_s), qPrintable(said));
            for (const QByteArray &line : lines.split('|'))
                QVERIFY2(said.contains(QString::fromUtf8(line)),
                         (said.toUtf8() + line).constData());
            QVERIFY(!QFileInfo::exists(office.path(u"è"_s))); // not even for the file that is good
            QCOMPARE(office.import(true).contains(u"Saldoro.mdb: creato"_s), !evenSo);
        }
    };
    check(errors, true);
    check(doubts, false);
}

void TestImport::replaces()
{
    const Office office;
    office.putBudget("A1;Scavi;1\n");
#ifndef Q_OS_WIN
    // A file that is not there, while its link is.
    QFile::link(u"nowhere"_s, office.csv() + u"/Spese.csv"_s);
    QVERIFY(office.import().contains(u"Il file non può essere letto."_s));
    QVERIFY(QFile::remove(office.csv() + u"/Spese.csv"_s));
    // A name that is found taken only at the end: the new code map does not stay either.
    QVERIFY(QDir().mkpath(QFileInfo(office.project()).path()) &&
            QFile::link(u"nowhere"_s, office.project()));
    QVERIFY(office.import().contains(u"Il file c'è già."_s) && office.archive().isEmpty());
    QVERIFY(QFile::remove(office.project()));
#endif
    // The journal of a missing database is neither played into the new one nor deleted.
    const QString journal = office.project() + u"/Appalto.mdb-journal"_s;
    WriteFile(journal, "x");
    QVERIFY(office.import().contains(u"Il file è di un archivio che manca."_s));
    QVERIFY(QFile::remove(journal) && office.import().contains(u"Appalto.mdb: creato"_s));
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
void TestImport::takesOverOrRefuses()
{
    Office office;
    office.putBudget("A1;Scavi;100\nB2;Ponti;50\n");
    office.put(u"Anag"_s, "ID;nominativo;TipImprese\n1;Alfa;\n2;Beta;ATI\n");
    office.put(u"Fatture"_s, "AziProf;Npag;Creditore;Del;Importo;ImportoIVA;Memo\n"
                             "A;1;Alfa;1/2/2024;10;2;nota\nA;2;Beta;1/2/2024;5;0;\n");
    office.put(u"Spese"_s, "RelNpag;Cod;Importo\n1;A1;12\n2;A1;5\n");
    QVERIFY(office.import().startsWith(u"chiavi.mdb: creato\n"_s));
    const auto sound = office.archive();
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

void TestImport::keepsCodesAndWhatTheProgramWrote()
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
    const auto before = office.archive();
    const QString said = office.import(true, {u"SchedaProgetto"_s});
    QVERIFY2(said.contains(u"andrebbe persa la voce m0097_3 (Pag. N.3 - Rossi)"_s) &&
                 said.contains(u"andrebbe persa la voce S0103"_s),
             qPrintable(said));
    QCOMPARE(said.count(u"andrebbe persa"_s), 2);
    QCOMPARE(office.archive(), before);
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

void TestImport::setsTheArchivesRootOnce()
{
    if (RegistryFilePath().isEmpty())
        QSKIP("the system has a registry");
    const Office office;
    const QString setting = office.path(u"settings/saldoro/registro.ini"_s);
    const QString opening = u"Per aprire il progetto: saldoro, o dal menu\n"_s;
    WriteFile(setting, "[altra]\nx=1\n[software\\Dornvale\\zelt]\ny=2\n");
    office.putBudget("A1;Scavi;1\n");
    QVERIFY(office.import().endsWith(u"».\n"_s + opening));
    QCOMPARE(ContentOf(setting), "[altra]\nx=1\n[software\\Dornvale\\zelt]\ndrivers=\"" +
                                     office.path(u"è"_s).toUtf8() + "\"\ny=2\n");
    QVERIFY(office.import().endsWith(u"uguale)\n"_s + opening));
    WriteFile(setting, "[Software\\Dornvale\\ZELT]\ndrivers=/altrove\n");
    QVERIFY(office.import().contains(u"in un'altra cartella, «/altrove»"_s));
    QVERIFY_THROWS_EXCEPTION(FileError, ImportFiles(office.path(u"qui"_s), office.csv(), {}));
}

QTEST_GUILESS_MAIN(TestImport)
#include "test_import.moc"
