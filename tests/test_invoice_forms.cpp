#include "archive_probe.h"
#include "common/ending.h"
#include "common/errors.h"
#include "form_driver.h"
#include "invoice/allocation_table.h"
#include "invoice/cost_item_choice.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>

using namespace saldoro;
using namespace Qt::StringLiterals;

class TestInvoiceForms : public QObject
{
    Q_OBJECT

private slots:
    void init() { d = std::make_unique<FormDriver>(); }
    void cleanup()
    {
        SetEnding(false);
        d.reset();
    }

    /** Every field in its turn; then what is stored, and shown again. */
    void aPaymentByKeysAlone()
    {
        // Amounts as name, or name=typed, in the order of Tab; what they show and what is stored.
        for (const auto &[title, amounts, shown, stored] :
             {std::tuple{u"Aziende"_s, u"Text2_0=100 Text2_1=10.5 Text2_2=23.5"_s,
                         u"100,00 10.5 23,50 123,50"_s, u"105000|1000000|235000|-|-|-|-|-|-"_s},
              {u"Professionisti"_s,
               u"Text4_0=1000 Text4_1=40 Text4_2=20 Text2_0 Text2_1=22 Text2_2 Text2_5=3 Text2_3 "
               "Text5_0=20 Text5_1 Text5_2"_s,
               u"1.000,00 40,00 20,00 1.060,00 22 233,20 3,00 1.296,20 20 208,00 1.088,20 "
               "1.040,00"_s,
               u"220000|10600000|2332000|200000|10000000|400000|200000|2080000|30000"_s}}) {
            cleanup();
            init();
            const bool company = title == "Aziende"_L1;
            const auto kind = company ? CreditorKind::Company : CreditorKind::Professional;
            const QString date = company ? u"MaskEdBox1_0"_s : u"MaskEdBox1"_s;
            const QString order =
                u"Text1_0=Bo Text1_1=7/B %1=1/2/03 Text1_3=Opere %2 "
                "Mandato=m5 MandatoDell=03042005 Memo=nota MSFlexGrid1 Command3 "
                "Command4 Command1 Command2 Command5 Text1_0"_s.arg(date, amounts);
            d->open(kind, 7);
            QCOMPARE(d->form->windowTitle() + d->find<QLabel>(u"Label2"_s)->text(),
                     title + u"Pagamento N.  7"_s);
            QVERIFY(d->form->windowFlags() & Qt::WindowStaysOnTopHint);
            QVERIFY(!d->find(u"Command1"_s)->isEnabled());
            fill(order, company ? u"Return"_s : u"Tab"_s);
            d->play(u"click Command1"_s); // and No
            QVERIFY(d->form->isVisible());
            QCOMPARE(d->archive.ledgerRows(u"SELECT * FROM Fatture"_s), QString());
            d->saysYes = true;
            QString names = amounts + (company ? u" Text2_3"_s : u" Text2_4"_s);
            names.remove(m_typed);
            for (int pass = 0; pass < 2; ++pass) { // as typed, and as read back
                d->play(u"click Command1"_s);
                QCOMPARE(d->archive.ledgerRows(u"SELECT * FROM Fatture"_s),
                         title.left(1) + u"|7|Bo|7/B|2003-02-01|nota|Opere|"_s + stored);
                QCOMPARE(
                    d->archive.contractRows(u"SELECT Voce, Descri, Stringa FROM SchedaProgetto"_s),
                    u"M0097_7|Pag. N.7 - Bo|"_s + d->values.MandateText);
                QCOMPARE(d->values.MandateText, u"Mandato nr.m5 del 03/04/2005"_s);
                d->open(kind, 7);
                QCOMPARE(d->texts(u"Text1_0 Text1_1 %1 Text1_3 Mandato MandatoDell"_s.arg(date)),
                         u"Bo 7/B 01/02/2003 Opere m5 03/04/2005"_s);
                QCOMPARE(d->texts(names), shown);
                QCOMPARE(d->find<QPlainTextEdit>(u"Memo"_s)->toPlainText(), u"nota"_s);
            }
            QCOMPARE(d->messages, QStringList(3, u"Gli importi non coincidono continuare ? "_s));
        }
        QCOMPARE(InvioTab(Qt::Key_A), int(Qt::Key_A)); // keys other than Enter pass
    }

