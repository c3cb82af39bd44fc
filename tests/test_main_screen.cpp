#include "archive_probe.h"
#include "overview/availability_overview.h"
#include "overview/payment_opening_and_deletion.h"
#include "overview/payment_statement.h"
#include "overview/payments_list.h"
#include "sound_project.h"
#include "store/table_definitions.h"
#include "verify/verification.h"

#include <QTest>

#include <array>

using namespace saldoro;
using namespace Qt::StringLiterals;

/** What the main screen shows and does, without its window. */
class TestMainScreen : public QObject
{
    Q_OBJECT

private slots:
    void fillsTheOverview()
    {
        for (const auto &[budget, spese, shown, error] : QList<std::array<QString, 4>>{
                 {u"('C2','Collaudo',42000000),('A1','Scavi',123456700)"_s,
                  u"(1,'A1',20050000),(2,'A1',11),(7,'X9',NULL),(3,'A1',-50000)"_s,
                  u"A1|Scavi|12.345,67|2.000,00|10.345,67\nC2|Collaudo|4.200,00|0,00|4.200,00"_s,
                  u"none"_s},
                 // The budget counts as shown, the payments to the last decimal.
                 {u"('A1','x',10050),('A2','y',10049)"_s,
                  u"(1,'A1',49),(1,'A1',49),(1,'A2',80049)"_s,
                  u"A1|x|1,01|0,01|1,00\nA2|y|1,00|8,00|-7,00"_s, u"none"_s},
                 // Codes match in any letter case, not in part.
                 {u"('A1','x',0),('A10','y',NULL)"_s, u"(1,'a1',30000),(1,'A',50000)"_s,
                  u"A1|x|0,00|3,00|-3,00\nA10|y|0,00|0,00|0,00"_s, u"none"_s},
                 {u"('Aè','x',0),('A*','y',0)"_s, u"(1,'aÈ',30000),(1,'A*',10000),(1,'AB',1)"_s,
                  u"A*|y|0,00|1,00|-1,00\nAè|x|0,00|3,00|-3,00"_s, u"none"_s},
                 {u"('A1','x',NULL),('A2','y',15000000),('A''3','z',1)"_s, QString(),
                  u"A'3|z|0,00||\nA1|x|0||\nA2|y|1.500,00||"_s, u"none"_s},
                 {u"(NULL,'x',1)"_s, QString(), u"||||"_s,
                  u"Appalto.mdb/UltimaPerVariante/Voce///1/"_s},
                 {u"('A1','x',1),('A2',NULL,1)"_s, QString(), u"A1|x|0,00||\nA2||||"_s,
                  u"Appalto.mdb/UltimaPerVariante/Descri/A2//2/"_s},
                 {u"('A''1','x',1)"_s, u"(1,'A1',1)"_s, u"A'1|x|0,00||"_s,
                  u"Saldoro.mdb/Spese//A'1///"_s}}) {
            const TestArchive archive;
            PlantItems(archive, budget, spese);
            TextTable table;
            PrepareAvailabilityOverview(table);
            table.setRows(9); // left over from a fuller budget
            QCOMPARE(FailurePlace([&] { FillAvailabilityOverview(table, archive.values()); }),
                     error);
            QCOMPARE(BodyText(table), shown);
        }
    }

    /** The rows before it stay, in the order of numbers, and its own as far as it goes. */
    void stopsAtAnUnreadablePayment()
    {
        for (const auto &[change, place, shown] :
             {std::tuple{"Creditore=NULL", u"Saldoro.mdb/Fatture/Creditore//8//"_s, u"8||||"_s},
              {"Del=NULL", u"Saldoro.mdb/Fatture/Del//8//"_s, u"8|Verdi|||"_s},
              {"Npag=NULL", u"Saldoro.mdb/Fatture/Npag//senza numero/1/Verdi"_s, QString()}}) {
            const TestArchive archive;
            PlantPayments(archive, "('P',8,'Verdi','2019-11-05',1,0,1),"
                                   "('A',9,'Dopo','2019-11-05',1,1,1),"
                                   "('A',3,'Prima','2019-11-05',10000,1,1)");
            archive.execute(LedgerPath(archive.values()),
                            u"UPDATE Fatture SET %1 WHERE Npag = 8"_s.arg(QLatin1String(change)));
            TextTable list;
            PreparePaymentsList(list);
            QCOMPARE(
                FailurePlace([&] { FillPaymentsList(list, OpenPaymentsList(archive.values())); }),
                place);
            QCOMPARE(BodyText(list),
                     shown.isEmpty() ? u"||||"_s : u"3|Prima|05/11/2019|1,00|€\n"_s + shown);
        }
    }

    /** Of each field that a payment may lack. */
    void theCheckKnowsWhatStopsTheListAndTheDocuments()
    {
        const auto fails = [](const auto &action) { return FailurePlace(action) != u"none"; };
        const TableDef fatture = TablesOf(ArchiveFile::Ledger).first();
        for (const FieldDef &field : fatture.fields()) {
            for (int number = 1; number <= 2; ++number) {
                const SoundProject project;
                project.archive.execute(
                    project.path(u'L'),
                    u"UPDATE Fatture SET %1 = NULL WHERE Npag = %2"_s.arg(field.name).arg(number));
                ProgramValues values = project.archive.values();
                QStringList told;
                for (const Finding &finding : VerifyProject(project.folder()))
                    told += finding.problem;
                const auto isTold = [&](const QString &consequence) {
                    return !told.filter(u"manca il valore di "_s + field.name + consequence)
                                .isEmpty();
                };
                TextTable list;
                PreparePaymentsList(list);
                const bool isListed =
                    !fails([&] { FillPaymentsList(list, OpenPaymentsList(values)); });
                QCOMPARE(isTold(u": la schermata principale si ferma"_s), !isListed);
                const bool isStated = !fails([&] {
                    RecordSet payments = OpenPaymentsList(values);
                    for (; !payments.eof(); payments.moveNext())
                        ComponiTestoPagamento(payments, values);
                });
                if (isListed)
                    QCOMPARE(isTold(u": la chiusura della schermata"_s), !isStated);
            }
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

QTEST_GUILESS_MAIN(TestMainScreen)
#include "test_main_screen.moc"
