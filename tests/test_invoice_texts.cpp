#include "form_driver.h"

#include <QAccessible>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>

using namespace saldoro;
using namespace Qt::StringLiterals;

/** Texts that are typed, pasted, dropped and picked in the invoice forms. */
class TestInvoiceTexts : public QObject
{
    Q_OBJECT

private slots:
    void init() { d = std::make_unique<FormDriver>(); }
    void cleanup() { d.reset(); }

    void linesHoldWhatFits()
    {
        d->open(CreditorKind::Company, 1);
        QMimeData dropped;
        dropped.setText(u"\t\nBianchi\r\n\t& C.\r\n"_s);
        QApplication::clipboard()->setText(dropped.text());
        for (const auto &[name, limit] : {std::pair{u"Text1_0"_s, 60},
                                          {u"Text1_1"_s, 10},
                                          {u"Text1_3"_s, 50},
                                          {u"Mandato"_s, 70}}) {
            auto *box = d->find<QLineEdit>(name);
            // It asks to move what does not fit.
            const auto drop = [&] { QCOMPARE(dropOn(*box, dropped), Qt::CopyAction); };
            for (const auto &paste : QList<std::function<void()>>{[&] { d->play(u"Ctrl+V"_s); },
                                                                  [box] { box->paste(); }, drop}) {
                box->setFocus();
                d->play(u"Ctrl+A, type A."_s);
                paste();
                QTRY_COMPARE(box->text(), u"A.Bianchi & C."_s.left(limit));
                d->play(u"Ctrl+Z"_s);
                QVERIFY(!box->text().contains(u"Bianchi"_s)); // the paste can be undone
            }
            d->play(u"Ctrl+A, type "_s + QString(70, u'e'));
            QCOMPARE(box->text(), QString(limit, u'e'));
        }
    }

    void whatIsPickedOrPastedIsCutBetweenCharacters()
    {
        const QString name = u"012345678"_s.repeated(7);
        d->archive.execute(ContractPath(d->values),
                           u"INSERT INTO SchedaProgetto (Voce, Funzione, Stringa) VALUES "
                           "('C1', 17, '%1\n')"_s.arg(name));
        d->open(CreditorKind::Professional, 1);
        d->play(u"click Command5, Return"_s);
        QCOMPARE(d->text(u"Text1_0"_s), name.left(60));
        const QString astral = QString::fromUcs4(U"\U0001D11E");
        QApplication::clipboard()->setText(astral.repeated(3));
        d->play(u"End, Backspace, Backspace, Left, Ctrl+V"_s);
        const QString full = QString(name.left(58)).insert(57, astral.repeated(2));
        QCOMPARE(d->text(u"Text1_0"_s), full);
        d->play(u"Ctrl+Z"_s);
        QCOMPARE(d->text(u"Text1_0"_s), name.left(58));
        const QString before = d->text(u"Text1_3"_s);
        d->find<QLineEdit>(u"Text1_3"_s)->insert(astral.first(1)); // half a character
        QCOMPARE(d->text(u"Text1_3"_s), before);
        d->saysYes = true;
        d->play(u"Ctrl+Shift+Z, click Command1"_s);
        QCOMPARE(d->archive.ledgerRows(u"SELECT Creditore FROM Fatture"_s), full);
    }

    /** A line end that comes with a copied amount would make equal totals differ. */
    void pastedAmountsAreOneLine()
    {
        d->open(CreditorKind::Company, 1);
        QApplication::clipboard()->setText(u"\t1.500,00\r\n"_s);
        d->play(u"to Text2_3, Ctrl+A, Ctrl+V"_s);
        QCOMPARE(d->text(u"Text2_3"_s), u"1.500,00"_s);
    }