    void otherWindowsTakeNoFocus()
    {
        QWidget other;
        other.show();
        const auto activate = [](QWidget &window) {
            window.activateWindow();
            return QTest::qWaitForWindowActive(&window);
        };
        d->open(CreditorKind::Professional, 1);
        d->play(u"to Text4_0, type 30"_s);
        QVERIFY(activate(other));
        QVERIFY(activate(*d->form));
        QCOMPARE(d->texts(u"Text4_0 Text2_0"_s), u"30 -"_s);
        QVERIFY(activate(other));
        d->play(u"to Text4_1"_s);
        QVERIFY(activate(*d->form));
        QTRY_COMPARE(d->texts(u"Text4_0 Text2_0"_s), u"30,00 30,00"_s);
    }

    void clickSelectsTheWholeText()
    {
        d->open(CreditorKind::Professional, 1);
        d->play(u"to Text4_0, type 1234.5, click Text4_1, click Text4_0"_s);
        QCOMPARE(d->find<QLineEdit>(u"Text4_0"_s)->selectedText(), u"1234.50"_s);
        d->play(u"type 7, click Text4_0, type 0"_s); // the second click only moves the cursor
        QCOMPARE(d->text(u"Text4_0"_s).size(), 2);
    }

    void impossibleDateHolds()
    {
        d->open(CreditorKind::Company, 1);
        d->play(u"type Impresa Bo, to MaskEdBox1_0, type 30022024"_s);
        for (const QString &step :
             {u"click Command5"_s, u"click Command3"_s, u"Alt+C"_s, u"Shift+Tab"_s, u"Return"_s}) {
            d->play(step);
            QCOMPARE(d->focused() + d->text(u"MaskEdBox1_0"_s), u"MaskEdBox1_030/02/2024"_s);
            QVERIFY(d->form->isVisible() && d->messages.isEmpty());
            QVERIFY(d->find(u"List1"_s)->isHidden() && d->find(u"List2"_s)->isHidden());
        }
        QCOMPARE(d->archive.ledgerRows(u"SELECT * FROM Fatture"_s), QString());
        d->play(u"click Command2"_s);
        QVERIFY(!d->form->isVisible());
    }

    void totalsAreComparedAsTexts()
    {
        d->open(CreditorKind::Company, 1);
        d->play(u"type x, to Text2_3, type 0, click Command1"_s);
        QCOMPARE(d->texts(u"Text2_3 Text3"_s), u"0 0,00"_s);
        QCOMPARE(d->find(u"Frame2"_s)->findChild<QLabel *>()->text(), u"0"_s); // for comparison
        QCOMPARE(d->messages.size(), 1);
        QVERIFY(d->form->isVisible());
    }

