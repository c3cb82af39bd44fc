#include "office.h"
#include "platform/registry.h"

#include <QTest>

using namespace saldoro;

/** What of CSV files comes in, what does not, and what is said about it. */
class TestImport : public QObject
{
    Q_OBJECT

private slots:
    void comesIn();
    void refuses();
    void warns();
    void replaces();
    void keepsCodesAndWhatTheProgramWrote();
    void setsTheArchivesRootOnce();
};

void TestImport::comesIn()
{
    const QByteArray names = "Voce;Descri;Importo\n";
    const std::pair<QByteArray, const char *> cases[] = {
        {"Voce;Descri;Importo\r\nA1;Scavi;1.000,50\r\n", "A1|Scavi|10005000"},
        {"voce,DESCRI,Importo\nA1,\"Scavi; ponti\",1000.5\n", "A1|Scavi; ponti|10005000"},
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
        {"Manda", "AnagPar;AnagRel;\n1;2;3\n", "riga 2: la cella 3 sta in una colonna"},
        {"UltimaPerVariante", budget + "A1;a \"b\";1\n", "riga 2: ci sono virgolette dentro"},
        {"UltimaPerVariante", budget + "A1;\"a\" b;1\n", "riga 2: dopo le virgolette chiuse"},
        {"UltimaPerVariante", budget + "A1;\"a;1\nA2;b;2\n", "riga 2: le virgolette aperte"},
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
        {"UltimaPerVariante", budget + ";x;1\na;x;1\nA;x;1\n",
         "riga 2, campo Voce: |riga 4, campo Voce: il codice è uguale"},
        {"Spese", "RelNpag;Cod;Importo\n1;A1;\n", "riga 2, campo Importo: "},
        {"Fatture",
         payments + "A;1;Rossi;;1;1;\n;2;Rossi;1/1/2024;1;1;\nP;3;Rossi;1/1/2024;1;1;1\n",
         "riga 2, campo Del: |riga 3, campo AziProf: |riga 4, campo ImportoPrest: "},
        {"SchedaProgetto", "Voce;Stringa\nd0101;Rossi\n", "campo Link: "},
        {"Funzioni", "CodInt;CodExt;Desc\nDA1;X;x\n", "manca il codice interno P97"}};
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
            QVERIFY(office.archive().isEmpty()); // not even of the file that is good
            QCOMPARE(office.import(true).contains(u"Saldoro.mdb: creato"_s), !evenSo);
        }
    };
    check(errors, true);
    check(doubts, false);
}

/** Payments need a number for each row of their list; a pick offers 201 items. */
void TestImport::warns()
{
    const auto said = [](const QString &table, const QByteArray &names, int first, int last) {
        const Office office;
        QByteArray rows = names;
        for (int row = first; row <= last; ++row)
            rows += "\nA;" + QByteArray::number(row) + ";1;1/1/2024;1;1";
        office.put(table, rows);
        return office.import().section(u"chiavi.mdb: creato"_s, 0, 0);
    };
    const QByteArray payments = "AziProf;Npag;Creditore;Del;Importo;ImportoIVA";
    QCOMPARE(said(u"Fatture"_s, payments, 1, 2), QString());
    for (const auto &[more, first] : {std::pair("", 0), std::pair("\nA;0;x;1/1/2024;1;1", 2),
                                      std::pair("\nA;2;x;1/1/2024;1;1", 1)})
        QVERIFY(
            said(u"Fatture"_s, payments + more, first, 2).contains(u"non sono numerati da 1"_s));
    const QByteArray items = "Nota;Voce;Descri;x;y;Importo";
    QVERIFY(!said(u"UltimaPerVariante"_s, items, 1, 201).contains(u"le voci sono"_s));
    QVERIFY(said(u"UltimaPerVariante"_s, items, 1, 202).contains(u"le voci sono 202; "_s));
}

void TestImport::replaces()
{
    const Office office;
    office.putBudget("A1;Scavi;1\n");
    office.import();
    office.putBudget("A1;Scavi;2\nA2;Ponti;3\n");
    const auto before = office.archive();
    QVERIFY(
        office.import().contains(u"contiene già 1 righe; con --sostituisci UltimaPerVariante"_s));
    QVERIFY(office.import(false, {u"Spese"_s}).contains(u"--sostituisci Spese: nella cartella"_s));
    QCOMPARE(office.archive(), before);
    const QString said = office.import(false, {u"ultimapervariante"_s});
    QVERIFY2(said.contains(u"UltimaPerVariante: 2 righe, totale Importo 5,00\n"_s),
             qPrintable(said));
    const QString budget = u"SELECT * FROM UltimaPerVariante"_s;
    QCOMPARE(office.rows(ArchiveFile::Contract, budget), u"A1|Scavi|20000\nA2|Ponti|30000"_s);
    // The copy beside it is the database as it was.
    const QString copy = said.section(u"com'era sta in "_s, 1).section(u'\n', 0, 0);
    QCOMPARE(BareFile(copy).rows(budget), u"A1|Scavi|10000"_s);

    // A database that is in use stops the import before another one is changed.
    office.putBudget("A3;Muri;4\n");
    office.put(u"Spese"_s, "RelNpag;Cod;Importo\n1;A3;4\n");
    BareFile otherProgram(ArchiveFilePath(ArchiveFile::Ledger, office.project()));
    otherProgram.rows(u"BEGIN IMMEDIATE"_s);
    QVERIFY_THROWS_EXCEPTION(DatabaseError, office.import(false, {u"UltimaPerVariante"_s}));
    QCOMPARE(office.rows(ArchiveFile::Contract, budget), u"A1|Scavi|20000\nA2|Ponti|30000"_s);

    office.rows(ArchiveFile::Contract,
                u"DROP TABLE UltimaPerVariante; CREATE VIEW "
                "UltimaPerVariante AS SELECT 'V' Voce, 'x' Descri, 1 Importo"_s);
    QVERIFY(office.import(false, {u"UltimaPerVariante"_s}).contains(u"un'interrogazione"_s));
}

void TestImport::keepsCodesAndWhatTheProgramWrote()
{
    const Office office;
    office.put(u"SchedaProgetto"_s, "Voce;Descri;Importo\nM0097_3;Pag. N.3 - Rossi;\n"
                                    "S0103;Totale;5\nQ0100;Prospetto;\nA1;Oggetto;\nM0097_x;;\n");
    office.import();
    office.put(u"SchedaProgetto"_s, "Voce;Descri\nq0100;Prospetto\n");
    const auto before = office.archive();
    const QString said = office.import(true, {u"SchedaProgetto"_s});
    QVERIFY2(said.contains(u"andrebbe persa la voce M0097_3 (Pag. N.3 - Rossi)"_s) &&
                 said.contains(u"andrebbe persa la voce S0103"_s),
             qPrintable(said));
    QCOMPARE(said.count(u"andrebbe persa"_s), 2);
    QCOMPARE(office.archive(), before);
    // Codes that are equal, here to those that a new code map gets, need no leave.
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
