#include "held_form.h"
#include "invoice/contractor_and_principals.h"
#include "invoice/creditor_search.h"
#include "overview/availability_overview.h"
#include "overview/overview_document.h"
#include "overview/payments_list.h"
#include "overview_probe.h"

#include <QElapsedTimer>
#include <QTest>

#include <algorithm>
#include <memory>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

/** What each part of the program makes of a project: nothing for what works, otherwise the place
 *  that the error names. */
QString outcome(const TestArchive &archive)
{
    ProgramValues values = archive.values();
    TextTable list;
    TextTable overview;
    QStringList places; // each after the parts that name it, in the order of the first
    const auto run = [&places](const QString &part, const auto &action) {
        const QString place = u' ' + FailurePlace(action);
        const auto same = std::find_if(places.begin(), places.end(),
                                       [&](const QString &line) { return line.endsWith(place); });
        if (place != " none"_L1 && same != places.end())
            same->insert(same->size() - place.size(), u' ' + part);
        else if (place != " none"_L1)
            places += part + place;
    };
    PreparePaymentsList(list);
    PrepareAvailabilityOverview(overview);
    run(u"list"_s, [&] { PaymentsReader(values).fill(list); });
    run(u"overview"_s, [&] { FillAvailabilityOverview(overview, values); });
    for (const CreditorKind kind : {CreditorKind::Company, CreditorKind::Professional}) {
        HeldForm form(kind);
        run(u"load"_s, [&] {
            form.load(values, 1);
            form.block.RecalcAllocationTotal();
        });
        if (places.isEmpty() && kind == CreditorKind::Company)
            run(u"save"_s, [&] { form.save(values, 1); });
    }
    run(u"lists"_s, [&] {
        LoadContractor(values);
        ProfessionalCreditors(values);
        ParticipatingCompanies(values, u"Ed"_s);
    });
    run(u"close"_s, [&] { WriteProjectDocuments(values, overview); });
    return places.join(u'\n');
}

/** Two items, a payment of either kind and the codes that the program asks for. */
TestArchive soundArchive()
{
    TestArchive archive;
    archive.build().addStandardCodes();
    archive.execute(CodesPath(archive.values()), u"UPDATE Funzioni SET CodExt = 'X' || CodInt"_s);
    PlantItems(archive, u"('A1','Scavi',90000000),('B2','Ponti',NULL)"_s,
               u"(1,'A1',1220000),(2,'B2',615000)"_s);
    PlantPayments(archive, "('A',1,'Edil Valle','2020-01-31',1000000,220000,NULL),"
                           "('P',2,'Ing. Po','2020-02-01',500000,110000,5000)");
    archive.execute(LedgerPath(archive.values()),
                    u"UPDATE Fatture SET ImportoPrest=1, Contributo=1, CassaPrev=1, ImportoRA=1"_s);
    return archive;
}

} // namespace

class TestHostileData : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void endsInAClearError_data();
    void endsInAClearError();
    void figuresStayRight_data();
    void figuresStayRight();
    void aHundredThousandRowsStayQuick();

private:
    void plant(const QString &file, const QString &sql) const;

    std::unique_ptr<TestArchive> m_archive;
};

void TestHostileData::init()
{
    static const TestArchive sound = soundArchive();
    m_archive = std::make_unique<TestArchive>(sound);
}

void TestHostileData::plant(const QString &file, const QString &sql) const
{
    m_archive->execute(PathOf(*m_archive, file.front()),
                       u"PRAGMA ignore_check_constraints=1;"_s + sql);
}

