#include "common/characters.h"
#include "exchange/archive_tables.h"
#include "exchange/cell_values.h"
#include "exchange/export.h"
#include "exchange/missing_payment_values.h"
#include "office.h"
#include "platform/machine_path.h"
#include "platform/progress.h"
#include "rtf_text.h"
#include "test_archive.h"

#include <QTest>

#include <limits>
#include <stdexcept>

#ifndef Q_OS_WIN
#include "full_disk.h"
#endif

using namespace saldoro;

namespace {

/** Every stored value of a project with its type, byte for byte and in stored order. */
QString wholeProject(const QString &project)
{
    QStringList texts;
    for (const ExchangedTable &table : ExchangedTables()) {
        QStringList cells;
        for (const QString &field : table.fieldNames())
            cells.append(u"typeof(\"%1\"), hex(\"%1\")"_s.arg(field));
        texts.append(table.name() +
                     BareFile(ArchiveFilePath(table.archive, project))
                         .rows(u"SELECT "_s + cells.join(u", "_s) + u" FROM "_s + table.name()));
    }
    return texts.join(u"\n\n"_s);
}

/** A value that the field takes, and that readers and writers get wrong easily. */
NewValue hostileValue(const FieldDef &field, std::mt19937 &random)
{
    const auto below = [&random](int bound) {
        return static_cast<int>(random() % static_cast<quint32>(bound));
    };
    if (below(5) == 0)
        return {};
    if (field.type == FieldType::Currency)
        return Currency::fromScaled(
            QList{std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::max(),
                  qint64{below(1 << 30)} << below(33), -qint64{below(1 << 16)}}[below(4)]);
    if (field.type == FieldType::Long)
        return static_cast<qint32>(random());
    if (field.type == FieldType::Integer)
        return qint32{static_cast<qint16>(random())};
    if (field.type == FieldType::Date)
        return below(4) == 0 ? NewValue(QString())
                             : NewValue(QDate(1, 1, 1).addDays(below(3'650'000)));
    if (field.name == "AziProf"_L1)
        return below(2) == 0 ? u"A"_s : u"P"_s;
    static const QStringList pieces{{},     u"\""_s, u"\";"_s,  u"\r"_s,   u"\ufeff"_s,
                                    u" "_s, u"\n"_s, u"=1+1"_s, u"00112"_s};
    const QString text = pieces[below(9)] + HostileText(random, below(5)) + pieces[below(9)];
    const QString cut = field.size > 0 ? LeftCharacters(text, field.size) : text;
    return cut.isEmpty() && !field.allowZeroLength ? u"x"_s : cut;
}

/** Appends rows of hostile values to all tables; one without a value is no row of a file. */
void plantHostileRows(const QString &project, int seed)
{
    std::mt19937 random(static_cast<quint32>(seed));
    for (const ExchangedTable &table : ExchangedTables()) {
        Database database = Database::open(ArchiveFilePath(table.archive, project));
        Transaction transaction(database);
        RecordSet records = database.openRecordSet(u"SELECT * FROM "_s + table.name());
        for (auto rows = random() % 12; rows > 0; --rows) {
            records.addNew();
            bool isEmpty = true;
            for (const FieldDef &field : table.definition.fields()) {
                const NewValue value = hostileValue(field, random);
                isEmpty = isEmpty && value == NewValue();
                records.set(field.name, value);
            }
            if (!isEmpty)
                records.update();
        }
        transaction.commit();
    }
}

} // namespace

/** What goes out as CSV and comes in again. */
class TestExchange : public QObject
{
    Q_OBJECT

private slots:
    void values();
    void roundTrip();
    void takesTheExample();
    void exportRefuses();
    void exportsOneMoment();
    void listsPaymentsWithoutDay();
};

