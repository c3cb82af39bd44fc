#include "common/errors.h"
#include "invoice/allocation_block.h"

#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

/** The pick list where a form would need hundreds of items or odd codes. */
class TestAllocationBlock : public QObject
{
    Q_OBJECT

private slots:
    void codesThatLookAlike();
    void pickListHas201Lines();

private:
    /** An overview with items of these codes. */
    static void fill(TextTable &overview, const QStringList &codes)
    {
        overview.setColumns(5);
        overview.setRows(1 + static_cast<int>(codes.size()));
        for (int i = 0; i < codes.size(); ++i) {
            const QStringList cells{codes[i], u"voce"_s, QString(), QString(), u"-1,00"_s};
            for (int column = 0; column < cells.size(); ++column)
                overview.setText(i + 1, column, cells[column]);
        }
    }
};

void TestAllocationBlock::codesThatLookAlike()
{
    TextTable overview;
    fill(overview, {u"B1"_s, u" b1 "_s, u"Q7654321"_s});
    TextTable grid;
    AllocationBlock block(overview, grid);
    block.prepareGrid();
    const QStringList all{u"B1   voce L.-1,00"_s, u"b1   voce L.-1,00"_s,
                          u"Q7654321voce L.-1,00"_s};
    QCOMPARE(block.openPickList(), all);
    block.pick(0);
    // Another letter case is another item; a code cut to five characters is offered again.
    QCOMPARE(block.openPickList(), all.mid(1));
    block.pick(1);
    QCOMPARE(grid.text(2, 0), u"Q7654"_s);
    QCOMPARE(block.openPickList(), all.mid(1));
    QVERIFY(!block.CekCodCaricato(u" B1"_s));
    QVERIFY_THROWS_EXCEPTION(BoundsError, block.pick(2));
}

void TestAllocationBlock::pickListHas201Lines()
{
    QStringList codes;
    for (int i = 0; i < 202; ++i)
        codes.append(u"V%1"_s.arg(i));
    TextTable overview;
    fill(overview, codes);
    TextTable grid;
    AllocationBlock block(overview, grid);
    block.prepareGrid();
    QVERIFY_THROWS_EXCEPTION(BoundsError, block.openPickList());
    QCOMPARE(grid.rows(), 1);
    overview.setRows(202); // header and 201 items
    QCOMPARE(block.openPickList().size(), 201);
    block.pick(200);
    QCOMPARE(grid.text(1, 0), u"V200"_s);
}

QTEST_GUILESS_MAIN(TestAllocationBlock)
#include "test_allocation_block.moc"
