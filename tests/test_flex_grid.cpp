#include "archive_probe.h"
#include "controls/flex_grid.h"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>

using namespace saldoro;
using namespace Qt::StringLiterals;

class TestFlexGrid : public QObject
{
    Q_OBJECT

private slots:
    void keys()
    {
        const auto rows = FlexGrid::SelectRows;
        const auto cell = FlexGrid::SelectItems;
        for (const auto &[selection, keys, wanted] :
             QList<std::tuple<FlexGrid::SelectionBehavior, QList<Qt::Key>, QString>>{
                 {rows, {Qt::Key_Up, Qt::Key_Up, Qt::Key_Up}, u"1,1 [1-1,0-2]"_s},
                 {rows, {Qt::Key_End, Qt::Key_Down}, u"200,1 [200-200,0-2]"_s},
                 {rows, {Qt::Key_End, Qt::Key_Home}, u"1,1 [1-1,0-2]"_s},
                 {rows, {Qt::Key_PageDown, Qt::Key_PageUp}, u"3,1 [3-3,0-2]"_s},
                 {rows, {Qt::Key_Right, Qt::Key_Left, Qt::Key_Left}, u"3,1 [3-3,0-2]"_s},
                 {rows, {Qt::Key_1, Qt::Key_0}, u"3,1 [3-3,0-2]"_s},
                 {cell, {Qt::Key_Home}, u"3,0 [3-3,0-0]"_s},
                 {cell, {Qt::Key_End, Qt::Key_Right}, u"3,2 [3-3,2-2]"_s}}) {
            open(selection, 200);
            m_grid->table().setCurrentCell(3, 1);
            for (const Qt::Key key : keys)
                QTest::keyClick(m_grid, key);
            QCOMPARE(state(), wanted);
            QVERIFY(isInSight());
        }
    }

    void copiesAndFinds()
    {
        open(FlexGrid::SelectRows, 3);
        m_grid->table().setHeader({u"Nr"_s, u"Creditore"_s, u"importo"_s});
        AddRow(m_grid->table(), {u"1"_s, u"Edil\tValle"_s, u"1.000,00"_s});
        AddRow(m_grid->table(), {u"2"_s, u"Po \"Srl\""_s, u"2,50"_s});
        m_grid->table().setRow(1);
        QTest::keyClicks(m_grid, u"po"_s); // in no column, to begin with
        QCOMPARE(m_grid->table().row(), 1);
        m_grid->setSearchColumn(1);
        QTest::keyClicks(m_grid, u"po"_s);
        QCOMPARE(state(), u"2,1 [2-2,0-2]"_s);
        const QString line = u"2\t\"Po \"\"Srl\"\"\"\t2,50\n"_s;
        QTest::keyClick(m_grid, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), line);
        QTest::keyClick(m_grid, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(),
                 u"Nr\tCreditore\timporto\n1\t\"Edil\tValle\"\t1.000,00\n"_s + line);
    }

    void activation()
    {
        open(FlexGrid::SelectRows, 3);
        m_grid->table().setRow(2);
        QSignalSpy activated(m_grid, &FlexGrid::cellActivated);
        const QSignalSpy deleted(m_grid, &FlexGrid::deletePressed);
        QTest::keyClick(m_grid, Qt::Key_Enter, Qt::KeypadModifier);
        QTest::keyPress(m_grid, Qt::Key_Return);
        for (const bool press : {false, true, false, true}) // held down
            QTest::simulateEvent(m_grid, press, Qt::Key_Return, {}, u"\r"_s, true);
        QCOMPARE(activated.count(), 2);
        QCOMPARE(activated.first(), (QVariantList{2, 0}));
        QTest::keyClick(m_grid, Qt::Key_Delete);
        QCOMPARE(deleted.count(), 1);
        QTest::mouseClick(m_grid->viewport(), Qt::LeftButton, Qt::ControlModifier, middleOf(2, 1));
        QCOMPARE(state(), u"2,1 [2-2,0-2]"_s); // one row stays selected
        m_grid->table().setRows(1);
        QTest::keyClick(m_grid, Qt::Key_Return);
        QTest::keyClick(m_grid, Qt::Key_Delete);
        QCOMPARE(activated.count() + deleted.count(), 3); // a header does not act
    }

    void doubleClick()
    {
        open(FlexGrid::SelectItems, 3);
        QSignalSpy activated(m_grid, &FlexGrid::cellActivated);
        QStringList current;
        connect(m_grid, &FlexGrid::cellActivated, this, [&] { current += state(); });
        const auto twice = [this](const QPoint &place, Qt::MouseButton button) {
            QTest::mouseClick(m_grid->viewport(), button, {}, place);
            QTest::mouseDClick(m_grid->viewport(), button, {}, place);
        };
        twice(middleOf(2, 2), Qt::LeftButton);
        QCOMPARE(activated.takeFirst(), (QVariantList{2, 2}));
        QCOMPARE(current, QStringList{u"2,2 [2-2,2-2]"_s});
        twice(middleOf(1, 2), Qt::RightButton);
        twice(middleOf(3, 2) + QPoint(0, 60), Qt::LeftButton);
        QCOMPARE(activated.count(), 0);
    }

    void tableMovesTheView()
    {
        open(FlexGrid::SelectRows, 200);
        TextTable &table = m_grid->table();
        table.setRow(150);
        QCOMPARE(state(), u"150,0 [150-150,0-2]"_s);
        QVERIFY(isInSight());
        {
            const TextTable::BulkChange refilling(table);
            table.setRow(20);
        }
        QCOMPARE(state(), u"20,0 [20-20,0-2]"_s);
        QVERIFY(isInSight());
        table.setRows(20);
        QCOMPARE(state(), u"19,0 [19-19,0-2]"_s);
        table.setRow(0);
        QCOMPARE(state(), u"0,0"_s);
        m_grid->clearFocus();
        m_grid->setFocus(Qt::TabFocusReason);
        QCOMPARE(state(), u"1,0 [1-1,0-2]"_s);
    }

    /** A screen reader selects a row, but does not make it current. */
    void whatIsSelectedIsCurrent()
    {
        open(FlexGrid::SelectRows, 9);
        m_grid->table().setRow(2);
        auto *rows = QAccessible::queryAccessibleInterface(m_grid)->tableInterface();
        QVERIFY(rows && rows->selectRow(6));
        QTRY_COMPARE(state(), u"7,0 [7-7,0-2]"_s);
    }

    void columnsGrow()
    {
        open(FlexGrid::SelectRows, 3);
        m_grid->table().setText(1, 1, QString(255, u'W')); // long texts are bounded
        const int dots = m_grid->logicalDpiX();
        QCOMPARE(m_grid->columnWidth(0), 400 * dots / 1440);
        const QString amount = u"-123.456.789.012.345,67"_s;
        const auto fits = [&] {
            const int margin = 400 * dots / 1440;
            return m_grid->columnWidth(2) > m_grid->fontMetrics().horizontalAdvance(amount) + 6 &&
                   m_grid->columnWidth(1) + m_grid->columnWidth(0) + m_grid->columnWidth(2) ==
                       m_grid->width() - margin;
        };
        m_grid->table().setText(3, 2, amount);
        QVERIFY(fits());
        m_grid->table().setText(0, 0, u"Numero"_s);
        QVERIFY(m_grid->columnWidth(0) > 400 * dots / 1440 && fits());
        QFont larger = m_grid->font(); // all is read again
        larger.setPointSize(2 * larger.pointSize());
        const int rowHeight = m_grid->rowHeight(0);
        m_grid->setFont(larger);
        QVERIFY(fits() && m_grid->rowHeight(0) > rowHeight * 3 / 2);
    }

    void cutTextsShowWhole()
    {
        open(FlexGrid::SelectRows, 3);
        m_grid->table().setText(1, 1, u"<"_s + QString(300, u'W'));
        const auto tipOver = [this](int row) {
            const QPoint place = middleOf(row, 1);
            QHelpEvent hover(QEvent::ToolTip, place, m_grid->viewport()->mapToGlobal(place));
            QCoreApplication::sendEvent(m_grid->viewport(), &hover);
            return QToolTip::text();
        };
        QCOMPARE(tipOver(1), u"<p>&lt;%1</p>"_s.arg(QString(300, u'W')));
        QToolTip::hideText();
        QTRY_COMPARE(tipOver(2), QString());
    }