void TestExchange::values()
{
    // Texts, "_" for a blank, and what they read as: days, or amounts in ten-thousandths.
    const auto check = [](Notation notation, const QString &cases) {
        for (const QString &one : cases.split(u' ')) {
            const QString text = one.section(u'=', 0, 0).replace(u'_', u' ');
            const auto amount = AmountOf(text, notation);
            const auto day = DayOf(text, notation);
            const QString read = amount ? QString::number(amount->scaled())
                                 : day  ? day->toString(Qt::ISODate)
                                        : u"-"_s;
            QVERIFY2(read == one.section(u'=', 1), qPrintable(one + u" is read as "_s + read));
        }
    };
    check(Notation::Italian,
          u"12=120000 1.234,56=12345600 1,234=12340 1,23456=- 1.234=12340000 1.2345=- "
          "1234.567,8=- .234=- _€_1,5_=15000 -€1=-10000 \u00a01\u00a0€=10000 €1€=- 1-=- +-=- ,5=- "
          "€=- "
          "1e3=- ٣=- -922.337.203.685.477,5808=-9223372036854775808 922337203685477,5808=- "
          "31/12/2024=2024-12-31 _1/2/2024_=2024-02-01 29/02/2023=- 12/31/2024=- 01/01/24=- "
          "01/01/0001=0001-01-01 01/01/0000=- 2024-12-31=- 31/12/2024_00:00:00=-"_s);
    check(Notation::International,
          u"12=120000 1,234.56=12345600 1,234=12340000 1,2345.6=- 1.23=12300 1.234=- 1.2345=12345 "
          u"1,23=- 922337203685477.5807="
          "9223372036854775807 31/12/2024=- 2024-12-31=2024-12-31 2024-12-31_00:00:00=2024-12-31 "
          "2024-12-31_00:00:01=- 2024-1-31=-"_s);
}

void TestExchange::roundTrip()
{
    bool isGiven = false;
    const int given = qEnvironmentVariableIntValue("SALDORO_ARCHIVES", &isGiven);
    for (int seed = 1; seed <= (isGiven ? given : 10); ++seed) {
        const Office office;
        const TestArchive archive;
        const QString project = MachinePath(ProjectFolder(archive.values()));
        plantHostileRows(project, seed);
        ExportProject(project, office.csv());
        const QString said = office.import(true);
        QVERIFY2(said.contains(u"Saldoro.mdb: creato"_s), qPrintable(said));
        QCOMPARE(wholeProject(office.project()), wholeProject(project));
    }
}

void TestExchange::takesTheExample()
{
    const Office office;
    const auto demo = ContentsOf(QStringLiteral(DEMO_FOLDER));
    for (auto file = demo.begin(); file != demo.end(); ++file)
        WriteFile(office.csv() + u'/' + file.key(), *file);
    QVERIFY(office.import().startsWith(u"chiavi.mdb: creato\n"_s)); // without a remark
    ExportProject(office.project(), office.path(u"out"_s));
    QCOMPARE(ContentsOf(office.path(u"out"_s)), demo);
}

