#include "bare_file.h"
#include "common/errors.h"
#include "common/text_cut.h"
#include "database/table_appender.h"
#include "exchange/archive_tables.h"
#include "exchange/csv_values.h"
#include "exchange/export.h"
#include "exchange/import.h"
#include "platform/machine_path.h"
#include "rtf_text.h"
#include "store/project_files.h"
#include "test_archive.h"

#include <QDirIterator>
#include <QTest>

#include <limits>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

void writeFile(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("a file of the test can't be written");
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

/** A folder for CSV files and a project that is not there yet. */
class Office
{
public:
    Office() { qputenv("XDG_CONFIG_HOME", path(u"settings"_s).toUtf8()); }

    QString path(const QString &name) const { return m_folder.filePath(name); }
    QString csv() const { return path(u"csv"_s); }
    QString project(const QString &code = u"00039"_s) const
    {
        return path(u"è/archivi.qx/ZELT/LAVORI/APPALTI/"_s + code);
    }
    void put(const QString &name, const QByteArray &bytes) const
    {
        writeFile(csv() + u'/' + name, bytes);
    }
    void putBudget(const QByteArray &rows) const
    {
        put(u"UltimaPerVariante.csv"_s, "Voce;Descri;Importo\n" + rows);
    }

    /** A new project: all that it says, with errors as they would be reported. */
    QString import(bool evenSo = false, const QStringList &replaced = {}) const
    {
        try {
            const ImportOutcome outcome = ImportProject({csv(), project(), true, evenSo, replaced});
            return outcome.isDone ? outcome.remarks + outcome.summary : u"NO\n"_s + outcome.remarks;
        } catch (const SaldoroError &error) {
            return u"STOP\n"_s + error.message();
        }
    }

    /** Cells joined by "|", rows by a line end, in stored order. */
    QString rows(ArchiveFile file, const QString &sql) const
    {
        return BareFile(ArchiveFilePath(file, project())).rows(sql);
    }
    QString budget() const
    {
        return rows(ArchiveFile::Contract, u"SELECT Voce, Descri, Importo FROM "
                                           "UltimaPerVariante"_s);
    }
    /** The bytes of every file of the archive. */
    QMap<QString, QByteArray> archive() const
    {
        QMap<QString, QByteArray> files;
        QDirIterator walk(path(u"è"_s), QDir::Files, QDirIterator::Subdirectories);
        while (walk.hasNext()) {
            const QString file = walk.next();
            files[file] = readFile(file);
        }
        return files;
    }

private:
    QTemporaryDir m_folder;
};

/** Every stored value of a project with its type, byte for byte and in stored order. */
QString wholeProject(const QString &project)
{
    QStringList texts;
    for (const ExchangedTable &table : ExchangedTables()) {
        QStringList cells;
        for (const FieldDef &field : table.definition.fields())
            cells.append(u"typeof(\"%1\"), hex(\"%1\")"_s.arg(field.name));
        texts.append(table.name() +
                     BareFile(ArchiveFilePath(table.archive, project))
                         .rows(u"SELECT "_s + cells.join(u", "_s) + u" FROM "_s + table.name()));
    }
    return texts.join(u"\n\n"_s);
}

/** Random values of every kind that a field takes. */
class HostileRows
{
public:
    explicit HostileRows(quint32 seed)
        : m_random(seed)
    {
    }

    void fill(const QString &project)
    {
        for (const ExchangedTable &table : ExchangedTables()) {
            Database database = Database::open(ArchiveFilePath(table.archive, project));
            Transaction transaction(database);
            QStringList names;
            for (const FieldDef &field : table.definition.fields())
                names.append(field.name);
            TableAppender appender(database, table.name(), names);
            for (int rows = below(12); rows > 0; --rows)
                appender.append(row(table.definition));
            transaction.commit();
        }
    }

private:
    int below(int bound) { return static_cast<int>(m_random() % static_cast<quint32>(bound)); }
    qint64 bits()
    {
        return static_cast<qint64>(m_random()) << 32 | static_cast<qint64>(m_random());
    }

    QList<NewValue> row(const TableDef &table)
    {
        QList<NewValue> values;
        bool isEmpty = true;
        for (const FieldDef &field : table.fields()) {
            values.append(below(5) == 0 ? NewValue() : value(field));
            isEmpty = isEmpty && values.last() == NewValue();
        }
        return isEmpty ? row(table) : values; // one without a value is no row of a file
    }

    NewValue value(const FieldDef &field)
    {
        switch (field.type) {
        case FieldType::Currency:
            return Currency::fromScaled(below(4) == 0   ? std::numeric_limits<qint64>::min()
                                        : below(3) == 0 ? std::numeric_limits<qint64>::max()
                                                        : bits() >> below(64));
        case FieldType::Long:
            return static_cast<qint32>(bits());
        case FieldType::Integer:
            return qint32{static_cast<qint16>(bits())};
        case FieldType::Date:
            return below(4) == 0 ? NewValue(QString())
                                 : NewValue(QDate(1, 1, 1).addDays(below(3'650'000)));
        default:
            return text(field);
        }
    }

    NewValue text(const FieldDef &field)
    {
        if (field.name == "AziProf"_L1)
            return below(2) == 0 ? u"A"_s : u"P"_s;
        static const QStringList more{u"\""_s,   u";"_s, u","_s,    QString(QChar(0)), u"\ufeff"_s,
                                      u"\"\""_s, u" "_s, u"=1+1"_s, u"00112"_s};
        QString text = HostileText(m_random, below(5));
        for (int count = below(4); count > 0; --count)
            text.insert(0, more[below(static_cast<int>(more.size()))]);
        if (field.size > 0)
            text = LeftCharacters(text, field.size);
        return text.isEmpty() && !field.allowZeroLength ? u"x"_s : text;
    }

    std::mt19937 m_random;
};

} // namespace