private:
    /** A window with the grid, which has the focus. */
    void open(FlexGrid::SelectionBehavior selection, int bodyRows)
    {
        m_window = std::make_unique<QWidget>();
        m_grid = new FlexGrid(selection);
        (new QVBoxLayout(m_window.get()))->addWidget(m_grid);
        TextTable &table = m_grid->table();
        const TextTable::BulkChange filling(table);
        table.setHeader({{}, {}, {}});
        table.setRows(bodyRows + 1);
        for (int row = 1; row <= bodyRows; ++row) {
            table.setText(row, 0, QString::number(row));
            table.setText(row, 2, u"1.000,00"_s);
        }
        m_grid->setWidths({400, FlexGrid::Rest, 1100});
        table.setRightAligned({2});
        m_window->resize(1000, 400);
        m_window->show();
        if (!QTest::qWaitForWindowActive(m_window.get()))
            QFAIL("the window does not become active");
        m_grid->setFocus();
    }

    QPoint middleOf(int row, int column) const
    {
        return m_grid->visualRect(m_grid->model()->index(row - 1, column)).center();
    }

    bool isInSight() const
    {
        const QRect current = m_grid->visualRect(m_grid->currentIndex());
        return m_grid->viewport()->rect().contains(current.center());
    }

    /** "row,column", then the selected rows or cells. */
    QString state() const
    {
        QString state = u"%1,%2"_s.arg(m_grid->table().row()).arg(m_grid->table().column());
        for (const QItemSelectionRange &at : m_grid->selectionModel()->selection())
            state += u" [%1-%2,%3-%4]"_s.arg(at.top() + 1)
                         .arg(at.bottom() + 1)
                         .arg(at.left())
                         .arg(at.right());
        return state;
    }

    std::unique_ptr<QWidget> m_window;
    FlexGrid *m_grid = nullptr;
};

QTEST_MAIN(TestFlexGrid)
#include "test_flex_grid.moc"
