#include "common/errors.h"
#include "controls/text_table.h"

#include <QTest>

#include <functional>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

using Change = std::function<void(TextTable &)>;

/** Writes down what a view is told. */
class Listener : public TextTableObserver
{
public:
    void tableReset() override { heard += u"reset"_s; }
    void rowsChanged() override { heard += u"rows"_s; }
    void cellChanged(int row, int column) override
    {
        heard += u"cell %1 %2"_s.arg(row).arg(column);
    }
    void currentChanged() override { heard += u"current"_s; }

    QStringList heard;
};

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
TextTable sample()
{
    TextTable table(2);
    table.setRows(3);
    const QStringList texts{u"H"_s, u"I"_s, u"a"_s, u"b"_s, u"c"_s, u"d"_s};
    for (int cell = 0; cell < texts.size(); ++cell)
        table.setText(cell / 2, cell % 2, texts.at(cell));
    table.setRow(2);
    table.setColumn(1);
    return table;
}

} // namespace

Q_DECLARE_METATYPE(Change)

class TestTextTable : public QObject
{
    Q_OBJECT

private slots:
    void changes_data()
    {
        QTest::addColumn<Change>("change");
        QTest::addColumn<QString>("state");
        QTest::addColumn<QStringList>("heard");
        const auto row = [](const char *name, const Change &change, const QString &state,
                            const QStringList &heard) {
            QTest::newRow(name) << change << state << heard;
        };
        row("add a row", [](TextTable &t) { t.setRows(4); }, u"H,I|a,b|c,d|, @2,1"_s, {u"rows"_s});
        row("cut the current row", [](TextTable &t) { t.setRows(2); }, u"H,I|a,b @1,1"_s,
            {u"rows"_s});
        row("current cell", [](TextTable &t) { t.setCurrentText(t.currentText() + u'!'); },
            u"H,I|a,b|c,d! @2,1"_s, {u"cell 2 1"_s});
        row("bulk in bulk",
            [](TextTable &t) {
                const TextTable::BulkChange outer(t);
                {
                    const TextTable::BulkChange inner(t);
                    t.setRows(2);
                }
                t.setText(1, 1, u"x"_s);
                t.setRow(1);
            },
            u"H,I|a,x @1,1"_s, {u"reset"_s});
    }

    void changes()
    {
        QFETCH(const Change, change);
        TextTable table = sample();
        Listener listener;
        table.setObserver(&listener);
        change(table);
        QTEST(stateOf(table), "state");
        QTEST(listener.heard, "heard");
    }

    void refusals()
    {
        const QList<Change> changes{
            [](TextTable &t) { t.setRows(0); },        [](TextTable &t) { t.setColumns(-1); },
            [](TextTable &t) { t.setRow(3); },         [](TextTable &t) { t.setColumn(2); },
            [](TextTable &t) { (void)t.text(0, -1); }, [](TextTable &t) { t.setText(3, 0, {}); }};
        TextTable table = sample();
        for (const Change &change : changes)
            QVERIFY_THROWS_EXCEPTION(BoundsError, change(table));
        QCOMPARE(stateOf(table), u"H,I|a,b|c,d @2,1"_s);
    }

    void copyLeavesTheViewBehind()
    {
        TextTable table = sample();
        Listener listener;
        table.setObserver(&listener);
        TextTable copy = table;
        copy.setText(1, 0, u"x"_s);
        QCOMPARE(listener.heard, QStringList());
        QCOMPARE(stateOf(table), u"H,I|a,b|c,d @2,1"_s);
        table = copy;
        QCOMPARE(listener.heard, QStringList{u"reset"_s});
        QCOMPARE(stateOf(table), u"H,I|x,b|c,d @2,1"_s);
    }
};

QTEST_APPLESS_MAIN(TestTextTable)
#include "test_text_table.moc"
