#include "app/application.h"
#include "app/form_flow.h"
#include "common/ending.h"
#include "common/message_box.h"
#include "controls/flex_grid.h"
#include "invoice/frm_nuova_fattura.h"
#include "invoice/invoice_form.h"
#include "overview/frm_principale.h"
#include "overview_probe.h"
#include "platform/machine_path.h"

#include <QAbstractButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace saldoro;
using namespace Qt::StringLiterals;

/** The real forms tied together, over three payments of which the second is a professional's. */
class TestFormFlow : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_messages.clear();
        m_archive = std::make_unique<TestArchive>();
        m_archive->build().addStandardCodes();
        PlantItems(*m_archive, u"('L1','Lavori',90000000)"_s, u"(1,'L1',1220000)"_s);
        PlantThreePayments(*m_archive);
        m_values = m_archive->values();
        ReplaceMessageBoxes([this](MessageKind kind, const QString &text) {
            m_messages += text;
            return kind == MessageKind::Question ? MessageAnswer::Yes : MessageAnswer::Ok;
        });
        m_forms = std::make_unique<FormFlow>(m_values);
        m_ended = std::make_unique<QSignalSpy>(m_forms.get(), &FormFlow::lastFormClosed);
        m_forms->showMainForm();
        QVERIFY(QTest::qWaitForWindowActive(main()));
    }

    void cleanup()
    {
        if (QTest::currentTestFailed())
            qInfo() << "message boxes:" << m_messages;
        m_forms.reset();
        ReplaceMessageBoxes({});
        SetEnding(false);
    }

    void newPaymentReachesTheList()
    {
        click(main(), u"Command1"_s);
        QVERIFY(m_forms->chooser()->isVisible());
        QVERIFY(!main()->isEnabled() && !main()->close() && main()->isVisible());
        click(m_forms->chooser(), u"Option4"_s);
        click(m_forms->chooser(), u"Command1"_s);
        QVERIFY(main()->isEnabled() && !m_forms->chooser() && !company() && professional());
        QVERIFY(QTest::qWaitForWindowActive(professional()));
        type(u"Arch. Neri"_s);
        professional()->findChild<QWidget *>(u"MaskEdBox1"_s)->setFocus();
        type(u"05062021"_s);
        click(professional(), u"Command1"_s);
        QVERIFY(!professional());
        QCOMPARE(
            m_archive->ledgerRows(u"SELECT AziProf, Creditore, Del FROM Fatture WHERE Npag=4"_s),
            u"P|Arch. Neri|2021-06-05"_s);
        QCOMPARE(m_messages, QStringList{u"Gli importi non coincidono continuare ? "_s});
        QCOMPARE(list().text(4, 1), u"Arch. Neri"_s);
        QVERIFY(main()->isVisible() && main()->isLoaded());
        QCOMPARE(m_ended->count(), 0);
    }

    void annullaChangesNothing()
    {
        const QString before = m_archive->ledgerRows(u"SELECT * FROM Fatture"_s);
        click(main(), u"Command1"_s);
        click(m_forms->chooser(), u"Command2"_s);
        QVERIFY(!m_forms->chooser() && !company() && main()->isEnabled());
        QCOMPARE(main()->focusWidget(), main()->findChild<QWidget *>(u"Command1"_s));
        QCOMPARE(m_values.CurrentPaymentNumber, 4);
        QCOMPARE(m_archive->ledgerRows(u"SELECT * FROM Fatture"_s), before);
        QVERIFY(!hasDocuments());
        click(main(), u"Command2"_s);
        QCOMPARE(m_ended->count(), 1);
        QVERIFY(hasDocuments());
    }

    /** An open form comes to the front with its own payment, whatever has been asked for. */
    void eachKindOpensOnce()
    {
        modify(1);
        modify(2);
        InvoiceForm *const first = company();
        QVERIFY(first);
        first->showMinimized();
        QTest::keyClicks(first->findChild<QWidget *>(u"Text1_0"_s), u"!"_s);
        modify(3);
        QCOMPARE(company(), first);
        QCOMPARE(numberOf(first), 1);
        QCOMPARE(numberOf(professional()), 2);
        QVERIFY(QTest::qWaitForWindowActive(first));
        QVERIFY(!first->isMinimized());

        click(first, u"Command1"_s); // saves, though payment 3 is current
        QCOMPARE(list().text(1, 1), u"!Rossi S.r.l."_s);
        QVERIFY(!company() && professional()->isVisible());
        modify(3);
        QCOMPARE(numberOf(company()), 3);
        QVERIFY(closes(professional()) && closes(company()));
        QCOMPARE(m_ended->count(), 0);
        QVERIFY(main()->close());
        QCOMPARE(m_ended->count(), 1);
    }

    void mainFormClosedFirstComesBack()
    {
        modify(1);
        QVERIFY(main()->close());
        QVERIFY(!main()->isVisible() && hasDocuments());
        QCOMPARE(m_ended->count(), 0);
        m_archive->execute(LedgerPath(m_values), u"UPDATE Fatture SET Creditore='Altri'"_s);
        click(company(), u"Command2"_s);
        QVERIFY(!company() && main()->isVisible() && main()->isLoaded());
        QCOMPARE(list().text(1, 1), u"Altri"_s);
        QCOMPARE(m_ended->count(), 0);
    }

    void mainFormStaysOutOfUseBelowTheChooser()
    {
        modify(2);
        click(main(), u"Command1"_s);
        QVERIFY(closes(professional()));
        QVERIFY(main()->isVisible() && !main()->isEnabled());
        QTRY_COMPARE(QApplication::activeWindow(), m_forms->chooser());
        main()->activateWindow(); // as a click on it would
        QTRY_COMPARE(QApplication::activeWindow(), m_forms->chooser());
        click(m_forms->chooser(), u"Command1"_s);
        QVERIFY(main()->isEnabled());
        QCOMPARE(numberOf(company()), 4);
    }

    /** The reload after a deletion meets a null; forms that close afterwards write nothing. */
    void errorEndsWithoutClosingWork()
    {
        auto &application = *static_cast<Application *>(QCoreApplication::instance());
        modify(1);
        m_archive->execute(LedgerPath(m_values), u"UPDATE Fatture SET Importo=NULL WHERE Npag=2"_s);
        QTimer::singleShot(0, main(), [this] {
            list().setRow(3);
            click(main(), u"Command4"_s);
        });
        QCOMPARE(application.run([] { return true; }), 1);
        QCOMPARE(m_messages.size(), 2); // the question, then the report
        for (const QString &part : {u"Saldoro.mdb"_s, u"Fatture"_s, u"Importo"_s, u"Pagamento: 2"_s,
                                    u"saldoro-archivio"_s})
            QVERIFY2(m_messages[1].contains(part), qUtf8Printable(m_messages[1]));
        QVERIFY(closes(company()) && main()->close());
        QVERIFY(!hasDocuments());
        QCOMPARE(m_ended->count(), 0);
        QCOMPARE(m_archive->ledgerRows(u"SELECT Npag FROM Fatture"_s), u"1\n2"_s);
    }