class TestExchange : public QObject
{
    Q_OBJECT

private slots:
    void values();
    void comesIn();
    void errors();
    void refusals();
    void replaces();
    void takesEqualCodes();
    void keepsWhatTheProgramWrote();
    void setsTheArchivesRootOnce();
    void roundTrip();
    void exportRefuses();
};

void TestExchange::values()
{
    // Texts, "_" for a blank, and what they read as: days, or amounts in ten-thousandths.
    const auto check = [](CsvDialect dialect, const QString &cases) {
        for (const QString &one : cases.split(u' ')) {
            const QString text = one.section(u'=', 0, 0).replace(u'_', u' ');
            const auto amount = AmountOf(text, dialect);
            const auto day = DayOf(text, dialect);
            const QString read = amount ? QString::number(amount->scaled())
                                 : day  ? day->toString(Qt::ISODate)
                                        : u"-"_s;
            QVERIFY2(read == one.section(u'=', 1), qPrintable(one + u" is read as "_s + read));
        }
    };
    check(CsvDialect::Italian,
          u"12=120000 1.234,56=12345600 1,234=12340 1,23456=- 1.234=12340000 1.2345=- "
          "1234.567,8=- .234=- _€_1,5_=15000 -€1=-10000 \u00a01\u00a0€=10000 €1€=- 1-=- ,5=- €=- "
          "1e3=- ٣=- -922.337.203.685.477,5808=-9223372036854775808 922337203685477,5808=- "
          "31/12/2024=2024-12-31 _1/2/2024_=2024-02-01 29/02/2023=- 12/31/2024=- 01/01/24=- "
          "01/01/0001=0001-01-01 01/01/0000=- 2024-12-31=- 31/12/2024_00:00:00=-"_s);
    check(CsvDialect::International,
          u"12=120000 1.23=12300 1.234=- 1.2345=12345 1,23=- 922337203685477.5807="
          "9223372036854775807 31/12/2024=- 2024-12-31=2024-12-31 2024-12-31_00:00:00=2024-12-31 "
          "2024-12-31_00:00:01=- 2024-1-31=-"_s);
}