void TestHostileData::endsInAClearError_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("places");
    const auto add = [](const char *file, const char *sql, const char *places) {
        QTest::newRow(sql) << QString::fromUtf8(file) << QString::fromUtf8(sql)
                           << QString::fromUtf8(places);
    };
    add("L", "DELETE FROM Fatture WHERE Npag < 0", "");
    add("L", "INSERT INTO Spese DEFAULT VALUES", "");
    add("L", "UPDATE Fatture SET Importo = 'dieci' WHERE Npag = 1",
        "list load load close Saldoro.mdb/Fatture/Importo//1//");
    add("L", "UPDATE Fatture SET Importo = X'0102' WHERE Npag = 1",
        "list load load close Saldoro.mdb/Fatture/Importo//1//");
    add("L", "UPDATE Fatture SET Importo = 1e300 WHERE Npag = 1",
        "list load load close Saldoro.mdb/Fatture/Importo//1//");
    add("L", "UPDATE Fatture SET Npag = 'uno' WHERE Npag = 1",
        "list Saldoro.mdb/Fatture/Npag//uno//");
    add("L", "UPDATE Fatture SET Npag = 4294967297 WHERE Npag = 1",
        "list Saldoro.mdb/Fatture/Npag//4294967297//");
    add("L", "UPDATE Fatture SET Aliquota = 'x', Del = 20200131 WHERE Npag = 1",
        "list close Saldoro.mdb/Fatture/Del//1//\n"
        "load load Saldoro.mdb/Fatture/Aliquota//1//");
    add("L", "UPDATE Fatture SET Creditore = '' WHERE Npag = 1", "");
    add("L", "UPDATE Fatture SET Memo = 'a' || char(0) || 'b', Creditore = CAST(X'45E8' AS TEXT)",
        "");
    add("L", "UPDATE Fatture SET Importo = 9223372036854775807 WHERE Npag = 1",
        "list load load close ////1//");
    add("L", "UPDATE Fatture SET Importo = -9223372036854775807 - 1, ImportoIVA = 0 WHERE Npag = 1",
        "load ////1//");
    add("L", "UPDATE Fatture SET Importo = 9223372036854775807, ImportoIVA = 0",
        "list close ////2//");
    add("L", "UPDATE Spese SET Importo = 9223372036854775807, Cod = 'A1', RelNpag = 1",
        "overview ///A1/1//\n"
        "load load ///A1//1/");
    add("L", "UPDATE Spese SET Importo = 'x' WHERE Cod = 'A1'",
        "overview load load Saldoro.mdb/Spese/Importo/A1/1//");
    add("L", "UPDATE Spese SET Cod = 'A''1*' WHERE Cod = 'A1'", "");
    add("L", "DROP TABLE Spese",
        "list overview Saldoro.mdb/Spese/////\n"
        "load load Saldoro.mdb/Spese///1//");
    add("L", "ALTER TABLE Fatture DROP COLUMN Memo",
        "load load close Saldoro.mdb/Fatture/Memo//1//");
    add("C", "UPDATE UltimaPerVariante SET Importo = 'x' WHERE Voce = 'A1'",
        "overview Appalto.mdb/UltimaPerVariante/Importo/A1//1/");
    add("C", "UPDATE UltimaPerVariante SET Importo = -9223372036854775807 - 1 WHERE Voce = 'A1'",
        "overview ///A1///");
    add("C", "UPDATE UltimaPerVariante SET Voce = 7 WHERE Voce = 'A1'", "");
    add("C", "DROP TABLE UltimaPerVariante; CREATE VIEW UltimaPerVariante AS SELECT * FROM Manca",
        "overview Appalto.mdb/Manca/////");
    add("C", "DROP TABLE UltimaPerVariante", "overview Appalto.mdb/UltimaPerVariante/////");
    add("C", "INSERT INTO SchedaProgetto (Voce, Link) VALUES ('XDA1', 'x')",
        "lists Appalto.mdb/SchedaProgetto/Link/XDA1///");
    add("C", "INSERT INTO SchedaProgetto (Voce, Stringa) VALUES ('XP97_1', NULL), (NULL, 'x')", "");
    add("K", "UPDATE Funzioni SET CodExt = 'X''97' WHERE CodInt = 'P97'",
        "load load Appalto.mdb/SchedaProgetto///1//");
    add("K", "UPDATE Funzioni SET CodExt = 'X[97' WHERE CodInt = 'P97'",
        "load load Appalto.mdb/SchedaProgetto/Voce//1//");
    add("K", "UPDATE Funzioni SET CodExt = NULL WHERE CodInt = 'P97'",
        "load load chiavi.mdb/Funzioni/CodExt//1//");
    add("K", "UPDATE Funzioni SET CodExt = 'a/b' WHERE CodInt = 'P99'", "close b.rtf//////");
    add("A",
        "INSERT INTO Anag VALUES (NULL, NULL, NULL), (1, 'Ed', 2); INSERT INTO Partecip VALUES "
        "('x', 1), (NULL, NULL)",
        "");
}

void TestHostileData::endsInAClearError()
{
    QFETCH(const QString, file);
    QFETCH(const QString, sql);
    plant(file, sql);
    QTEST(outcome(*m_archive), "places");
}

