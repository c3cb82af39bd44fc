#include "common/errors.h"
#include "controls/text_table.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include <functional>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

using Change = std::function<void(TextTable &)>;

/** "a,b|c,d @1,0": the rows, and where the current cell is. */
QString stateOf(const TextTable &table)
{
    QStringList rows;
    for (int row = 0; row < table.rows(); ++row) {
        QStringList cells;
        for (int column = 0; column < table.columns(); ++column)
            cells += table.text(row, column);
        rows += cells.join(u',');
    }
    return u"%1 @%2,%3"_s.arg(rows.join(u'|')).arg(table.row()).arg(table.column());
}

/** A header and two rows, the last cell being current. */
void fill(TextTable &table)
{
    table.setHeader({u"H"_s, u"I"_s});
    table.setRows(3);
    const QStringList texts{u"a"_s, u"b"_s, u"c"_s, u"d"_s};
    for (int cell = 0; cell < texts.size(); ++cell)
        table.setText(1 + cell / 2, cell % 2, texts.at(cell));
    table.setCurrentCell(2, 1);
}

} // namespace

class TestTextTable : public QObject
{
    Q_OBJECT

private slots:
    void changes()
    {
        const auto refill = [](TextTable &t) {
            const TextTable::BulkChange outer(t);
            {
                const TextTable::BulkChange inner(t);
                t.setRows(2);
            }
            t.setText(1, 1, u"x"_s);
            t.setRow(0);
            t.setRows(3);
        };
        const auto write = [](TextTable &t) {
            t.setText(0, 0, u"G"_s);
            t.setText(t.row(), t.column(), t.currentText() + u'!');
        };
        for (const auto &[change, state] : QList<std::pair<Change, QString>>{
                 {[](TextTable &t) { t.setRows(5); }, u"H,I|a,b|c,d|,|, @2,1"_s},
                 {[](TextTable &t) { t.setRows(2); }, u"H,I|a,b @1,1"_s},
                 {[](TextTable &t) { t.setHeader({u"G"_s}); }, u"G @0,0"_s},
                 {write, u"G,I|a,b|c,d! @2,1"_s},
                 {refill, u"H,I|a,x|, @0,1"_s}}) {
            TextTable table;
            fill(table);
            const QAbstractItemModelTester tester(
                &table, QAbstractItemModelTester::FailureReportingMode::QtTest);
            const QSignalSpy readAnew(&table, &TextTable::modelReset);
            change(table);
            QCOMPARE(stateOf(table), state);
            QVERIFY(readAnew.count() <= 1);
        }
    }

    void refusals()
    {
        const QList<Change> changes{
            [](TextTable &t) { t.setRows(0); }, [](TextTable &t) { t.setRow(3); },
            [](TextTable &t) { t.setColumn(2); }, [](TextTable &t) { (void)t.text(0, -1); },
            [](TextTable &t) { t.setText(3, 0, {}); }};
        TextTable table;
        fill(table);
        for (const Change &change : changes)
            QVERIFY_THROWS_EXCEPTION(BoundsError, change(table));
        QCOMPARE(stateOf(table), u"H,I|a,b|c,d @2,1"_s);
    }

    void amountsStandRight()
    {
        TextTable table;
        fill(table);
        table.setRightAligned({1});
        const auto sideOf = [](const QVariant &alignment) {
            return alignment.value<Qt::Alignment>() & Qt::AlignHorizontal_Mask;
        };
        QCOMPARE(sideOf(table.index(0, 0).data(Qt::TextAlignmentRole)), Qt::AlignLeft);
        QCOMPARE(sideOf(table.index(0, 1).data(Qt::TextAlignmentRole)), Qt::AlignRight);
        QCOMPARE(sideOf(table.headerData(1, Qt::Horizontal, Qt::TextAlignmentRole)),
                 Qt::AlignRight);
    }
};

QTEST_APPLESS_MAIN(TestTextTable)
#include "test_text_table.moc"
