#include "controls/flex_grid.h"
#include "form_driver.h"

#include <QListWidget>
#include <QScrollBar>

using namespace saldoro;
using namespace Qt::StringLiterals;

/** The allocation frame in a real form: keys, clicks, editor, pick list, ledger. */
class TestInvoiceAllocation : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { d.reset(); }

    void insertsByKeyboard();
    void abandonedInsertionLeavesNoRow();
    void nothingLeftToInsert();
    void editorOpensOnAmountsOnlyAndKeepsToItself();
    void escapeGivesTheAmountBack();
    void editorScrollsWithItsCell();
    void aPickListShowsItsLines();
    void anItemWithoutCodeIsNoChoice();
    void editorAlwaysReachesItsCell();
    void theGridHasTheFocusAfterItsEditor();
    void confirmWithOpenEditor();
    void closesWithPopUpsOpen();

private:
    void open(qint32 number)
    {
        d->open(CreditorKind::Professional, number);
        m_grid = d->find<FlexGrid>(u"MSFlexGrid1"_s);
        m_editor = d->find<QLineEdit>(u"edtTxt"_s);
        m_list = d->find<QListWidget>(u"List1"_s);
    }
    /** Opens the editor of a row, by Enter on its amount. */
    void edit(int row)
    {
        m_grid->setFocus();
        m_grid->table().setRow(row);
        m_grid->table().setColumn(2);
        d->press(Qt::Key_Return);
    }
    void doubleClick(int row, int column)
    {
        const QRect cell = m_grid->visualRect(m_grid->model()->index(row - 1, column));
        QTest::mouseClick(m_grid->viewport(), Qt::LeftButton, {}, cell.center());
        QTest::mouseDClick(m_grid->viewport(), Qt::LeftButton, {}, cell.center());
    }
    QString stored() const
    {
        return d->archive.ledgerRows(u"SELECT RelNpag, Cod, Importo FROM Spese"_s);
    }

    std::unique_ptr<FormDriver> d;
    FlexGrid *m_grid = nullptr;
    QLineEdit *m_editor = nullptr;
    QListWidget *m_list = nullptr;
};

void TestInvoiceAllocation::init()
{
    d = std::make_unique<FormDriver>();
    ArchiveBuilder &build = d->archive.build();
    build.addPayment({{u"AziProf"_s, u"P"_s}, {u"Npag"_s, 2}, {u"Creditore"_s, u"Arch. Sala"_s}});
    build.addAllocation(2, u"A1"_s, u"Scavi e rinterri"_s, Currency::fromWhole(1300));
    build.addAllocation(3, u"A1"_s, u"Scavi e rinterri"_s, Currency::fromWhole(9));
    build.addAllocation(2, u"A2"_s, u"Murature"_s, Currency::fromWhole(45));
}

void TestInvoiceAllocation::insertsByKeyboard()
{
    open(1);
    d->overview.setText(1, 4, u"-5,00"_s); // read when the list opens
    d->focus(u"Command3"_s);
    d->hold(Qt::Key_Return);
    QVERIFY(m_list->isVisible() && m_list->hasFocus());
    QCOMPARE(m_list->item(0)->text(), u"A1   Scavi e rinterri L.-5,00"_s);
    d->press(Qt::Key_Down);
    d->hold(Qt::Key_Return);
    QVERIFY(m_list->isHidden() && m_editor->hasFocus());
    const QRect cell = m_grid->currentCellRect();
    QCOMPARE(m_editor->geometry().size(), cell.size());
    QCOMPARE(m_editor->mapToGlobal(QPoint()), m_grid->mapToGlobal(cell.topLeft()));
    d->press(Qt::Key_I, Qt::AltModifier);
    QCOMPARE(d->focused(), u"List1"_s); // at once: the next key is meant for the list
    QCOMPARE(m_list->count(), 2);
    QCOMPARE(m_list->currentRow(), 0);
}

