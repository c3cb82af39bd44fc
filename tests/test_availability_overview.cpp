#include "overview/availability_overview.h"
#include "overview_probe.h"

#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

class TestAvailabilityOverview : public QObject
{
    Q_OBJECT

private slots:
    void fills_data()
    {
        QTest::addColumn<QString>("budget");
        QTest::addColumn<QString>("spese");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("error");
        const auto add = [](const char *name, const char *budget, const char *spese,
                            const char *shown, const char *error = "none") {
            QTest::newRow(name) << QString::fromUtf8(budget) << QString::fromUtf8(spese)
                                << QString::fromUtf8(shown) << QString::fromUtf8(error);
        };
        add("sums, in the order of codes, for the budget's codes only",
            "('C2','Collaudo',42000000),('A1','Scavi',123456700)",
            "(1,'A1',20050000),(2,'A1',11),(7,'X9',NULL),(3,'A1',-50000)",
            "A1|Scavi|12.345,67|2.000,00|10.345,67\nC2|Collaudo|4.200,00|0,00|4.200,00");
        add("the budget counts as shown, the payments to the last decimal",
            "('A1','x',10050),('A2','y',10049)", "(1,'A1',49),(1,'A1',49),(1,'A2',80049)",
            "A1|x|1,01|0,01|1,00\nA2|y|1,00|8,00|-7,00");
        add("codes match in any letter case, not in part; a null budget is 0",
            "('A1','x',0),('A10','y',NULL)", "(1,'a1',30000),(1,'A',50000)",
            "A1|x|0,00|3,00|-3,00\nA10|y|0,00|0,00|0,00");
        add("no allocations at all", "('A1','x',NULL),('A2','y',15000000),('A''3','z',1)", "",
            "A'3|z|0,00||\nA1|x|0||\nA2|y|1.500,00||");
        add("no budget", "", "(1,'A1',50000)", "");
        add("null code", "(NULL,'x',1)", "", "||||", "Appalto.mdb/UltimaPerVariante/Voce///1/");
        add("null description", "('A1','x',1),('A2',NULL,1)", "", "A1|x|0,00||\nA2||||",
            "Appalto.mdb/UltimaPerVariante/Descri/A2//2/");
        add("null allocation", "('A1','x',1),('A2','y',1)", "(4,'A2',10),(18,'A2',NULL)",
            "A1|x|0,00|0,00|0,00\nA2|y|0,00||", "Saldoro.mdb/Spese/Importo/A2/18//");
        add("apostrophe", "('A''1','x',1)", "(1,'A1',1)", "A'1|x|0,00||",
            "Saldoro.mdb/Spese//A'1///");
        add("sum beyond the range", "('A1','x',1)", "(1,'A1',9223372036854775807),(25,'A1',1)",
            "A1|x|0,00||", "///A1/25//");
    }

    void fills()
    {
        QFETCH(const QString, budget);
        QFETCH(const QString, spese);
        const TestArchive archive;
        PlantItems(archive, budget, spese);
        TextTable table;
        PrepareAvailabilityOverview(table);
        table.setRows(9); // left over from a fuller budget
        QTEST(FailurePlace([&] { FillAvailabilityOverview(table, archive.values()); }), "error");
        QTEST(BodyText(table), "shown");
        QCOMPARE(table.text(0, OverviewColumn::Disponibilita), u"Disponibilità"_s);
    }
};

QTEST_GUILESS_MAIN(TestAvailabilityOverview)
#include "test_availability_overview.moc"
