#include "overview/availability_overview.h"
#include "overview_probe.h"

#include <QTest>

#include <array>

using namespace saldoro;
using namespace Qt::StringLiterals;

class TestAvailabilityOverview : public QObject
{
    Q_OBJECT

private slots:
    void fills()
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
};

QTEST_GUILESS_MAIN(TestAvailabilityOverview)
#include "test_availability_overview.moc"
