#include "common/ending.h"
#include "common/form_helpers.h"
#include "form_driver.h"
#include "invoice_model.h"
#include "store/code_lookups.h"
#include "store/internal_codes.h"

#include <QClipboard>
#include <QDropEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace saldoro;
using namespace Qt::StringLiterals;

class TestInvoiceForms : public QObject
{
    Q_OBJECT

private slots:
    void init() { d = std::make_unique<FormDriver>(); }
    void cleanup();

    void opensEmpty();
    void focusOrder();
    void otherWindowsTakeNoFocus();
    void clickSelectsTheWholeText();
    void impossibleDateHolds();
    void limitsOfTyping();
    void pastedLineEndsGo();
    void creditorLists();
    void principals();
    void untouchedNoteStays();
    void unloadsOnce();

private:
    std::unique_ptr<FormDriver> d;
};

void TestInvoiceForms::cleanup()
{
    SetEnding(false);
    d.reset();
}

void TestInvoiceForms::opensEmpty()
{
    d->open(CreditorKind::Professional, 12);
    QCOMPARE(d->form->windowTitle(), u"Professionisti"_s);
    QCOMPARE(d->find<QLabel>(u"Label2"_s)->text(), u"Pagamento N.  12"_s);
    QVERIFY(!d->find(u"Command1"_s)->isEnabled());
    QVERIFY(d->form->windowFlags() & Qt::WindowStaysOnTopHint);
    d->open(CreditorKind::Company, 3);
    QCOMPARE(d->form->windowTitle(), u"Aziende"_s);
    QVERIFY(!d->find(u"Command6"_s)->isEnabled());
}

void TestInvoiceForms::focusOrder()
{
    for (const CreditorKind kind : {CreditorKind::Company, CreditorKind::Professional}) {
        const QStringList order = FormModel(kind, 1, {}).order +
                                  u"Command3 Command4 Command1 Command2 Text1_0"_s.split(u' ');
        d->open(kind, 1);
        d->type(u"x"_s);
        QStringList visited = {d->focused()};
        while (visited.size() < order.size()) {
            d->press(Qt::Key_Tab);
            visited += d->focused();
            const auto *line = qobject_cast<QLineEdit *>(QApplication::focusWidget());
            QVERIFY2(!line || line->selectedText() == line->text(), qPrintable(d->focused()));
        }
        QCOMPARE(visited, order);
    }
    QCOMPARE(InvioTab(Qt::Key_A), int(Qt::Key_A)); // keys other than Enter pass
    QCoreApplication::processEvents();
    QCOMPARE(d->focused(), u"Text1_0"_s);
}

void TestInvoiceForms::otherWindowsTakeNoFocus()
{
    d->open(CreditorKind::Professional, 1);
    d->focus(u"Text4_0"_s);
    d->type(u"30"_s);
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QCOMPARE(d->text(u"Text4_0"_s), u"30"_s);
    d->form->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(d->form.get()));
    QCOMPARE(d->texts(u"Text4_0 Text2_0"_s), u"30 -"_s);
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    d->focus(u"Text4_1"_s);
    d->form->activateWindow();
    QTRY_COMPARE(d->texts(u"Text4_0 Text2_0"_s), u"30,00 30,00"_s);
}

void TestInvoiceForms::clickSelectsTheWholeText()
{
    d->open(CreditorKind::Professional, 1);
    d->focus(u"Text4_0"_s);
    d->type(u"1234.5"_s);
    d->click(u"Text4_1"_s);
    d->click(u"Text4_0"_s);
    QCOMPARE(d->text(u"Text4_0"_s), u"1234.50"_s);
    d->type(u"7"_s);
    QCOMPARE(d->text(u"Text4_0"_s), u"7"_s);
    d->click(u"Text4_0"_s);
    d->type(u"0"_s);
    QCOMPARE(d->text(u"Text4_0"_s).size(), 2);
}

void TestInvoiceForms::impossibleDateHolds()
{
    d->open(CreditorKind::Company, 1);
    d->type(u"Impresa Bo"_s);
    d->focus(u"MaskEdBox1_0"_s);
    d->type(u"12051"_s);
    const QString held = d->text(u"MaskEdBox1_0"_s);
    const auto holds = [this, &held] {
        return d->focused() == u"MaskEdBox1_0" && d->text(u"MaskEdBox1_0"_s) == held &&
               d->form->isVisible() && d->messages.isEmpty();
    };
    d->click(u"Command5"_s);
    QVERIFY(holds());
    d->press(Qt::Key_C, Qt::AltModifier);
    QVERIFY(holds());
    QVERIFY(d->find(u"List1"_s)->isHidden() && d->find(u"List2"_s)->isHidden());
    QCOMPARE(d->archive.ledgerRows(u"SELECT * FROM Fatture"_s), QString());
    d->click(u"Command2"_s);
    QVERIFY(!d->form->isVisible());
}