void TestExchange::comesIn()
{
    const QByteArray names = "Voce;Descri;Importo\n";
    const std::pair<QByteArray, const char *> cases[] = {
        {"Voce;Descri;Importo\r\nA1;Scavi;1.000,50\r\n", "A1|Scavi|10005000"},
        {"voce,DESCRI,Importo\nA1,\"Scavi; ponti\",1000.5\n", "A1|Scavi; ponti|10005000"},
        {"\"Voce,\";Voce;Descri;Importo\nx;A1;Scavi;1,5\n", "A1|Scavi|15000"},
        {"\xEF\xBB\xBFVoce;Descri;Importo\nA1;Città;1", "A1|Città|10000"},
        {names + "A1;Citt\xE0 \x80;1\n", "A1|Città €|10000"},
        {"Nota;Importo;Voce;Descri;\nx;1;A1;Scavi;\n", "A1|Scavi|10000"},
        {"sep=;\r\n" + names + ";;\nA1;Scavi;1\n\n;;\n", "A1|Scavi|10000"},
        {names + "A1;\"\";\n0010;1/2;\n", "A1||-\n0010|1/2|-"},
        {"\"Voce\";\"Descri\";\"Importo\"\nA1;\"di \"\"qualità\"\"; a\r\n\r\nb\";\"1,5\"\n",
         "A1|di \"qualità\"; a\r\n\r\nb|15000"},
        {names + "A1;\"\"\"\"\"\";1\nA2;\"\"\"x\";1\n", "A1|\"\"|10000\nA2|\"x|10000"},
        {names, ""}};
    for (const auto &[file, rows] : cases) {
        const Office office;
        office.put(u"ultimaPERvariante.CSV"_s, file);
        office.put(u"appunti.txt"_s, "x");
        const QString said = office.import();
        QVERIFY2(said.contains(u"UltimaPerVariante: "_s), qPrintable(said));
        QCOMPARE(office.budget(), QString::fromUtf8(rows));
        // What was left out is named; a second time everything is there already.
        QCOMPARE(said.contains(u"campi tralasciati: Nota."_s), file.contains("Nota"));
        QVERIFY(office.import().contains(u"(c'era già, uguale)"_s));
    }
}

void TestExchange::errors()
{
    const QString budget = u"UltimaPerVariante.csv"_s;
    const QByteArray names = "Voce;Descri;Importo\n";
    const auto row = [](const QString &name, const QByteArray &file, const QStringList &lines) {
        const Office office;
        office.put(name, file);
        office.put(u"Anag.csv"_s, "ID;nominativo\n1;Rossi\n");
        const QString said = office.import(true);
        QVERIFY2(said.startsWith(u"NO\n"_s), qPrintable(said));
        for (const QString &line : lines)
            QVERIFY2(said.contains(line), qPrintable(said + u"\nwithout: "_s + line));
        QCOMPARE(office.archive().size(), 0); // not even of the file that is good
    };
    row(u"Voci.csv"_s, "Voce\n", {u"Voci.csv: nessuna tabella ha questo nome."_s});
    row(budget, "Voce;Nota\nA1;x\n", {u"manca il campo Descri."_s, u"manca il campo Importo."_s});
    row(u"Manda.csv"_s, "", {u"manca il campo AnagPar."_s});
    row(u"Manda.csv"_s, "AnagPar;AnagRel;anagrel\n",
        {u"riga 1: il campo anagrel è nominato due volte."_s});
    row(budget, names + "A1;x;12.5\nA2;y;1\nA3;z;uno\n",
        {u"riga 2, campo Importo: «12.5» non è un importo come 1.234,56"_s,
         u"riga 4, campo Importo: «uno»"_s});
    row(budget, names + "A1;\"x\n\ny\";1\nA2;y;?\n", {u"riga 5, campo Importo"_s});
    row(budget, names + "A1;x;\"\"\n", {u"campo Importo: «» non è un importo"_s});
    row(budget, names + "A1;x\nA2;y;1;2\n",
        {u"riga 2: le celle sono 2, e 3 nella prima riga."_s, u"riga 3: le celle sono 4"_s});
    row(budget, names + "A1;a \"b\";1\n", {u"riga 2: ci sono virgolette dentro una cella"_s});
    row(budget, names + "A1;\"a\" b;1\n", {u"riga 2: dopo le virgolette chiuse"_s});
    row(budget, names + "A1;\"a;1\nA2;b;2\n", {u"riga 2: le virgolette aperte"_s});
    row(budget, names + "A1;a;1\rA2;b;2\n",
        {u"riga 2: una riga finisce con il solo carattere CR"_s});
    row(budget, names + "A1;" + QByteArray(256, 'x') + ";1\n",
        {u"campo Descri: il testo ha 256 caratteri e il campo ne tiene 255."_s});
    row(u"Manda.csv"_s, "AnagPar;AnagRel;\n1;2;3\n",
        {u"la cella 3 sta in una colonna senza nome."_s});
    row(u"SchedaProgetto.csv"_s, "Voce;Funzione;Link\nA;32768;1\nB;1;2147483648\nC;1.0;1\n",
        {u"riga 2, campo Funzione: il valore non sta nel campo"_s,
         u"riga 3, campo Link: «2147483648»"_s,
         u"riga 4, campo Funzione: «1.0» non è un numero intero"_s});
    row(u"Fatture.csv"_s,
        "AziProf,Npag,Creditore,NFat,Del,Importo,ImportoIVA\n"
        "B,1,Rossi,1,2024-01-31,1.00,0\nA,2,\"\",12345678901,31/01/2024,1.234,0\n",
        {u"riga 2, campo AziProf: «B» non è A (azienda) né P (professionista)."_s,
         u"riga 3, campo Creditore: il testo è vuoto"_s, u"riga 3, campo NFat: il testo ha 11"_s,
         u"campo Del: «31/01/2024» non è una data aaaa-mm-gg"_s, u"campo Importo: «1.234»"_s});
}