    void creditorLists()
    {
        d->archive.execute(ContractPath(d->values),
                           u"INSERT INTO SchedaProgetto (Voce, Funzione, Stringa, Link) VALUES "
                           "('C1',17,' Zeta ',0),('C2',17,' ',0),('C3',17,NULL,0),('C4',18,'No',0),"
                           "('C5',17,'Rì',0),('D0101',0,'ATI Ponte',9)"_s);
        d->archive.execute(CompaniesPath(d->values),
                           u"INSERT INTO Anag VALUES (9,'ATI Ponte','ATI'), (1,'D''Este Srl','S'), "
                           "(2,'Edil_1','S'), (3,'d''este bis','S'), (4,'Fuori','S');"
                           "INSERT INTO Partecip (Nord, AnagRel) VALUES (1,1), (2,2), (3,3), (4,9);"
                           "INSERT INTO Manda (AnagPar, AnagRel) VALUES (9,4), (9,2), (1,3)"_s);
        using enum CreditorKind;
        for (const auto &[kind, steps, names] :
             {std::tuple{Professional, u"type x, click Command5"_s, u"Zeta|Rì"_s},
              {Company, u"type d'E, Shift+Tab, Shift+Tab, Return"_s, u"d'este bis|D'Este Srl"_s},
              {Company, u"type ?d, Alt+R"_s, u"Edil_1"_s},
              {Company, u"type Fuori, Alt+R, Return"_s, QString()}, // an empty list
              {Company, u"Backspace, Alt+R"_s, u"ATI Ponte|d'este bis|D'Este Srl|Edil_1"_s},
              {Company, u"Shift+Tab, Return"_s, u"Edil_1|Fuori"_s}}) {
            d->open(kind, 1);
            auto *list = d->find<QListWidget>(u"List2"_s);
            const auto *confirm = d->find(u"Command1"_s);
            QCOMPARE(d->text(u"Text1_0"_s), kind == Company ? u"ATI Ponte"_s : QString());
            QCOMPARE(confirm->isEnabled(), kind == Company);
            for (const auto &[leave, next] : {std::pair{u"Escape"_s, u"Text1_0"_s},
                                              {u"to Text1_3"_s, u"Text1_3"_s},
                                              {u"Tab"_s, u"Text1_0"_s}}) {
                d->play(u"to Text1_0, "_s + steps);
                QTRY_COMPARE(d->focused(), u"List2"_s);
                QStringList offered;
                for (int line = 0; line < list->count(); ++line)
                    offered += list->item(line)->text();
                QCOMPARE(offered, names.split(u'|', Qt::SkipEmptyParts));
                d->play(leave);
                QVERIFY(list->isHidden() && d->form->isVisible());
                QCOMPARE(d->focused(), next);
            }
            d->play(u"to Text1_0, Backspace"_s);
            QVERIFY(!confirm->isEnabled());
            d->play(u"to Text1_0, "_s + steps);
            QTRY_VERIFY(list->isVisible());
            if (names.isEmpty()) {
                const auto *strip = d->find(u"Avvisi"_s);
                QTRY_VERIFY(strip->accessibleName().contains(u"Nessun nome da scegliere"_s));
                continue;
            }
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                              list->visualItemRect(list->item(0)).center());
            QCOMPARE(d->text(u"Text1_0"_s), names.section(u'|', 0, 0));
            QCOMPARE(d->find<QLineEdit>(u"Text1_0"_s)->selectedText(), d->text(u"Text1_0"_s));
            QVERIFY(list->isHidden() && confirm->isEnabled());
        }
    }

    void offers201ItemsAtMost()
    {
        TextTable items(5);
        TextTable grid;
        PrepareAllocations(grid);
        AddRow(grid, {u" V1 "_s});
        while (items.rows() <= 202)
            AddRow(items, {u"V%1"_s.arg(items.rows())});
        QCOMPARE(ItemsOnOffer(items, grid).size(), 201);
        grid.setText(1, 0, {});
        QVERIFY_THROWS_EXCEPTION(BoundsError, ItemsOnOffer(items, grid));
    }

    void unloadsOnce()
    {
        for (const bool isEnding : {false, true}) {
            for (const QString &last :
                 {u"click Command3"_s, u"click Command3, Return, type 5"_s, u"click Command2"_s}) {
                d->unloads = 0;
                d->open(CreditorKind::Professional, 1);
                SetEnding(isEnding);
                d->play(u"type x, "_s + last);
                d->form->close();
                QCOMPARE(d->unloads, isEnding ? 0 : 1);
                QVERIFY(!d->form->isVisible());
                d->form.reset();
                SetEnding(false);
            }
        }
        QCOMPARE(d->archive.ledgerRows(u"SELECT Npag FROM Fatture; SELECT Cod FROM Spese"_s),
                 QString());
    }

    /** On a small screen the page scrolls to the field that has the focus, and to its caption. */
    void captionsStayInSight()
    {
        d->open(CreditorKind::Professional, 1);
        d->form->resize(700, 450);
        d->play(u"to Command2"_s);
        int seen = 0;
        for (const QLabel *label : d->form->findChildren<QLabel *>()) {
            if (label->buddy() == nullptr)
                continue;
            d->play(u"to "_s + label->buddy()->objectName());
            QVERIFY2(label->visibleRegion().boundingRect() == label->rect(),
                     qPrintable(label->text()));
            ++seen;
        }
        QVERIFY(seen > 10);
    }

private:
    /** Goes through the controls, typing what is written behind some; lines are left by a key of
     *  their own. */
    void fill(const QString &order, const QString &keyOfLines)
    {
        for (const QString &step : order.split(u' ')) {
            QCOMPARE(d->focused(), QString(step).remove(m_typed));
            const auto *line = qobject_cast<QLineEdit *>(QApplication::focusWidget());
            QVERIFY2(!line || line->selectedText() == line->text(), qPrintable(step));
            if (step.contains(u'='))
                d->play(u"type "_s + step.section(u'=', 1));
            d->play(line ? keyOfLines : u"Tab"_s);
            QVERIFY2(!line || line->cursorPosition() == 0, qPrintable(step)); // shows its beginning
        }
    }

    const QRegularExpression m_typed{u"=[^ ]+"_s};
    std::unique_ptr<FormDriver> d;
};

QTEST_MAIN(TestInvoiceForms)
#include "test_invoice_forms.moc"