void TestInvoiceForms::limitsOfTyping()
{
    const QString longName = u"012345678"_s.repeated(7);
    d->archive.build().addSheetItem(
        {{u"Voce"_s, u"C1"_s}, {u"FUNZIONE"_s, 17}, {u"Stringa"_s, longName + u"\n"_s}});
    d->open(CreditorKind::Professional, 1);
    const QList<std::pair<QString, int>> limits = {
        {u"Text1_0"_s, 60}, {u"Text1_1"_s, 10}, {u"Text1_3"_s, 50}};
    const QString astral = QString::fromUcs4(U"\U0001D11E");
    for (const auto &[name, limit] : limits) {
        d->focus(name);
        d->type(QString(limit + 5, u'e'));
        QCOMPARE(d->text(name), QString(limit, u'e'));
    }
    d->click(u"Command5"_s);
    d->press(Qt::Key_Return);
    QCOMPARE(d->text(u"Text1_0"_s), longName.left(60)); // what is picked shows cut
    auto *box = d->find<QLineEdit>(u"Text1_0"_s);
    box->setCursorPosition(5);
    d->type(u"\b\b\bx"_s);
    const QString shorter = longName.left(60).replace(2, 3, u"x"_s);
    QCOMPARE(box->text(), shorter);
    QApplication::clipboard()->setText(astral.repeated(3));
    d->press(Qt::Key_V, Qt::ControlModifier); // as much as fits
    const QString full = QString(shorter).insert(3, astral.repeated(2));
    QCOMPARE(box->text(), full);
    d->press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(box->text(), shorter);
    d->press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(box->text(), full);
    d->answer = MessageAnswer::Yes;
    d->click(u"Command1"_s);
    QCOMPARE(d->archive.ledgerRows(u"SELECT Creditore FROM Fatture"_s), full);
}

void TestInvoiceForms::pastedLineEndsGo()
{
    d->open(CreditorKind::Company, 1);
    QMimeData dropped;
    dropped.setText(u"\t\nBianchi\r\n\t& C.\r\n"_s);
    QApplication::clipboard()->setText(dropped.text());
    for (const QString &name : {u"Text1_0"_s, u"Text1_1"_s, u"Text1_3"_s, u"Mandato"_s}) {
        auto *box = d->find<QLineEdit>(name);
        const QString clean = u"Bianchi & C."_s.left(name == "Text1_1"_L1 ? 8 : 12);
        const auto menu = [box] {
            const std::unique_ptr<QMenu> actions(box->createStandardContextMenu());
            for (QAction *action : actions->actions()) {
                if (action->text().startsWith(u"&Paste"_s))
                    action->trigger();
            }
        };
        const auto dropping = [&] {
            const QPoint place = box->rect().center();
            QDragEnterEvent enter(place, Qt::CopyAction, &dropped, Qt::LeftButton, {});
            QApplication::sendEvent(box, &enter);
            QDropEvent drop(place, Qt::CopyAction, &dropped, Qt::LeftButton, {});
            QApplication::sendEvent(box, &drop);
        };
        const auto keys = [&] { d->press(Qt::Key_V, Qt::ControlModifier); };
        for (const std::function<void()> &paste :
             {std::function<void()>(keys), {menu}, {dropping}}) {
            box->setFocus();
            d->press(Qt::Key_A, Qt::ControlModifier);
            d->type(u"A."_s);
            paste();
            QTRY_COMPARE(box->text(), u"A."_s + clean);
            d->press(Qt::Key_Z, Qt::ControlModifier);
            QVERIFY(!box->text().contains(u"Bianchi"_s)); // the paste can be undone
        }
    }
}