private:
    static void click(const QWidget *form, const QString &name)
    {
        auto *button = form ? form->findChild<QAbstractButton *>(name) : nullptr;
        if (!button)
            QFAIL(qPrintable(u"no "_s + name));
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
    }
    static int numberOf(const InvoiceForm *form) { return form ? form->paymentNumber() : -1; }
    static bool closes(InvoiceForm *form) { return form && form->close(); }
    /** To whatever has the focus in the active window. */
    static void type(const QString &text)
    {
        QVERIFY(QApplication::focusWidget() != nullptr);
        QTest::keyClicks(QApplication::focusWidget(), text);
    }
    TextTable &list() const { return main()->findChild<FlexGrid *>(u"MSFlexGrid1"_s)->table(); }
    FrmPrincipale *main() const { return m_forms->mainForm(); }
    InvoiceForm *company() const { return m_forms->invoiceForm(CreditorKind::Company); }
    InvoiceForm *professional() const { return m_forms->invoiceForm(CreditorKind::Professional); }
    void modify(int row) const
    {
        list().setRow(row);
        click(main(), u"Command3"_s);
    }
    bool hasDocuments() const
    {
        return !QDir(MachinePath(ProjectFolder(m_values))).entryList({u"*.rtf"_s}).isEmpty();
    }

    std::unique_ptr<TestArchive> m_archive;
    ProgramValues m_values;
    std::unique_ptr<FormFlow> m_forms;
    std::unique_ptr<QSignalSpy> m_ended;
    QStringList m_messages;
};

int main(int argc, char *argv[])
{
    Application application(argc, argv);
    TestFormFlow test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_form_flow.moc"
