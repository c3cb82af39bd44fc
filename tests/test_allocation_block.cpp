#include "common/errors.h"
#include "invoice/allocation_block.h"

#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

/** An overview of @p items ("code;description;availability") and the grid of a form. */
struct Tables
{
    TextTable overview{5};
    TextTable grid;
    AllocationBlock block{overview, grid};

    explicit Tables(const QStringList &items)
    {
        block.prepareGrid();
        for (const QString &item : items) {
            const int row = overview.rows();
            overview.setRows(row + 1);
            overview.setText(row, 0, item.section(u';', 0, 0));
            overview.setText(row, 1, item.section(u';', 1, 1));
            overview.setText(row, 4, item.section(u';', 2, 2));
        }
    }

    void allocate(int line, const QString &typed)
    {
        block.openPickList();
        block.pick(line);
        block.editorEntered();
        block.editorConfirmed(typed);
    }

    /** Body rows, then the current cell and the total. */
    QString state() const
    {
        QString text;
        for (int row = 1; row < grid.rows(); ++row)
            text += grid.text(row, 0) + u'|' + grid.text(row, 1) + u'|' + grid.text(row, 2) + u'\n';
        return text + u"@%1,%2 = "_s.arg(grid.row()).arg(grid.column()) + block.totalText();
    }
};

const QStringList Items{u"B1;Scavi;1.500,00"_s, u" b1 ;Rinterri;-20,00"_s,
                        u"Q7654321;Oneri;0,00"_s};

} // namespace

class TestAllocationBlock : public QObject
{
    Q_OBJECT

private slots:
    void pickListOffersWhatIsNotInTheGrid();
    void pickListHas201Lines();
};

void TestAllocationBlock::pickListOffersWhatIsNotInTheGrid()
{
    Tables tables(Items);
    QCOMPARE(tables.block.openPickList(),
             (QStringList{u"B1   Scavi L.1.500,00"_s, u"b1   Rinterri L.-20,00"_s,
                          u"Q7654321Oneri L.0,00"_s}));
    QCOMPARE(tables.state(), u"||\n@1,0 = 0,00"_s);
    tables.block.pick(0);
    QCOMPARE(tables.state(), u"B1|Scavi|\n@1,2 = 0,00"_s);
    QVERIFY(tables.block.isCurrentCellEditable());
    tables.block.leavePickList(); // hiding the list takes its focus: the picked row stays

    // Another letter case is another item; a code cut to five characters is offered again.
    tables.allocate(1, u"12,5"_s);
    QVERIFY(tables.block.CekCodCaricato(u"Q7654321"_s));
    QVERIFY(!tables.block.CekCodCaricato(u" B1"_s));
    QCOMPARE(tables.block.openPickList(),
             (QStringList{u"b1   Rinterri L.-20,00"_s, u"Q7654321Oneri L.0,00"_s}));
    QCOMPARE(tables.state(), u"B1|Scavi|\nQ7654|Oneri|12,00\n||\n@3,0 = 12,00"_s);
    QVERIFY_THROWS_EXCEPTION(BoundsError, tables.block.pick(2));
}

void TestAllocationBlock::pickListHas201Lines()
{
    QStringList items;
    for (int i = 0; i < 202; ++i)
        items.append(u"V%1;Voce;1,00"_s.arg(i));
    Tables tables(items);
    QVERIFY_THROWS_EXCEPTION(BoundsError, tables.block.openPickList());
    QCOMPARE(tables.state(), u"@0,0 = 0,00"_s);

    tables.overview.setRows(202); // header and 201 items
    QCOMPARE(tables.block.openPickList().size(), 201);
    tables.block.pick(200);
    QCOMPARE(tables.grid.text(1, 0), u"V200"_s);
}

QTEST_GUILESS_MAIN(TestAllocationBlock)
#include "test_allocation_block.moc"
