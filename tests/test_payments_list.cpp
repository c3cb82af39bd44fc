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
    /** The rows before it stay, in the order of numbers, and its own as far as it goes. */
    void stopsAtAnUnreadablePayment()
    {
        for (const auto &[change, place, shown] :
             {std::tuple{"Creditore=NULL", u"Saldoro.mdb/Fatture/Creditore//8//"_s, u"8||||"_s},
              {"Del=NULL", u"Saldoro.mdb/Fatture/Del//8//"_s, u"8|Verdi|||"_s},
              {"Importo=NULL", u"Saldoro.mdb/Fatture/Importo//8//"_s, u"8|Verdi|05/11/2019||"_s},
              {"Npag=NULL", u"Saldoro.mdb/Fatture/Npag//senza numero/1/Verdi"_s, QString()}}) {
            const TestArchive archive;
            PlantPayments(archive, "('P',8,'Verdi','2019-11-05',1,0,1),"
                                   "('A',9,'Dopo','2019-11-05',1,1,1),"
                                   "('A',3,'Prima','2019-11-05',10000,1,1)");
            archive.execute(LedgerPath(archive.values()),
                            u"UPDATE Fatture SET %1 WHERE Npag = 8"_s.arg(QLatin1String(change)));
            TextTable list;
            PreparePaymentsList(list);
            QCOMPARE(FailurePlace([&] { FillPaymentsList(list, archive.values()); }), place);
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

    void aFailedDeletionNamesThePayment()
    {
        const TestArchive archive;
        archive.execute(LedgerPath(archive.values()), u"DROP TABLE Spese"_s);
        QCOMPARE(FailurePlace([&] { DeletePayment(archive.values(), 2); }),
                 u"Saldoro.mdb/Spese///2//"_s);
    }
};

QTEST_GUILESS_MAIN(TestPaymentsList)
#include "test_payments_list.moc"