void TestInvoiceForms::creditorLists()
{
    ArchiveBuilder &build = d->archive.build();
    build.addSheetItem(
        {{u"Voce"_s, u"C1"_s}, {u"FUNZIONE"_s, 17}, {u"Stringa"_s, u"Ing. Rossi"_s}});
    build.addCompany(5, u"D'Amico"_s, u"S"_s);
    build.addParticipant(2, 5);
    for (const CreditorKind kind : {CreditorKind::Professional, CreditorKind::Company}) {
        d->open(kind, 1);
        d->type(u"d'"_s);
        const auto *list = d->find<QListWidget>(u"List2"_s);
        d->click(u"Command5"_s);
        QVERIFY(list->isVisible() && list->hasFocus());
        QCOMPARE(list->count(), 1);
        d->press(Qt::Key_Escape);
        QVERIFY(list->isHidden() && d->form->isVisible());
        QCOMPARE(d->focused(), u"Text1_0"_s);
        d->press(Qt::Key_R, Qt::AltModifier);
        QTRY_VERIFY(list->isVisible());
        d->focus(u"Text1_1"_s);
        QVERIFY(list->isHidden());
        d->focus(u"Text1_0"_s);
        d->press(Qt::Key_Backspace);
        QVERIFY(!d->find(u"Command1"_s)->isEnabled());
        d->click(u"Command5"_s);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(list->item(0)).center());
        QCOMPARE(d->text(u"Text1_0"_s),
                 kind == CreditorKind::Company ? u"D'Amico"_s : u"Ing. Rossi"_s);
        QVERIFY(list->isHidden() && d->find(u"Command1"_s)->isEnabled());
    }
}

void TestInvoiceForms::principals()
{
    ArchiveBuilder &build = d->archive.build();
    build.addSheetItem({{u"Voce"_s, CodiceEsterno(build.values(), InternalCode::Contractor)},
                        {u"Stringa"_s, u"ATI Ponte"_s},
                        {u"Link"_s, 9}});
    build.addCompany(9, u"ATI Ponte"_s, u"ATI"_s);
    build.addCompany(10, u"Ferro Srl"_s, u"S"_s);
    build.addCompany(11, u"Acciaio Srl"_s, u"S"_s);
    build.addPrincipal(9, 10);
    build.addPrincipal(9, 11);
    d->open(CreditorKind::Company, 1);
    QCOMPARE(d->text(u"Text1_0"_s), u"ATI Ponte"_s);
    QVERIFY(d->find(u"Command1"_s)->isEnabled());
    d->press(Qt::Key_Tab);
    d->press(Qt::Key_Tab);
    QCOMPARE(d->focused(), u"Command6"_s);
    d->press(Qt::Key_Return);
    d->press(Qt::Key_Down);
    d->press(Qt::Key_Return);
    QCOMPARE(d->text(u"Text1_0"_s), u"Ferro Srl"_s);
}

void TestInvoiceForms::untouchedNoteStays()
{
    const QString note = u"a\r\nb\u00a0c"_s;
    d->archive.build().addPayment({{u"AziProf"_s, u"P"_s},
                                   {u"Npag"_s, 1},
                                   {u"Creditore"_s, u"Ing. Neri"_s},
                                   {u"Memo"_s, note}});
    const auto stored = [this] { return d->archive.ledgerRows(u"SELECT Memo FROM Fatture"_s); };
    d->answer = MessageAnswer::Yes;
    d->open(CreditorKind::Professional, 1);
    d->click(u"Command1"_s);
    QCOMPARE(stored(), note);
    d->open(CreditorKind::Professional, 1);
    d->focus(u"Memo"_s);
    d->press(Qt::Key_Return);
    d->click(u"Command1"_s);
    QCOMPARE(stored(), u"\r\na\r\nb c"_s);
}

void TestInvoiceForms::unloadsOnce()
{
    enum class Way
    {
        Annulla,
        OwnButton,
        ProgramEnds
    };
    for (const Way way : {Way::Annulla, Way::OwnButton, Way::ProgramEnds}) {
        d->unloads = 0;
        d->open(CreditorKind::Professional, 1);
        d->type(u"x"_s);
        d->click(u"Command3"_s);
        SetEnding(way == Way::ProgramEnds);
        if (way == Way::Annulla)
            d->click(u"Command2"_s);
        d->form->close();
        d->form->close();
        QCOMPARE(d->unloads, way == Way::ProgramEnds ? 0 : 1);
        QVERIFY(!d->form->isVisible());
        QCOMPARE(d->archive.ledgerRows(u"SELECT * FROM Fatture"_s), QString());
        d->form.reset();
    }
}

QTEST_MAIN(TestInvoiceForms)
#include "test_invoice_forms.moc"