void TestExchange::exportRefuses()
{
    const Office office;
    office.putBudget("A1;Scavi;1\n");
    office.import();
    const QString out = office.path(u"out"_s);
    const auto refusal = [&] {
        try {
            ExportProject(office.project(), out);
        } catch (const SaldoroError &error) {
            return error.message();
        }
        return QString();
    };
    for (const QString &plant :
         {u"(Npag, Del) VALUES (7, '2024-01-31 10:30:00')"_s,
          u"(Npag, Memo) VALUES (7, CAST(x'e8' AS TEXT))"_s,
          u"(Npag, Memo) VALUES (7, CAST(x'410042' AS TEXT))"_s,
          u"(Npag, Importo) VALUES (7, 'dodici')"_s, u"(Memo) VALUES (NULL)"_s}) {
        office.rows(ArchiveFile::Ledger, u"DELETE FROM Fatture; INSERT INTO Fatture "_s + plant);
        QVERIFY2(refusal().contains(u"Fatture, riga 1 ("_s), qPrintable(plant + refusal()));
        QVERIFY(!QFileInfo::exists(out));
    }
    office.rows(ArchiveFile::Ledger, u"DELETE FROM Fatture"_s);
    QVERIFY(!HasExportedFiles(out));
    WriteFile(out + u"/fatture.CSV"_s, "mio");
    QVERIFY(HasExportedFiles(out));
    QVERIFY(refusal().contains(u"Il file c'è già."_s));
    QCOMPARE(ContentsOf(out).size(), 1);
    // A name with "\\" is looked at where it is written to.
    WriteFile(out + u"/sotto/Spese.csv"_s, "mio");
    QVERIFY_THROWS_EXCEPTION(FileError, ExportProject(office.project(), out + u"\\sotto"_s));
    QVERIFY(QDir(out + u"/sotto"_s).removeRecursively());
#ifndef Q_OS_WIN
    // But a folder may have it in its name.
    QVERIFY(QDir().mkpath(out + u"\\altra"_s));
    ExportProject(office.project(), out + u"\\altra"_s);
    QCOMPARE(ContentsOf(out + u"\\altra"_s).size(), 8);
    QVERIFY(!QFileInfo::exists(out + u"/altra"_s));
#endif
    // One file that can't be replaced keeps all as they are.
    QVERIFY(QDir().mkpath(out + u"/Spese.csv"_s));
    QVERIFY_THROWS_EXCEPTION(FileError, ExportProject(office.project(), out, true));
    QCOMPARE(ContentsOf(out).size(), 1);
    QVERIFY(QDir().rmdir(out + u"/Spese.csv"_s));
#ifndef Q_OS_WIN
    // A disk that takes a part of a file, which the system tells when it is flushed.
    {
        const FullDisk partly(100);
        QVERIFY_THROWS_EXCEPTION(FileError, ExportProject(office.project(), out, true));
    }
    QCOMPARE(ContentOf(out + u"/fatture.CSV"_s), "mio");
#endif
    // Files that an export has left half replaced are neither taken nor added to.
    WriteFile(out + u"/esportazione incompleta.txt"_s, "");
    QVERIFY(refusal().contains(u"non è arrivata in fondo"_s));
    QFile::remove(out + u"/fatture.CSV"_s);
    QVERIFY(HasExportedFiles(out)); // there the next one replaces what is mixed
    WriteFile(out + u"/fatture.CSV"_s, "mio");
    QVERIFY_THROWS_EXCEPTION(FileError, ImportFiles(office.project(), out, {}));
    office.rows(ArchiveFile::Companies, u"ALTER TABLE Anag ADD COLUMN via TEXT"_s);
    const QString said = ExportProject(office.project(), out, true);
    QVERIFY2(said.startsWith(u"L'esportazione di prima non era arrivata in fondo.\n"_s) &&
                 said.contains(u"\nAnag: 0 righe; colonne tralasciate: via\n"_s),
             qPrintable(said));
    QCOMPARE(ContentsOf(out).size(), 8);
    // A field that the archive lacks is told with the archive.
    office.rows(ArchiveFile::Ledger, u"ALTER TABLE Spese DROP COLUMN Descrizione"_s);
    QDir(office.csv()).removeRecursively();
    office.put(u"Spese"_s, "RelNpag;Cod;Importo\n");
    const QString lacking = office.import();
    QVERIFY2(lacking.contains(u"Campo: Descrizione"_s) && lacking.contains(u"Saldoro.mdb"_s),
             qPrintable(lacking));
    QVERIFY(ContentOf(out + u"/fatture.CSV"_s)
                .startsWith("\xEF\xBB\xBF"
                            "AziProf;Npag"));
}

void TestExchange::exportsOneMoment()
{
    const Office office;
    office.putBudget("A1;Scavi;1\n");
    office.import();
    office.rows(
        ArchiveFile::Ledger,
        u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n LIMIT 1000) "
        "INSERT INTO Fatture(Npag) SELECT i FROM n; INSERT INTO Spese(RelNpag) VALUES (1)"_s);
    // Between two tables of a database another program can't change the second.
    int tries = 0;
    Progress::setWatcher([&](const QString &state) {
        if (state != "Scrittura di Fatture"_L1)
            return;
        ++tries;
        QVERIFY_THROWS_EXCEPTION(std::runtime_error,
                                 office.rows(ArchiveFile::Ledger, u"DELETE FROM Spese"_s));
    });
    const QString said = ExportProject(office.project(), office.path(u"out"_s));
    Progress::setWatcher({});
    QCOMPARE(tries, 1);
    QVERIFY2(said.contains(u"Spese: 1 riga"_s), qPrintable(said));
}

/** A payment without a number can't be told from others, and so not be given a day. */
void TestExchange::listsPaymentsWithoutDay()
{
    const Office office;
    office.putBudget("A1;Scavi;1\n");
    office.import();
    office.rows(ArchiveFile::Ledger, u"INSERT INTO Fatture(Npag, Del) VALUES (3, NULL), "
                                     "(NULL, NULL), (1, '2024-01-31'), (2, NULL)"_s);
    QCOMPARE(PaymentsWithoutDay(ArchiveFilePath(ArchiveFile::Ledger, office.project())),
             QStringList({u"3"_s, u"2"_s}));
}

QTEST_GUILESS_MAIN(TestExchange)
#include "test_exchange.moc"