void TestHostileData::figuresStayRight_data()
{
    QTest::addColumn<QString>("ledger");
    QTest::addColumn<QString>("contract");
    QTest::addColumn<QString>("shown");
    const auto add = [](const char *name, const char *ledger, const char *contract,
                        const char *shown) {
        QTest::newRow(name) << QString::fromUtf8(ledger) << QString::fromUtf8(contract)
                            << QString::fromUtf8(shown);
    };
    add("codes of the old code page stay apart",
        "UPDATE Spese SET Cod = CAST(X'41E8' AS TEXT) WHERE Cod = 'A1';"
        "UPDATE Spese SET Cod = CAST(X'41E9' AS TEXT) WHERE Cod = 'B2'",
        "UPDATE UltimaPerVariante SET Voce = CAST(X'41E8' AS TEXT) WHERE Voce = 'A1';"
        "UPDATE UltimaPerVariante SET Voce = CAST(X'41E9' AS TEXT) WHERE Voce = 'B2'",
        "Aè|Scavi|9.000,00|122,00|8.878,00\nAé|Ponti|0,00|61,50|-61,50\n122,00 61,50 183,50");
    add("the old code page and UTF-8 meet", "UPDATE Spese SET Cod = CAST(X'41E8' AS TEXT)",
        "UPDATE UltimaPerVariante SET Voce = 'Aè' WHERE Voce = 'A1'",
        "Aè|Scavi|9.000,00|183,50|8.816,50\nB2|Ponti|0,00|0,00|0,00\n122,00 61,50 183,50");
    add("null characters count", "UPDATE Spese SET Cod = 'A' || char(0) || '1' WHERE Cod = 'A1'",
        "UPDATE UltimaPerVariante SET Voce = 'A' WHERE Voce = 'A1'",
        "A|Scavi|9.000,00|0,00|9.000,00\nB2|Ponti|0,00|61,50|-61,50\n122,00 61,50 183,50");
    add("wildcards are plain characters", "UPDATE Spese SET Cod = 'A*' WHERE Cod = 'B2'",
        "UPDATE UltimaPerVariante SET Voce = 'A*' WHERE Voce = 'B2'",
        "A*|Ponti|0,00|61,50|-61,50\nA1|Scavi|9.000,00|122,00|8.878,00\n122,00 61,50 183,50");
    add("a stored query with a sum", "UPDATE Fatture SET Npag = 1 WHERE Npag = 2",
        "ALTER TABLE UltimaPerVariante RENAME TO V; INSERT INTO V VALUES ('A1', 'Scavi', 1);"
        "CREATE VIEW UltimaPerVariante AS SELECT Voce, min(Descri) AS Descri, sum(Importo) AS "
        "Importo FROM V GROUP BY Voce",
        "A1|Scavi|9.000,00|122,00|8.878,00\nB2|Ponti|0,00|61,50|-61,50\n122,00 61,50 183,50");
    add("amounts below zero and at the bounds",
        "UPDATE Fatture SET Importo = -9223372036854775807 - 1, ImportoIVA = 10000 WHERE Npag = 1;"
        "UPDATE Fatture SET Importo = 9223372036854775807, ImportoIVA = -5000 WHERE Npag = 2;"
        "UPDATE Spese SET Importo = -10051",
        "SELECT 1",
        "A1|Scavi|9.000,00|-1,01|9.001,01\nB2|Ponti|0,00|-1,01|1,01\n"
        "-922.337.203.685.476,58 922.337.203.685.477,58 1,00");
}

void TestHostileData::figuresStayRight()
{
    QFETCH(const QString, ledger);
    QFETCH(const QString, contract);
    plant(u"L"_s, ledger);
    plant(u"C"_s, contract);
    ProgramValues values = m_archive->values();
    TextTable overview;
    PrepareAvailabilityOverview(overview);
    FillAvailabilityOverview(overview, values);
    WriteProjectDocuments(values, overview);
    QString totals = m_archive->contractRows(
        u"SELECT substr(Stringa, 3) FROM SchedaProgetto WHERE Voce LIKE 'XQS1%' ORDER BY Voce"_s);
    QTEST(BodyText(overview) + u'\n' + totals.replace(u'\n', u' '), "shown");
}

void TestHostileData::aHundredThousandRowsStayQuick()
{
    constexpr int Rows = 100000;
    const QString numbers = u"WITH RECURSIVE n(i) AS (SELECT 3 UNION ALL SELECT i + 1 FROM n "
                            "WHERE i < %1) INSERT INTO "_s.arg(Rows);
    plant(u"L"_s, numbers + u"Fatture (AziProf, Npag, Creditore, Del, Importo, ImportoIVA) "
                            "SELECT 'A', i, 'x', '2020-01-01', 1, 1 FROM n"_s);
    plant(u"L"_s, numbers + u"Spese SELECT i, 'C' || (i % 150), 'x', 10000 FROM n"_s);
    plant(u"C"_s,
          numbers.arg(150) + u"UltimaPerVariante SELECT 'C' || i, 'x', 1 FROM n WHERE i < 150"_s);
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(outcome(*m_archive), u"close //////"_s); // more than the documents count
    QVERIFY2(clock.elapsed() < 60000, qPrintable(QString::number(clock.elapsed())));
}

QTEST_MAIN(TestHostileData)
#include "test_hostile_data.moc"