void TestInvoiceAllocation::abandonedInsertionLeavesNoRow()
{
    open(2);
    const QString before = d->allocations();
    for (int pass = 0; pass < 2; ++pass) {
        d->click(u"Command3"_s); // again, the second time
        QVERIFY(m_list->hasFocus());
        QCOMPARE(d->allocations(), before + u";||"_s);
    }
    d->answer = MessageAnswer::Yes;
    d->hold(Qt::Key_E, Qt::AltModifier); // once: one item
    QVERIFY(m_list->isHidden());
    QCOMPARE(d->messages, QStringList(u"Vuoi eliminare il Cod. A2?"_s));
    QCOMPARE(d->allocations(), before.section(u';', 0, 0));
}

void TestInvoiceAllocation::nothingLeftToInsert()
{
    open(2);
    d->click(u"Command3"_s);
    d->press(Qt::Key_Return);
    d->press(Qt::Key_Return);
    const QString whole = d->allocations();
    QCOMPARE(whole.count(u';'), 2);
    d->click(u"Command3"_s);
    QCOMPARE(d->messages, QStringList(u"Nessun elemento da inserire disponibile"_s));
    QVERIFY(m_list->isHidden());
    QCOMPARE(d->allocations(), whole);
}

void TestInvoiceAllocation::editorOpensOnAmountsOnlyAndKeepsToItself()
{
    open(2);
    doubleClick(1, 0);
    QVERIFY(m_editor->isHidden());
    doubleClick(2, 1);
    QVERIFY(m_editor->isHidden());
    d->press(Qt::Key_Return);
    QVERIFY(m_editor->isHidden());
    doubleClick(2, 2);
    QVERIFY(m_editor->isVisible() && m_editor->hasFocus());
    QCOMPARE(m_editor->text(), u"45,00"_s);
    QCOMPARE(m_editor->selectedText(), u"45,00"_s);
    d->type(u"8"_s);
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_Home, Qt::Key_F2})
        d->press(key);
    QVERIFY(m_editor->hasFocus());
    QCOMPARE(m_grid->table().row(), 2);
    QCOMPARE(m_editor->text(), u"8"_s);
}

void TestInvoiceAllocation::escapeGivesTheAmountBack()
{
    open(2);
    edit(1);
    d->type(u"7.5"_s);
    d->press(Qt::Key_Escape);
    QVERIFY(m_editor->isHidden() && m_grid->hasFocus());
    QCOMPARE(d->allocations().section(u';', 0, 0), u"A1|Scavi e rinterri|1.300,00"_s);
    // Untouched and left otherwise, the display form is read as any other text.
    edit(1);
    d->press(Qt::Key_Return);
    QVERIFY(m_editor->isHidden() && m_grid->hasFocus());
    QCOMPARE(d->allocations().section(u';', 0, 0), u"A1|Scavi e rinterri|1,30"_s);
    QCOMPARE(d->text(u"Text3"_s), u"46,30"_s);
}

void TestInvoiceAllocation::editorScrollsWithItsCell()
{
    for (int item = 10; item < 40; ++item)
        d->archive.build().addAllocation(2, u"Z%1"_s.arg(item), u"Opere"_s, Currency());
    open(2);
    edit(1);
    const auto distance = [this] {
        const QRect cell = m_grid->visualRect(m_grid->currentIndex());
        return m_editor->mapToGlobal(QPoint()) - m_grid->viewport()->mapToGlobal(cell.topLeft());
    };
    for (const int row : {1, 5, m_grid->verticalScrollBar()->maximum()}) {
        m_grid->verticalScrollBar()->setValue(row);
        QCOMPARE(distance(), QPoint());
        QVERIFY(m_editor->visibleRegion().isEmpty()); // no longer over any other cell
        QVERIFY(m_editor->hasFocus());
    }
    d->type(u"6"_s);
    QCOMPARE(distance(), QPoint());
    QCOMPARE(m_editor->visibleRegion().boundingRect(), m_editor->rect());
    d->press(Qt::Key_Return);
    QCOMPARE(d->allocations().section(u';', 0, 0), u"A1|Scavi e rinterri|6,00"_s);
}

