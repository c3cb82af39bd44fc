#include "office.h"
#include "platform/machine_path.h"
#include "platform/progress.h"
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
    void setsTheArchivesRootOnce();
    void leavesWhatOthersMade();
    void tellsWhatStays();
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
        {"Voce;Descri;Importo\rA1;Citt\xE0;1\rA2;Città;2\r", "A1|Città|10000\nA2|Città|20000"},
        {"sep=;\r\nNota;Importo;Voce;Descri;\n;;;;\nx;1;A1;Scavi;\n\n;;;;\n", "A1|Scavi|10000"},
        {names + "A1;\"\";\n0010;1/2;\n", "A1||-\n0010|1/2|-"},
        {"\"Voce\";\"Descri\";\"Importo\"\nA1;\"\"\"x\"\"; a\r\n\r\nb\";\"1,5\"\nA2;\"\"\"\";1\n",
         "A1|\"x\"; a\r\n\r\nb|15000\nA2|\"|10000"},
        {"Voce;Descri;Importo\rA1;a;1\rA2;b;2\r", "A1|a|10000\nA2|b|20000"},
        {"Voce,Descri,Importo\nA1,a,\"1,234\"\nA2,b,0.5\n", "A1|a|12340000\nA2|b|5000"},
        {"#TYPE Budget.Row\r\n\"Voce\",Descri,Importo\r\nA1,a,1\r\n", "A1|a|10000"},
        {names, ""}};
    for (const auto &[file, rows] : cases) {
        const Office office;
        office.put(u"ultimaPERvariante"_s, file);
        for (const QString &other :
             {u"appunti.txt"_s, u"spese.csv.txt"_s, u"UltimaPerVariante.ods"_s})
            WriteFile(office.csv() + u'/' + other, "x");
        const QString said = office.import();
        QCOMPARE(said.count(u"non è stato letto"_s), 1);
        QVERIFY(said.contains(u"spese.csv.txt: non è stato letto"_s));
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
        {"UltimaPerVariante", "\xEF\xBB\xBFVoce;Descri;Importo\r\nA1;x;1\rA2;Citt\xE0;1\r",
         "riga 3: c'è un byte che non è UTF-8"},
        {"UltimaPerVariante",
         QByteArray("Voce;Descri;Importo\r\nA1;x;1\rA2;?;1\r").replace('?', '\0'),
         "alla riga 3 c'è un carattere nullo"},
        {"UltimaPerVariante",
         budget + QByteArray("A1;x;uno\n").repeated(23) + "A2;" + QByteArray(256, 'x') + ";1\n",
         "riga 21, campo Importo|riga 25, campo Descri|... e altri 3 in UltimaPerVariante, campo "
         "Importo\n"},
        {"UltimaPerVariante", budget + "A1;x;1,234\nA2;x;0,500\n",
         "«1,234» può essere mille volte"},
        {"UltimaPerVariante", budget + "A1;x;1000.00\nA2;x;250.125\nA3;x;1.234,50\n",
         "riga 2, campo Importo: «1000.00» non è|riga 3, campo Importo: «250.125» può essere mille "
         "volte"},
        {"UltimaPerVariante", budget + QByteArray("A1;x;1.000\n").repeated(23) + "A2;x;40.50\n",
         "riga 25, campo Importo: «40.50» non è|riga 2, campo Importo: «1.000» può"},
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
         "codice|csv, riga 5: Voce B\uFFFD (riga 4): il codice contiene caratteri che non"},
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
            QVERIFY(!QFileInfo::exists(office.root())); // not even for the file that is good
            QCOMPARE(office.import(true).contains(u"Saldoro.mdb: creato"_s), !evenSo);
        }
    };
    const Office alone;
    WriteFile(alone.csv() + u"/Spese.csv.txt"_s, "x");
    QVERIFY(alone.import().contains(u"Errori:\n  Spese.csv.txt: non è stato letto"_s));
    check(errors, true);
    check(doubts, false);
}

