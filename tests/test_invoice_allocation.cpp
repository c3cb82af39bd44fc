#include "archive_probe.h"
#include "controls/flex_grid.h"
#include "form_driver.h"

#include <QAccessible>
#include <QListWidget>
#include <QScrollBar>

using namespace saldoro;
using namespace Qt::StringLiterals;

/** The allocation frame in a real form: keys, clicks, editor, pick list, ledger. */
class TestInvoiceAllocation : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        d = std::make_unique<FormDriver>();
        PlantItems(d->archive, {}, u"(2,'A1',13000000),(3,'A1',90000),(2,'A2',450000)"_s);
        d->archive.execute(LedgerPath(d->values), u"UPDATE Spese SET Descrizione='x';"
                                                  "INSERT INTO Fatture (AziProf, Npag, Creditore) "
                                                  "VALUES ('P', 2, 'Arch. Sala')"_s);
    }

    void cleanup() { d.reset(); }

    void codesThatLookAlike()
    {
        for (const QString &code : {u" a1 "_s, u"Q7654321"_s})
            AddRow(d->overview, {code, u"voce"_s, {}, {}, u"-1,00"_s});
        open(2);
        // Another letter case is another item; a code cut to five characters is offered again.
        for (const QString &added : {u""_s, u";Q7654|voce|0,00"_s}) {
            d->play(u"click Command3"_s);
            QCOMPARE(seen(), u"A1|x|1.300,00;A2|x|45,00%1;|| = 1.345,00 at List1"_s.arg(added));
            QStringList lines;
            for (int line = 0; line < m_list->count(); ++line)
                lines += m_list->item(line)->text();
            QCOMPARE(lines.join(u';'),
                     u"B10  Spese tecniche L.640,00;a1   voce L.-1,00;Q7654321voce L.-1,00"_s);
            d->play(u"End, Return, Return"_s);
        }
    }

    /** After the editor has been left for another field, digits may be meant for that. */
    void digitsBehindTheEditor()
    {
        open(2);
        for (const QString &leaving : {u"click Text1_0"_s, u"Tab"_s}) {
            d->play(u"to MSFlexGrid1, Return, Ctrl+A, type 12, "_s + leaving + u", type 9"_s);
            QCOMPARE(seen(), u"A1|x|1.300,00;A2|x|12,00 = 1.312,00 at MSFlexGrid1"_s);
        }
        for (const QString &turning : {u"Up, Down"_s, u"to Text1_0, to MSFlexGrid1"_s}) {
            d->play(u"Return, Tab, "_s + turning + u", type 7, Return"_s);
            QCOMPARE(seen(), u"A1|x|1.300,00;A2|x|7,00 = 1.307,00 at MSFlexGrid1"_s);
            d->play(u"type 8, Return"_s); // the user has gone back by Enter
            QCOMPARE(seen(), u"A1|x|1.300,00;A2|x|8,00 = 1.308,00 at MSFlexGrid1"_s);
        }
    }

    void insertsByKeyboard()
    {
        open(1);
        d->overview.setText(1, 4, u"-5,00"_s); // read when the list opens
        d->play(u"to Command3, hold Return"_s);
        QCOMPARE(seen(), u"|| = 0,00 at List1"_s);
        QCOMPARE(m_list->item(0)->text(), u"A1   Scavi e rinterri L.-5,00"_s);
        d->play(u"Down, hold Return"_s);
        QCOMPARE(seen(), u"A2|Murature| = 0,00 at edtTxt"_s);
        QCOMPARE(m_editor->geometry(), m_grid->visualRect(m_grid->currentIndex()));
        d->play(u"Alt+I"_s); // at once: the next key is meant for the list
        QCOMPARE(seen(), u"A2|Murature|0,00;|| = 0,00 at List1"_s);
        QCOMPARE(m_list->count(), 2);
        QCOMPARE(m_list->currentRow(), 0);
    }

    /** A screen reader selects a line of the list and a row of the grid below it. */
    void takesTheSelectedItem()
    {
        open(3);
        d->play(u"click Command3"_s);
        const auto spoken = QAccessible::queryAccessibleInterface;
        const auto select = [](QAccessibleInterface *item) {
            if (auto *actions = item->actionInterface())
                actions->doAction(QAccessibleActionInterface::toggleAction());
        };
        auto *cells = spoken(m_grid)->tableInterface();
        QVERIFY(cells != nullptr);
        select(spoken(m_list)->child(1));
        QTRY_COMPARE(m_list->currentRow(), 1);
        select(cells->cellAt(0, 0));
        QTRY_COMPARE(m_grid->table().row(), 1);
        d->play(u"Return"_s);
        QCOMPARE(seen(), u"A1|x|9,00;B10|Spese tecniche| = 9,00 at edtTxt"_s);
        d->play(u"type 4"_s);
        select(cells->cellAt(0, 2));
        d->play(u"Escape"_s);
        QCOMPARE(seen(), u"A1|x|9,00;B10|Spese tecniche|0,00 = 9,00 at MSFlexGrid1"_s);
    }

    void abandonedInsertionLeavesNoRow()
    {
        open(2);
        for (int pass = 0; pass < 2; ++pass) {
            d->play(u"click Command3"_s); // again, the second time
            QCOMPARE(seen(), u"A1|x|1.300,00;A2|x|45,00;|| = 1.345,00 at List1"_s);
        }
        d->play(u"Escape"_s);
        QCOMPARE(seen(), u"A1|x|1.300,00;A2|x|45,00 = 1.345,00 at MSFlexGrid1"_s);
        d->overview.setText(3, 0, u"   "_s); // without a code it is no choice
        d->play(u"click Command3, Return"_s);
        QCOMPARE(seen(), u"A1|x|1.300,00;A2|x|45,00 = 1.345,00 at MSFlexGrid1"_s);
        d->saysYes = true;
        d->play(u"click Command3, hold Alt+E"_s); // once: one item
        QCOMPARE(seen(), u"A1|x|1.300,00 = 1.300,00 at Command4"_s);
        QCOMPARE(d->messages, QStringList(u"Vuoi eliminare il Cod. A2?"_s));
    }

    void nothingLeftToInsert()
    {
        open(2);
        d->play(u"click Command3, Return, Return, click Command3"_s);
        QCOMPARE(d->messages, QStringList(u"Nessun elemento da inserire disponibile"_s));
        QCOMPARE(seen(),
                 u"A1|x|1.300,00;A2|x|45,00;B10|Spese tecniche|0,00 = 1.345,00 at Command3"_s);
    }

    void deletesTheCurrentRowAtOnce()
    {
        open(2);
        d->play(u"click Command4"_s); // the last row, to begin with
        QCOMPARE(seen(), u"A1|x|1.300,00;A2|x|45,00 = 1.345,00 at Command4"_s);
        d->saysYes = true;
        click(1, 0);
        d->play(u"click Command4"_s);
        QCOMPARE(seen(), u"A2|x|45,00 = 45,00 at Command4"_s);
        QCOMPARE(stored(), u"3|A1|90000\n2|A2|450000"_s);
        d->play(u"click Command4, click Command4"_s); // nothing is left to be asked about
        QCOMPARE(seen(), u" = 0,00 at Command4"_s);
        QCOMPARE(stored(), u"3|A1|90000"_s);
        QCOMPARE(d->messages.join(u' ').remove(u"Vuoi eliminare il Cod. "_s), u"A2? A1? A2?"_s);
    }

    void editorOpensOnAmountsOnlyAndKeepsToItself()
    {
        open(2);
        for (const int column : {0, 1}) {
            click(2, column, true);
            d->play(u"Return"_s);
            QVERIFY(m_editor->isHidden());
        }
        click(2, 2, true);
        QCOMPARE(d->focused() + m_editor->selectedText(), u"edtTxt45,00"_s);
        d->play(u"type 8, Up, Down, PgUp, Home, F2"_s);
        QCOMPARE(d->focused() + m_editor->text(), u"edtTxt8"_s);
        QCOMPARE(m_grid->table().row(), 2);
        // A digit opens it, too, and goes on from there; so does what may stand before it.
        for (const QString &amount : {u"12"_s, u"-5"_s, u".7"_s, u",8"_s}) {
            d->play(u"Escape, type %1, type %2"_s.arg(amount.first(1), amount.last(1)));
            QCOMPARE(d->focused() + m_editor->text(), u"edtTxt"_s + amount);
        }
        d->play(u"Escape, Left, type 3"_s);
        QVERIFY(m_editor->isHidden());
    }

    /** Whatever leaves the editor, a click elsewhere too; Escape alone gives the amount back. */
    void theEditorLeavesItsAmountAndTheFocus()
    {
        open(2);
        for (const auto &[steps, shown] : {std::pair{u"type 81, Return"_s, u"81,00 = 1.381,00"_s},
                                           {u"type 82.1, Tab"_s, u"82,10 = 1.382,10"_s},
                                           {u"type 86, Shift+Tab"_s, u"86,00 = 1.386,00"_s},
                                           {u"type 83, click Text1_1"_s, u"83,00 = 1.383,00"_s},
                                           {u"type 84, click Text2_0"_s, u"84,00 = 1.384,00"_s},
                                           {u"type 85, click Memo"_s, u"85,00 = 1.385,00"_s},
                                           {u"type 7.5, Escape"_s, u"85,00 = 1.385,00"_s}}) {
            edit(2);
            d->play(steps);
            QCOMPARE(seen(), u"A1|x|1.300,00;A2|x|%1 at MSFlexGrid1"_s.arg(shown));
        }
        // Untouched, the display form is read as any other text.
        edit(1);
        d->play(u"Return"_s);
        QCOMPARE(seen(), u"A1|x|1,30;A2|x|85,00 = 86,30 at MSFlexGrid1"_s);
        edit(2);
        d->play(u"type 77"_s);
        click(1, 1);
        QCOMPARE(seen(), u"A1|x|1,30;A2|x|77,00 = 78,30 at MSFlexGrid1"_s);
        QCOMPARE(m_grid->table().row(), 1);
        // Buttons act at once, the amount being in its cell first.
        edit(1);
        d->play(u"type 9, Alt+R"_s);
        QTRY_COMPARE(d->focused(), u"List2"_s);
        QCOMPARE(d->text(u"Text3"_s), u"86,00"_s);
        // A composed letter does not get into the total.
        QInputMethodEvent composed;
        composed.setCommitString(u"é"_s);
        QCoreApplication::sendEvent(d->find(u"Text3"_s), &composed);
        QCOMPARE(d->text(u"Text3"_s), u"86,00"_s);
    }

    void editorScrollsWithItsCell()
    {
        for (int item = 10; item < 40; ++item)
            d->archive.execute(LedgerPath(d->values),
                               u"INSERT INTO Spese VALUES (2, 'Z%1', 'Opere', 0)"_s.arg(item));
        open(2);
        edit(1);
        for (const int row : {1, 5, m_grid->verticalScrollBar()->maximum()}) {
            m_grid->verticalScrollBar()->setValue(row);
            QCOMPARE(m_editor->geometry(), m_grid->visualRect(m_grid->currentIndex()));
            QVERIFY(m_editor->visibleRegion().isEmpty()); // no longer over any other cell
            QVERIFY(m_editor->hasFocus());
        }
        d->play(u"type 6"_s);
        QCOMPARE(m_editor->geometry(), m_grid->visualRect(m_grid->currentIndex()));
        QCOMPARE(m_editor->visibleRegion().boundingRect(), m_editor->rect());
        d->play(u"Return"_s);
        QCOMPARE(d->allocations().section(u';', 0, 0), u"A1|x|6,00"_s);
    }

    void restOfADoubleClickGoesNowhere()
    {
        open(2);
        d->form->resize(1600, 900); // all in sight, whatever the font
        d->overview.setText(3, 1, u"Opere "_s.repeated(40));
        d->play(u"click Command3"_s);
        QVERIFY(m_list->viewport()->height() >= m_list->sizeHintForRow(0)); // the whole line
        const auto inForm = [this](const QWidget &control, const QRect &area) {
            return control.mapTo(d->form.get(), area.center());
        };
        QWindow *const window = d->form->windowHandle();
        const QPoint line = inForm(*m_list->viewport(), m_list->viewport()->rect());
        QTest::mouseDClick(window, Qt::LeftButton, {}, line);
        d->play(u"type 800, click Command4"_s);
        QCOMPARE(d->text(u"Text3"_s), u"2.145,00"_s);
        QCOMPARE(d->messages, QStringList(u"Vuoi eliminare il Cod. B10?"_s));
        // A click of its own, elsewhere, is no part of the pick.
        d->play(u"click Command3"_s);
        QTest::mouseClick(window, Qt::LeftButton, {}, line);
        const auto *creditor = d->find(u"Text1_0"_s);
        QTest::mouseClick(window, Qt::LeftButton, {}, inForm(*creditor, creditor->rect()));
        QCOMPARE(d->focused(), u"Text1_0"_s);
    }

    void confirmWithOpenEditor()
    {
        open(2);
        d->play(u"to Text4_0, type 1301, Return, to Text2_0"_s);
        edit(2);
        d->play(u"type 1, Alt+C"_s);
        QTRY_COMPARE(d->unloads, 1);
        QCOMPARE(d->messages, QStringList());
        QCOMPARE(stored(), u"2|A1|13000000\n3|A1|90000\n2|A2|10000"_s);
    }