void TestInvoiceAllocation::aPickListShowsItsLines()
{
    open(1);
    d->overview.setRows(2);
    d->overview.setText(1, 1, u"Opere "_s.repeated(40));
    d->click(u"Command3"_s);
    QVERIFY(m_list->viewport()->height() >= m_list->sizeHintForRow(0));
    QTest::mouseClick(m_list->viewport(), Qt::LeftButton, {},
                      m_list->visualItemRect(m_list->item(0)).center());
    QVERIFY(m_editor->hasFocus());
}

void TestInvoiceAllocation::anItemWithoutCodeIsNoChoice()
{
    open(2);
    d->overview.setText(3, 0, u"   "_s);
    const QString before = d->allocations();
    d->click(u"Command3"_s);
    d->press(Qt::Key_Return);
    QVERIFY(m_list->isHidden() && m_editor->isHidden() && m_grid->hasFocus());
    QCOMPARE(d->allocations(), before);
}

void TestInvoiceAllocation::editorAlwaysReachesItsCell()
{
    open(2);
    edit(2);
    d->type(u"77.1"_s);
    QTest::mouseClick(m_grid->viewport(), Qt::LeftButton, {},
                      m_grid->visualRect(m_grid->model()->index(0, 1)).center());
    QCOMPARE(d->allocations(), u"A1|Scavi e rinterri|1.300,00;A2|Murature|77,10"_s);
    QCOMPARE(m_grid->table().row(), 1);
    // Buttons act at once, the amount being in its cell first.
    edit(1);
    d->type(u"9"_s);
    d->press(Qt::Key_R, Qt::AltModifier);
    QTRY_COMPARE(d->focused(), u"List2"_s);
    QCOMPARE(d->text(u"Text3"_s), u"86,10"_s);
    d->click(u"Command3"_s);
    const QPoint first = m_list->visualItemRect(m_list->item(0)).center();
    QTest::mouseDClick(d->form->windowHandle(), Qt::LeftButton, {},
                       m_list->viewport()->mapTo(d->form.get(), first));
    d->type(u"800"_s); // the second click went nowhere
    d->click(u"Command4"_s);
    QCOMPARE(d->text(u"Text3"_s), u"886,10"_s);
    QCOMPARE(d->messages, QStringList(u"Vuoi eliminare il Cod. B10?"_s));
    // A click of its own, elsewhere, is no part of the pick.
    d->click(u"Command3"_s);
    QWindow *const window = d->form->windowHandle();
    QTest::mouseClick(window, Qt::LeftButton, {}, m_list->viewport()->mapTo(d->form.get(), first));
    auto *creditor = d->find(u"Text1_0"_s);
    QTest::mouseClick(window, Qt::LeftButton, {},
                      creditor->mapTo(d->form.get(), creditor->rect().center()));
    QCOMPARE(d->focused(), u"Text1_0"_s);
}

void TestInvoiceAllocation::theGridHasTheFocusAfterItsEditor()
{
    open(2);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Backtab}) {
        edit(1);
        QVERIFY(m_editor->hasFocus());
        d->press(key);
        QCOMPARE(d->focused(), u"MSFlexGrid1"_s);
        QVERIFY(m_editor->isHidden());
    }
    edit(1);
    d->focus(u"Memo"_s);
    QCOMPARE(d->focused(), u"MSFlexGrid1"_s);
}

void TestInvoiceAllocation::confirmWithOpenEditor()
{
    open(2);
    d->focus(u"Text4_0"_s);
    d->type(u"1301"_s);
    d->press(Qt::Key_Return);
    d->focus(u"Text2_0"_s);
    edit(2);
    d->type(u"1"_s);
    d->press(Qt::Key_C, Qt::AltModifier);
    QTRY_COMPARE(d->unloads, 1);
    QCOMPARE(d->messages, QStringList());
    QCOMPARE(stored(), u"2|A1|13000000\n3|A1|90000\n2|A2|10000"_s);
}

void TestInvoiceAllocation::closesWithPopUpsOpen()
{
    open(2);
    edit(1);
    d->type(u"5"_s);
    d->form->close();
    d->form.reset();
    open(2);
    d->click(u"Command3"_s);
    d->form.reset();
    QCOMPARE(d->unloads, 1);
    QCOMPARE(stored().count(u'\n'), 2);
}

QTEST_MAIN(TestInvoiceAllocation)
#include "test_invoice_allocation.moc"