    /** A field that the focus has not entered would keep a text from elsewhere as it is: the total
     *  would stay behind, a point would count as thousands, an impossible date would be no date. */
    void textsFromElsewhereTakeTheFocus()
    {
        d->archive.execute(LedgerPath(d->values),
                           u"INSERT INTO Spese (RelNpag, Cod, Importo) VALUES (1, 'A1', 10000)"_s);
        d->open(CreditorKind::Company, 1);
        QMimeData dropped;
        dropped.setText(u"1000.50"_s);
        dropOn(*d->find<QLineEdit>(u"Text2_0"_s), dropped);
        QCOMPARE(d->focused(), u"Text2_0"_s);
        d->play(u"Tab"_s);
        QCOMPARE(d->texts(u"Text2_0 Text2_3"_s), u"1.000,50 1.000,50"_s);
        const auto drop = [&](QWidget &box) { dropOn(box, dropped); };
        const auto openMenu = [](QWidget &box) {
            const QPoint place = box.rect().center();
            QContextMenuEvent event(QContextMenuEvent::Mouse, place, box.mapToGlobal(place));
            QApplication::sendEvent(&box, &event);
            if (QWidget *menu = QApplication::activePopupWidget())
                menu->close();
        };
        const auto middleClick = [](QWidget &box) { QTest::mouseClick(&box, Qt::MiddleButton); };
        for (const auto &[steps, start] :
             {std::pair(u"to Text1_0"_s, u"Text1_0"_s),
              {u"to MSFlexGrid1, Return"_s, u"edtTxt"_s},
              {u"to MaskEdBox1_0, type 31022024"_s, u"MaskEdBox1_0"_s}}) {
            for (const auto &[field, act] :
                 QList<std::pair<QString, std::function<void(QWidget &)>>>{
                     {u"Text2_2"_s, drop},
                     {u"Text2_2"_s, openMenu},
                     {u"Text2_2"_s, middleClick},
                     {u"MandatoDell"_s, openMenu},
                     {u"MandatoDell"_s, middleClick}}) {
                d->play(u"to MaskEdBox1_0, Ctrl+A, Del, "_s + steps);
                QCOMPARE(d->focused(), start);
                const QString before = d->text(field);
                act(*d->find<QLineEdit>(field));
                const bool isRefused = start == "MaskEdBox1_0"_L1;
                QCOMPARE(d->focused(), isRefused ? start : field);
                if (isRefused)
                    QCOMPARE(d->text(field), before);
            }
        }
    }

    /** It asks neither for the focus nor whether the text fits. */
    void whatAScreenReaderWrites()
    {
        d->open(CreditorKind::Company, 1);
        for (const auto &[field, text, shown] :
             {std::tuple{u"Text2_0"_s, u"1000.50"_s, u"1000.50"_s},
              {u"Text2_1"_s, u"22.5"_s, u"22.5"_s},
              {u"Text1_1"_s, u"12/2024-bis/PA\n"_s, u"12/2024-bi"_s},
              {u"Text1_1"_s, u"\n13/2024-bis/PA"_s, u"13/2024-bi"_s}, // where the focus is
              {u"MaskEdBox1_0"_s, u"1/2/2024"_s, u"01/02/2024"_s}}) {
            auto *spoken = QAccessible::queryAccessibleInterface(d->find(field));
            const auto length = static_cast<int>(d->text(field).size());
            spoken->editableTextInterface()->replaceText(0, length, text);
            QCOMPARE(d->focused() + u' ' + d->text(field), field + u' ' + shown);
        }
        QCOMPARE(d->texts(u"Text2_0 Text2_1 Text2_2 Text2_3"_s),
                 u"1.000,50 22.5 225,11 1.225,61"_s);
    }

    void untouchedNoteStays()
    {
        const QString note = u"a\r\nb\u00a0c"_s;
        d->archive.execute(
            LedgerPath(d->values),
            u"INSERT INTO Fatture (AziProf, Npag, Memo) VALUES ('P', 1, '%1')"_s.arg(note));
        d->saysYes = true;
        QApplication::clipboard()->setMimeData(new QMimeData); // nothing at all
        for (const auto &[steps, stored] : {std::pair{u"type x, to Memo, Ctrl+V"_s, note},
                                            {u"to Memo, Return"_s, u"\r\na\r\nb c"_s}}) {
            d->open(CreditorKind::Professional, 1);
            d->play(steps + u", click Command1"_s);
            QCOMPARE(d->archive.ledgerRows(u"SELECT Memo FROM Fatture"_s), stored);
        }
    }

private:
    /** Drops it as a drag that would rather move it; what comes of that. */
    static Qt::DropAction dropOn(QWidget &box, const QMimeData &dropped)
    {
        const QPoint place = box.rect().center();
        QDragEnterEvent enter(place, Qt::CopyAction, &dropped, Qt::LeftButton, {});
        QApplication::sendEvent(&box, &enter);
        QDropEvent release(place, Qt::MoveAction | Qt::CopyAction, &dropped, Qt::LeftButton,
                           Qt::ShiftModifier);
        QApplication::sendEvent(&box, &release);
        return release.dropAction();
    }

    std::unique_ptr<FormDriver> d;
};

QTEST_MAIN(TestInvoiceTexts)
#include "test_invoice_texts.moc"