void TestImport::leavesWhatOthersMade()
{
    const Office office;
    const QString project = office.project();
    const QStringList theirs{project + u".nuovo/Saldoro.mdb"_s, project + u"/Saldoro.mdb.nuovo"_s,
                             project + u"/Appalto.mdb.copia"_s, project + u"/Appalto.mdb.nuovo"_s};
    WriteFile(theirs[0], "theirs");
    office.putBudget("A1;Scavi;1\n");
    QVERIFY(office.import().contains(u"UltimaPerVariante: 1 riga"_s));
    for (const QString &path : theirs)
        WriteFile(path, "theirs");
    QVERIFY(QFile::remove(project + u"/Saldoro.mdb"_s));
    office.putBudget("A1;Scavi;2\n");
    QVERIFY(office.import(false, {u"UltimaPerVariante"_s}).contains(u"com'era sta in"_s));
    QVERIFY(QFileInfo::exists(project + u"/Saldoro.mdb"_s));
    for (const QString &path : theirs)
        QCOMPARE(ContentOf(path), "theirs");
    const QDir contracts = QFileInfo(project).dir();
    const QStringList before = contracts.entryList();
    for (const QString &code : {u"x.NUOVO"_s, u"CON"_s, u"a:b"_s, u" 1"_s})
        QVERIFY_THROWS_EXCEPTION(
            FileError, ImportFiles(contracts.filePath(code), office.csv(), {true, true, {}}));
    QCOMPARE(contracts.entryList(), before);
}

/** When a new project can't get its name, what was written into the shared code map stays. */
void TestImport::tellsWhatStays()
{
    const Office office;
    const auto putCode = [&](const QByteArray &code) {
        office.put(u"Funzioni"_s, "CodInt;CodExt;Desc\nDA1;" + code + ";x\n");
    };
    putCode("X");
    QVERIFY(office.import(true).contains(u"Funzioni: 1 riga"_s));
    const QString other = QFileInfo(MachinePath(office.project())).dir().filePath(u"00040"_s);
    Progress::setWatcher([&](const QString &state) {
        if (state == "Controllo"_L1)
            QDir().mkdir(other);
    });
    const auto outcome = [&] {
        try {
            ImportFiles(other, office.csv(), {true, true, {u"Funzioni"_s}});
        } catch (const SaldoroError &error) {
            QDir().rmdir(other);
            return error.detail(Detail::Outcome);
        }
        return QString();
    };
    QCOMPARE(outcome(), u"Niente è stato scritto."_s);
    putCode("Y");
    const QString told = outcome();
    Progress::setWatcher({});
    const QString copy = told.section(u"fuorché la tabella dei codici: com'era sta in "_s, 1);
    QCOMPARE(BareFile(copy).rows(u"SELECT CodExt FROM Funzioni"_s), u"X"_s);
    QCOMPARE(office.rows(ArchiveFile::Codes, u"SELECT CodExt FROM Funzioni"_s), u"Y"_s);
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
                                     office.root().toUtf8() + "\"\ny=2\n");
    QVERIFY(office.import().endsWith(u"uguale)\n"_s + opening));
    const QString odd = QFileInfo(office.project()).path() + u"/L'Aquila  &2"_s;
    QVERIFY(ImportFiles(odd, office.csv(), {true, false, {}})
                .summary.endsWith(u"saldoro 'TUSMQDE7WL'\\''Aquila  &2', o dal menu\n"_s));
    WriteFile(setting, "[Software\\Dornvale\\ZELT]\ndrivers=/altrove\n");
    QVERIFY(office.import().contains(u"in un'altra cartella, «/altrove»"_s));
    QVERIFY_THROWS_EXCEPTION(FileError, ImportFiles(office.path(u"qui"_s), office.csv(), {}));
}

QTEST_GUILESS_MAIN(TestImport)
#include "test_import.moc"
