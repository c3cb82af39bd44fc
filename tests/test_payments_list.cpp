#include "overview/payment_deletion.h"
#include "overview/payment_opening.h"
#include "overview/payments_list.h"
#include "overview_probe.h"

#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

class TestPaymentsList : public QObject
{
    Q_OBJECT

private slots:
    void listsGrossAmounts()
    {
        const TestArchive archive;
        PlantPayments(archive, "('A',12,'Edil Società','2019-11-05',12345600,2716032,9990000),"
                               "('P',2,'Ing. D''Amico','1998-01-31',-50050,0,15000000),"
                               "('p',3,'Geom. Però','',10000,2200,5000),"
                               "(NULL,31,'Ignoto','2004-02-29',0,49,70000),"
                               "('P',5,'Arch. Neri','2020-12-01',110000,24200,NULL)");
        TextTable list;
        QCOMPARE(fill(archive, list), u"none"_s);
        QCOMPARE(BodyText(list), u"2|Ing. D'Amico|31/01/1998|1.495,00|€\n3|Geom. Però||1,22|€\n"
                                 "5|Arch. Neri|01/12/2020|13,42|€\n"
                                 "12|Edil Società|05/11/2019|1.506,16|€\n"
                                 "31|Ignoto|29/02/2004|0,00|€"_s);
        QCOMPARE(list.row(), 5);
    }

    /** The rows before it stay, and its own as far as it goes. */
    void stopsAtAnUnreadablePayment()
    {
        for (const auto &[change, place, shown] :
             {std::tuple{"Creditore=NULL", u"Saldoro.mdb/Fatture/Creditore//8//"_s, u"8||||"_s},
              {"Del=NULL", u"Saldoro.mdb/Fatture/Del//8//"_s, u"8|Verdi|||"_s},
              {"Del='ieri'", u"Saldoro.mdb/Fatture/Del//8//"_s, u"8|Verdi|||"_s},
              {"Importo=NULL", u"Saldoro.mdb/Fatture/Importo//8//"_s, u"8|Verdi|05/11/2019||"_s},
              {"ImportoIVA=NULL", u"Saldoro.mdb/Fatture/ImportoIVA//8//"_s,
               u"8|Verdi|05/11/2019||"_s},
              {"Importo=9223372036854775807", u"////8//"_s, u"8|Verdi|05/11/2019||"_s},
              {"Npag=NULL", u"Saldoro.mdb/Fatture/Npag//senza numero/1/Verdi"_s, QString()}}) {
            const TestArchive archive;
            PlantPayments(archive, "('P',8,'Verdi','2019-11-05',1,0,1),"
                                   "('A',9,'Dopo','2019-11-05',1,1,1),"
                                   "('A',3,'Prima','2019-11-05',10000,1,1)");
            archive.execute(LedgerPath(archive.values()),
                            u"UPDATE Fatture SET %1 WHERE Npag = 8"_s.arg(QLatin1String(change)));
            TextTable list;
            QCOMPARE(fill(archive, list), place);
            QCOMPARE(BodyText(list),
                     shown.isEmpty() ? u"||||"_s : u"3|Prima|05/11/2019|1,00|€\n"_s + shown);
        }
    }

    /** For row 1, which is stale, the first payment stored decides; kinds are compared exactly. */
    void decidesTheKindOfForm()
    {
        const TestArchive archive;
        archive.execute(LedgerPath(archive.values()),
                        u"INSERT INTO Fatture (AziProf, Npag) VALUES ('P',2),('A',4),('X',3),"
                        "('a',5),(NULL,6)"_s);
        ProgramValues values = archive.values();
        const QStringList kinds{u"P"_s, u"P"_s, {},
                                u"A"_s, {},     u"Saldoro.mdb/Fatture/AziProf//6//"_s};
        for (int row = 1; row <= kinds.size(); ++row) {
            QString decided;
            const QString failure = FailurePlace([&] {
                if (const auto kind = OpenPayment(values, row))
                    decided = KindCode(*kind);
            });
            QCOMPARE(failure == u"none" ? decided : failure, kinds.at(row - 1));
            QCOMPARE(values.CurrentPaymentNumber, row);
        }
    }

    void deletesAllOfAPayment()
    {
        const QString failOn =
            u"CREATE TRIGGER t BEFORE DELETE ON %1 BEGIN SELECT RAISE(FAIL,'no'); END"_s;
        for (const auto &[row, obstacle, left] :
             {std::tuple{2, QString(), u"1 12 22|1 22 3|M0097_12 M0097_22"_s}, // duplicates too
              {12, QString(), u"1 2 22 2|2 1 2 22 3|M0097_2 M0097_22"_s},
              {3, QString(), u"1 2 12 22 2|2 1 2 22|M0097_2 M0097_12 M0097_22"_s}, // stale
              {2, failOn.arg(u"Fatture"), u"1 2 12 22 2|2 1 2 22 3|M0097_12 M0097_22"_s},
              {2, failOn.arg(u"Spese"), u"1 12 22|2 1 2 22 3|M0097_12 M0097_22"_s}}) {
            TestArchive archive;
            archive.build().addStandardCodes();
            archive.execute(LedgerPath(archive.values()),
                            u"INSERT INTO Fatture (Npag) VALUES (1),(2),(12),(22),(2); INSERT INTO"
                            " Spese (RelNpag) VALUES (2),(1),(2),(22),(3); "_s +
                                obstacle);
            archive.execute(ContractPath(archive.values()),
                            u"INSERT INTO SchedaProgetto (Voce) VALUES ('M0097_2'),('M0097_12'),"
                            "('M0097_22')"_s);
            const QString failure =
                FailurePlace([&, row = row] { DeletePayment(archive.values(), row); });
            QCOMPARE(failure.endsWith(u"//2//"), !obstacle.isEmpty());
            const auto joined = u"SELECT group_concat(%1, ' ') FROM %2"_s;
            QCOMPARE(archive.ledgerRows(joined.arg(u"Npag"_s, u"Fatture"_s)) + u'|' +
                         archive.ledgerRows(joined.arg(u"RelNpag"_s, u"Spese"_s)) + u'|' +
                         archive.contractRows(joined.arg(u"Voce"_s, u"SchedaProgetto"_s)),
                     left);
        }
    }

private:
    static QString fill(const TestArchive &archive, TextTable &list)
    {
        PreparePaymentsList(list);
        return FailurePlace([&] { PaymentsReader(archive.values()).fill(list); });
    }
};

QTEST_GUILESS_MAIN(TestPaymentsList)
#include "test_payments_list.moc"