void TestExchange::refusals()
{
    const auto row = [](const QString &name, const QByteArray &file, const QString &line) {
        const Office office;
        office.put(name, file);
        const QString said = office.import();
        QVERIFY2(said.startsWith(u"NO\n"_s) && said.contains(line), qPrintable(said));
        QCOMPARE(office.archive().size(), 0);
        QVERIFY(office.import(true).contains(u"Saldoro.mdb: creato"_s));
    };
    const QByteArray budget = "Voce;Descri;Importo\n";
    const QString budgetFile = u"UltimaPerVariante.csv"_s;
    row(budgetFile, budget + ";x;1\n", u"riga 2, campo Voce: "_s);
    row(budgetFile, budget + "A1;x;1\na1;x;1\n", u"riga 3, campo Voce: il codice è uguale"_s);
    row(u"Spese.csv"_s, "RelNpag;Cod;Importo\n1;A1;\n", u"riga 2, campo Importo: "_s);
    const QByteArray payments = "AziProf;Npag;Creditore;Del;Importo;ImportoIVA;Contributo\n";
    row(u"Fatture.csv"_s, payments + "A;1;Rossi;;1;1;\n", u"riga 2, campo Del: "_s);
    row(u"Fatture.csv"_s, payments + ";1;Rossi;1/1/2024;1;1;\n", u"campo AziProf: "_s);
    row(u"Fatture.csv"_s, payments + "P;1;Rossi;1/1/2024;1;1;1\n", u"campo ImportoPrest: "_s);
    row(u"SchedaProgetto.csv"_s, "Voce;Stringa\nd0101;Rossi\n", u"campo Link: "_s);
    row(u"Funzioni.csv"_s, "CodInt;CodExt;Desc\nDA1;X;x\n", u"manca il codice interno P97"_s);
}

void TestExchange::replaces()
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
    QCOMPARE(office.budget(), u"A1|Scavi|20000\nA2|Ponti|30000"_s);
    // The copy beside it is the database as it was.
    const QString copy = said.section(u"com'era sta in "_s, 1).section(u'\n', 0, 0);
    QCOMPARE(BareFile(copy).rows(u"SELECT * FROM UltimaPerVariante"_s), u"A1|Scavi|10000"_s);

    office.rows(ArchiveFile::Contract,
                u"DROP TABLE UltimaPerVariante; CREATE VIEW "
                "UltimaPerVariante AS SELECT 'V' Voce, 'x' Descri, 1 Importo"_s);
    QVERIFY(office.import(false, {u"UltimaPerVariante"_s}).contains(u"un'interrogazione"_s));
}

void TestExchange::takesEqualCodes()
{
    const Office office;
    office.putBudget("A1;Scavi;1\n");
    office.import();
    QFile::remove(office.csv() + u"/UltimaPerVariante.csv"_s);
    ExportProject(office.project(), office.path(u"out"_s)); // codes that are equal need no leave
    QFile::copy(office.path(u"out/Funzioni.csv"_s), office.csv() + u"/Funzioni.csv"_s);
    QVERIFY(office.import().contains(u"Funzioni: 10 righe (c'era già, uguale)"_s));
    office.put(u"Funzioni.csv"_s,
               readFile(office.path(u"out/Funzioni.csv"_s)).replace("D0101", "X"));
    QVERIFY(office.import().startsWith(u"NO\n"_s));
    QVERIFY(office.import(false, {u"Funzioni"_s}).contains(u"per tutti i progetti"_s));
}