private:
    void open(qint32 number)
    {
        d->open(CreditorKind::Professional, number);
        m_grid = d->find<FlexGrid>(u"MSFlexGrid1"_s);
        m_editor = d->find<QLineEdit>(u"edtTxt"_s);
        m_list = d->find<QListWidget>(u"List1"_s);
    }
    /** Rows, their sum and where the focus is; nothing pops up without it. */
    QString seen() const
    {
        return d->allocations() + u" = "_s + d->text(u"Text3"_s) + u" at "_s + d->focused() +
               (m_editor->isVisible() && !m_editor->hasFocus() ? u" editor"_s : QString()) +
               (m_list->isVisible() && !m_list->hasFocus() ? u" list"_s : QString());
    }
    /** Opens the editor of a row, by Enter on its amount. */
    void edit(int row)
    {
        m_grid->table().setCurrentCell(row, 2);
        d->play(u"to MSFlexGrid1, Return"_s);
    }
    void click(int row, int column, bool twice = false)
    {
        const QPoint cell = m_grid->visualRect(m_grid->model()->index(row - 1, column)).center();
        QTest::mouseClick(m_grid->viewport(), Qt::LeftButton, {}, cell);
        if (twice)
            QTest::mouseDClick(m_grid->viewport(), Qt::LeftButton, {}, cell);
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

QTEST_MAIN(TestInvoiceAllocation)
#include "test_invoice_allocation.moc"
