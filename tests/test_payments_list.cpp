#include "overview/payment_deletion.h"
#include "overview/payment_opening.h"
#include "overview/payments_list.h"
#include "overview_probe.h"

#include <QTest>

#include <tuple>

using namespace saldoro;
using namespace Qt::StringLiterals;

class TestPaymentsList : public QObject
{
    Q_OBJECT

private slots:
    void listsGrossAmounts();
    void stopsAtAnUnreadablePayment();
    void decidesTheKindOfForm();
    void deletesAllOfAPayment_data();
    void deletesAllOfAPayment();
};

void TestPaymentsList::listsGrossAmounts()
{
    const TestArchive archive;
    PlantPayments(archive, "('A',12,'Edil Società','2019-11-05',12345600,2716032,9990000),"
                           "('P',2,'Ing. D''Amico','1998-01-31',-50050,0,15000000),"
                           "('p',3,'Geom. Però','',10000,2200,5000),"
                           "(NULL,31,'Ignoto','2004-02-29',0,49,70000),"
                           "('P',5,'Arch. Neri','2020-12-01',110000,24200,NULL)");
    TextTable list;
    PreparePaymentsList(list);
    PaymentsReader(archive.values()).fill(list);
    QCOMPARE(BodyText(list), u"2|Ing. D'Amico|31/01/1998|1.495,00|€\n"
                             "3|Geom. Però||1,22|€\n"
                             "5|Arch. Neri|01/12/2020|13,42|€\n"
                             "12|Edil Società|05/11/2019|1.506,16|€\n"
                             "31|Ignoto|29/02/2004|0,00|€"_s);
    QCOMPARE(list.row(), 5);
}

void TestPaymentsList::stopsAtAnUnreadablePayment()
{
    const QString before = u"3|Prima|05/11/2019|1,00|€\n"_s;
    for (const auto &[row, place, shown] :
         {std::tuple{"('A',8,NULL,'2019-11-05',1,1,1)", u"Saldoro.mdb/Fatture/Creditore//8//"_s,
                     before + u"8||||"_s},
          {"('A',8,'Verdi',NULL,1,1,1)", u"Saldoro.mdb/Fatture/Del//8//"_s,
           before + u"8|Verdi|||"_s},
          {"('A',8,'Verdi','ieri',1,1,1)", u"Saldoro.mdb/Fatture/Del//8//"_s,
           before + u"8|Verdi|||"_s},
          {"('P',8,'Verdi','2019-11-05',NULL,1,1)", u"Saldoro.mdb/Fatture/Importo//8//"_s,
           before + u"8|Verdi|05/11/2019||"_s},
          {"('P',8,'Verdi','2019-11-05',1,NULL,1)", u"Saldoro.mdb/Fatture/ImportoIVA//8//"_s,
           before + u"8|Verdi|05/11/2019||"_s},
          {"('P',8,'Verdi','2019-11-05',9223372036854775807,0,1)", u"////8//"_s,
           before + u"8|Verdi|05/11/2019||"_s},
          {"('A',NULL,'Verdi','2019-11-05',1,1,1)",
           u"Saldoro.mdb/Fatture/Npag//senza numero/1/Verdi"_s, u"||||"_s}}) {
        const TestArchive archive;
        PlantPayments(archive,
                      (QByteArray(row) + ",('A',9,'Dopo','2019-11-05',1,1,1)").constData());
        PlantPayments(archive, "('A',3,'Prima','2019-11-05',10000,1,1)");
        TextTable list;
        PreparePaymentsList(list);
        QCOMPARE(FailurePlace([&] { PaymentsReader(archive.values()).fill(list); }), place);
        QCOMPARE(BodyText(list), shown);
    }
}

void TestPaymentsList::decidesTheKindOfForm()
{
    const TestArchive archive;
    archive.execute(LedgerPath(archive.values()),
                    u"INSERT INTO Fatture (AziProf, Npag) VALUES ('P',2),('A',4),('X',3),('a',5),"
                    "(NULL,6)"_s);
    ProgramValues values = archive.values();
    // For row 1, which is stale, the first payment stored decides; kinds are compared exactly.
    const QStringList kinds{u"P"_s, u"P"_s, {}, u"A"_s, {}, u"Saldoro.mdb/Fatture/AziProf//6//"_s};
    for (int row = 1; row <= kinds.size(); ++row) {
        QString decided;
        const QString failure = FailurePlace([&] {
            if (const auto kind = OpenPayment(values, row))
                decided = *kind == CreditorKind::Company ? u"A"_s : u"P"_s;
        });
        QCOMPARE(failure == u"none" ? decided : failure, kinds.at(row - 1));
        QCOMPARE(values.CurrentPaymentNumber, row);
    }
}

void TestPaymentsList::deletesAllOfAPayment_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("obstacle");
    QTest::addColumn<QString>("left");
    const auto failOn = [](const char *table) {
        return u"CREATE TRIGGER t BEFORE DELETE ON %1 BEGIN SELECT RAISE(FAIL,'no'); END"_s.arg(
            QLatin1String(table));
    };
    QTest::newRow("duplicates too") << 2 << QString() << u"1 12 22|1 22 3|M0097_12 M0097_22"_s;
    QTest::newRow("one, without anything else")
        << 12 << QString() << u"1 2 22 2|2 1 2 22 3|M0097_2 M0097_22"_s;
    QTest::newRow("stale row: only what bears its number")
        << 3 << QString() << u"1 2 12 22 2|2 1 2 22|M0097_2 M0097_12 M0097_22"_s;
    QTest::newRow("note first") << 2 << failOn("Fatture")
                                << u"1 2 12 22 2|2 1 2 22 3|M0097_12 M0097_22"_s;
    QTest::newRow("allocations last")
        << 2 << failOn("Spese") << u"1 12 22|2 1 2 22 3|M0097_12 M0097_22"_s;
}

void TestPaymentsList::deletesAllOfAPayment()
{
    QFETCH(const int, row);
    QFETCH(const QString, obstacle);
    TestArchive archive;
    archive.build().addStandardCodes();
    archive.execute(LedgerPath(archive.values()),
                    u"INSERT INTO Fatture (Npag) VALUES (1),(2),(12),(22),(2); "
                    "INSERT INTO Spese (RelNpag) VALUES (2),(1),(2),(22),(3); "_s +
                        obstacle);
    archive.execute(ContractPath(archive.values()), u"INSERT INTO SchedaProgetto (Voce) VALUES "
                                                    "('M0097_2'),('M0097_12'),('M0097_22')"_s);
    const QString failure = FailurePlace([&] { DeletePayment(archive.values(), row); });
    QCOMPARE(failure.endsWith(u"//2//"), !obstacle.isEmpty());
    const auto joined = u"SELECT group_concat(%1, ' ') FROM %2"_s;
    const QString left = archive.ledgerRows(joined.arg(u"Npag"_s, u"Fatture"_s)) + u'|' +
                         archive.ledgerRows(joined.arg(u"RelNpag"_s, u"Spese"_s)) + u'|' +
                         archive.contractRows(joined.arg(u"Voce"_s, u"SchedaProgetto"_s));
    QTEST(left, "left");
}

QTEST_GUILESS_MAIN(TestPaymentsList)
#include "test_payments_list.moc"