void TestExchange::keepsWhatTheProgramWrote()
{
    const Office office;
    office.put(u"SchedaProgetto.csv"_s,
               "Voce;Descri;Importo\nM0097_3;Pag. N.3 - Rossi;\n"
               "S0103;Totale;5\nQ0100;Prospetto;\nA1;Oggetto;\nM0097_x;;\n");
    office.import();
    office.put(u"SchedaProgetto.csv"_s, "Voce;Descri\nq0100;Prospetto\n");
    const auto before = office.archive();
    const QString said = office.import(true, {u"SchedaProgetto"_s});
    QVERIFY2(said.contains(u"andrebbe persa la voce M0097_3 (Pag. N.3 - Rossi)"_s),
             qPrintable(said));
    QVERIFY(said.contains(u"andrebbe persa la voce S0103"_s));
    QCOMPARE(said.count(u"andrebbe persa"_s), 2);
    QCOMPARE(office.archive(), before);
    office.put(u"SchedaProgetto.csv"_s, "Voce;Descri\nq0100;x\nm0097_3;x\ns0103;x\n");
    QVERIFY(office.import(false, {u"SchedaProgetto"_s}).contains(u"3 righe"_s));
}

void TestExchange::setsTheArchivesRootOnce()
{
    const Office office;
    const QString setting = office.path(u"settings/saldoro/registro.ini"_s);
    writeFile(setting, "[altra]\nx=1\n[software\\Dornvale\\zelt]\ny=2\n");
    office.putBudget("A1;Scavi;1\n");
    QVERIFY(office.import().endsWith(u"Per aprire il progetto: saldoro, o dal menu\n"_s));
    const QByteArray expected = "[altra]\nx=1\n[software\\Dornvale\\zelt]\ndrivers=\"" +
                                office.path(u"è"_s).toUtf8() + "\"\ny=2\n";
    QCOMPARE(readFile(setting), expected);
    QVERIFY(office.import().endsWith(u"Per aprire il progetto: saldoro, o dal menu\n"_s));
    writeFile(setting, "[Software\\Dornvale\\ZELT]\ndrivers=/altrove\n");
    QVERIFY(office.import().contains(u"in un'altra cartella, «/altrove»"_s));
    QVERIFY_THROWS_EXCEPTION(FileError,
                             ImportProject({office.csv(), office.path(u"qui"_s), true, false, {}}));
    QVERIFY_THROWS_EXCEPTION(
        FileError, ImportProject({office.csv(), office.path(u"qui"_s), false, false, {}}));
}

void TestExchange::roundTrip()
{
    bool isGiven = false;
    const int given = qEnvironmentVariableIntValue("SALDORO_ARCHIVES", &isGiven);
    for (int seed = 1; seed <= (isGiven ? given : 10); ++seed) {
        const Office office;
        const TestArchive archive;
        const QString project = MachinePath(ProjectFolder(archive.values()));
        HostileRows(static_cast<quint32>(seed)).fill(project);
        ExportProject(project, office.csv());
        const QString said = office.import(true);
        QVERIFY2(said.contains(u"Saldoro.mdb: creato"_s), qPrintable(said));
        QCOMPARE(wholeProject(office.project()), wholeProject(project));
    }
}

void TestExchange::exportRefuses()
{
    const Office office;
    office.putBudget("A1;Scavi;1\n");
    office.import();
    const auto refusal = [&] {
        try {
            ExportProject(office.project(), office.path(u"out"_s));
        } catch (const SaldoroError &error) {
            return error.message();
        }
        return QString();
    };
    for (const QString &plant :
         {u"INSERT INTO Fatture (Npag, Del) VALUES (7, '2024-01-31 10:30:00')"_s,
          u"INSERT INTO Fatture (Npag, Memo) VALUES (7, CAST(x'e8' AS TEXT))"_s,
          u"INSERT INTO Fatture (Npag, Importo) VALUES (7, 'dodici')"_s,
          u"INSERT INTO Fatture (Memo) VALUES (NULL)"_s}) {
        office.rows(ArchiveFile::Ledger, u"DELETE FROM Fatture; "_s + plant);
        QVERIFY2(refusal().contains(u"Fatture, riga 1 ("_s), qPrintable(plant + refusal()));
        QVERIFY(!QFileInfo::exists(office.path(u"out"_s)));
    }
    office.rows(ArchiveFile::Ledger, u"DELETE FROM Fatture"_s);
    writeFile(office.path(u"out/fatture.CSV"_s), "mio");
    QVERIFY(refusal().contains(u"Il file c'è già."_s));
    QCOMPARE(QDir(office.path(u"out"_s)).count(), 3U); // with "." and ".."
    ExportProject(office.project(), office.path(u"out"_s), true);
    QVERIFY(readFile(office.path(u"out/fatture.CSV"_s))
                .startsWith("\xEF\xBB\xBF"
                            "AziProf;Npag"));
}

QTEST_GUILESS_MAIN(TestExchange)
#include "test_exchange.moc"
