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
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace saldoro;
using namespace Qt::StringLiterals;

/** The main screen, and the real forms tied together, over three payments of which the second is a
 *  professional's. */
class TestFormFlow : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_messages.clear();
        m_answer = MessageAnswer::Yes;
        m_archive = std::make_unique<TestArchive>(u"00451"_s);
        AddStandardCodes(m_archive->values());
        PlantItems(*m_archive, u"('L1','Lavori',90000000),('S1','Sicurezza',2500000)"_s,
                   u"(1,'L1',1220000),(2,'S1',650000),(3,'L1',305000)"_s);
        PlantThreePayments(*m_archive);
        m_archive->execute(ContractPath(m_archive->values()),
                           u"INSERT INTO SchedaProgetto (Voce) VALUES ('M0097_2'),('M0097_22')"_s);
        m_values = m_archive->values();
        ReplaceMessageBoxes([this](MessageKind kind, const QString &text) {
            m_messages += text;
            return kind == MessageKind::Question ? m_answer : MessageAnswer::Ok;
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

    void opensFilled()
    {
        QCOMPARE(main()->windowTitle(), u"SALDORO APPALTO (00451)"_s);
        QCOMPARE(BodyText(list()), u"1|Rossi S.r.l.|15/03/2021|122,00|€\n"
                                   "2|Ing. Bò|02/04/2021|65,00|€\n"
                                   "3|Cave Unite|20/05/2021|30,50|€"_s);
        QCOMPARE(BodyText(main()->overviewTable()), u"L1|Lavori|9.000,00|152,50|8.847,50\n"
                                                    "S1|Sicurezza|250,00|65,00|185,00"_s);
        QCOMPARE(main()->overviewTable().row(), 1);
        QVERIFY(main()->windowFlags() & Qt::WindowStaysOnTopHint);
        const QPoint off = main()->frameGeometry().center() - main()->screen()->geometry().center();
        QVERIFY2(off.manhattanLength() <= 4, "centred");
        QStringList order;
        for (int step = 0; step < 6 && QApplication::focusWidget(); ++step, act(u"tab"_s))
            order += QApplication::focusWidget()->accessibleName();
        QCOMPARE(order.join(u'|'),
                 u"Saldoro effettuati|Quadro di disponibilità|Nuovo|Modifica|Elimina|Chiudi"_s);
    }

    /** Which form opens with which number. */
    void obeysKeysAndClicks()
    {
        for (const auto &[steps, opened] : {std::pair{u"Command3"_s, u"A 3"_s}, // the last row
                                            {u"up enter"_s, u"P 2"_s},
                                            {u"up up Command3"_s, u"A 1"_s},
                                            {u"up tab tab tab enter"_s, u"P 2"_s},
                                            {u"double"_s, u"P 2"_s},
                                            {u"tab up enter canc"_s, QString()}, // in the overview
                                            {u"altm"_s, u"A 3"_s},
                                            {u"alte altn"_s, question(3) + u" new 4"_s},
                                            {u"altq tab enter"_s, u"new 4"_s}}) {
            cleanup();
            init();
            m_answer = MessageAnswer::No;
            act(steps);
            QTRY_COMPARE(told(), opened);
        }
    }

    void deletes()
    {
        for (const MessageAnswer answer : {MessageAnswer::No, MessageAnswer::Yes}) {
            const bool deleted = answer == MessageAnswer::Yes;
            cleanup();
            init();
            m_answer = answer;
            m_archive->execute(LedgerPath(m_values), // all of that number go, whoever wrote them
                               u"INSERT INTO Fatture (Npag) VALUES (2);"
                               "INSERT INTO Spese (RelNpag, Cod) VALUES (2, 'X'), (22, 'X')"_s);
            act(deleted ? u"up Command4"_s : u"up canc"_s);
            QCOMPARE(told(), question(2));
            QCOMPARE(m_archive->ledgerRows(u"SELECT group_concat(Npag) FROM Fatture; "
                                           "SELECT group_concat(RelNpag) FROM Spese"_s),
                     deleted ? u"1,3\n1,3,22"_s : u"1,2,3,2\n1,2,3,2,22"_s);
            QCOMPARE(m_archive->contractRows(u"SELECT group_concat(Voce) FROM SchedaProgetto"_s),
                     deleted ? u"M0097_22"_s : u"M0097_2,M0097_22"_s);
            QCOMPARE(list().rows(), deleted ? 3 : 4);
            QCOMPARE(main()->overviewTable().text(2, 3), deleted ? u"0,00"_s : u"65,00"_s);
            QVERIFY(main()->isVisible() && main()->isLoaded());
            QCOMPARE(takeDocuments(), 0);

            // With payment 2 gone row 2 lists payment 3, but still goes by its own place.
            m_messages.clear();
            act(u"Command4 Command3 Command1"_s);
            QCOMPARE(told(), (deleted ? u"%1 A 2 new 3"_s : u"%1 P 2 new 4"_s).arg(question(2)));
            QCOMPARE(list().rows(), deleted ? 3 : 4);
        }
    }

    void leavesAnEmptyLedgerAlone()
    {
        m_archive->execute(LedgerPath(m_values), u"DELETE FROM Fatture"_s);
        main()->load();
        QVERIFY(!main()->findChild<QWidget *>(u"Command3"_s)->isEnabled());
        act(u"enter canc Command4 Command3 Command1"_s);
        QCOMPARE(told(), u"new 1"_s);
    }

    void refreshesTheOverviewAlone()
    {
        m_archive->execute(LedgerPath(m_values),
                           u"DELETE FROM Fatture; DELETE FROM Spese WHERE Cod = 'S1'"_s);
        main()->RefreshProspetto();
        QCOMPARE(main()->overviewTable().text(2, 3), u"0,00"_s);
        QCOMPARE(list().rows(), 4);
    }

    void newPaymentReachesTheList()
    {
        click(main(), u"Command1"_s);
        QVERIFY(m_forms->chooser()->isVisible());
        QVERIFY(!main()->isEnabled() && !main()->close() && main()->isVisible());
        click(m_forms->chooser(), u"Option4"_s);
        click(m_forms->chooser(), u"Command1"_s);
        QVERIFY(main()->isEnabled());
        QCOMPARE(told(), u"P 4"_s);
        QVERIFY(QTest::qWaitForWindowActive(professional()));
        type(professional(), "Arch. Neri");
        professional()->findChild<QWidget *>(u"MaskEdBox1"_s)->setFocus();
        type(professional(), "05062021");
        click(professional(), u"Command1"_s);
        QCOMPARE(told(), u"Gli importi non coincidono continuare ? "_s);
        QCOMPARE(
            m_archive->ledgerRows(u"SELECT AziProf, Creditore, Del FROM Fatture WHERE Npag=4"_s),
            u"P|Arch. Neri|2021-06-05"_s);
        QCOMPARE(list().text(4, 1), u"Arch. Neri"_s);
        QVERIFY(main()->isVisible() && main()->isLoaded());
        QCOMPARE(takeDocuments(), 5);
        QCOMPARE(m_ended->count(), 0);
    }

    void annullaChangesNothing()
    {
        click(main(), u"Command1"_s);
        click(m_forms->chooser(), u"Command2"_s);
        QCOMPARE(told(), QString());
        QVERIFY(main()->isEnabled());
        QCOMPARE(main()->focusWidget(), main()->findChild<QWidget *>(u"Command1"_s));
        QCOMPARE(takeDocuments(), 0);
        click(main(), u"Command2"_s);
        QCOMPARE(m_ended->count(), 1);
        QCOMPARE(takeDocuments(), 5);
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
        QCOMPARE(told(), u"A 1 P 2"_s);
        QVERIFY(QTest::qWaitForWindowActive(first));
        QVERIFY(!first->isMinimized());

        click(first, u"Command1"_s); // saves, though payment 3 is current
        QCOMPARE(list().text(1, 1), u"!Rossi S.r.l."_s);
        m_messages.clear();
        modify(3);
        QCOMPARE(told(), u"A 3 P 2"_s);
        QVERIFY(closes(professional()) && closes(company()));
        QCOMPARE(m_ended->count(), 0);
        QVERIFY(main()->close());
        QCOMPARE(m_ended->count(), 1);
    }

    void mainFormClosedFirstComesBack()
    {
        modify(1);
        QVERIFY(main()->close());
        QVERIFY(!main()->isVisible() && !main()->isLoaded());
        QCOMPARE(takeDocuments(), 5);
        main()->close(); // is done already
        QCOMPARE(m_ended->count(), 0);
        m_archive->execute(LedgerPath(m_values), u"UPDATE Fatture SET Creditore='Altri'"_s);
        click(company(), u"Command2"_s);
        QVERIFY(!company() && main()->isVisible() && main()->isLoaded());
        QCOMPARE(list().text(1, 1), u"Altri"_s);
        QCOMPARE(takeDocuments(), 0); // there was nothing on screen to be written
        QCOMPARE(m_ended->count(), 0);
    }

    void reloadKeepsThePlace()
    {
        act(u"tab"_s);
        main()->showMaximized();
        const QRect place = main()->geometry();
        main()->reload();
        QVERIFY(main()->isVisible() && main()->isLoaded() && main()->isMaximized());
        QCOMPARE(main()->geometry(), place);
        QTRY_COMPARE(QApplication::focusWidget(), main()->findChild<QWidget *>(u"MSFlexGrid1"_s));
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
        QCOMPARE(told(), u"A 4"_s);
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
            QCoreApplication::exit(0); // if no error has ended it
        });
        QCOMPARE(application.run([] { return true; }), 1);
        QCOMPARE(m_messages.size(), 2); // the question, then the report
        for (const QString &part : {u"Saldoro.mdb"_s, u"Fatture"_s, u"Importo"_s, u"Pagamento: 2"_s,
                                    u"saldoro-archivio"_s})
            QVERIFY2(m_messages[1].contains(part), qUtf8Printable(m_messages[1]));
        main()->setInUse(false); // nor does that keep it open now
        QVERIFY(closes(company()) && main()->close());
        QCOMPARE(takeDocuments(), 0);
        QCOMPARE(m_ended->count(), 0);
        QCOMPARE(m_archive->ledgerRows(u"SELECT Npag FROM Fatture"_s), u"1\n2"_s);
    }

private:
    static QString question(int row)
    {
        return u"Sei sicuro di vole eliminare il pagamento N°%1"_s.arg(row);
    }
    static bool closes(InvoiceForm *form) { return form && form->close(); }
    static void click(const QWidget *form, const QString &name)
    {
        auto *button = form ? form->findChild<QAbstractButton *>(name) : nullptr;
        if (!button)
            QFAIL(qPrintable(u"no "_s + name));
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
    }
    /** To whatever has the focus in the form. */
    static void type(const QWidget *form, const char *text)
    {
        for (; *text != '\0'; ++text)
            QTest::keyClick(form->windowHandle(), *text);
    }
    FlexGrid *grid() const { return main()->findChild<FlexGrid *>(u"MSFlexGrid1"_s); }
    TextTable &list() const { return grid()->table(); }
    FrmPrincipale *main() const { return m_forms->mainForm(); }
    InvoiceForm *company() const { return m_forms->invoiceForm(CreditorKind::Company); }
    InvoiceForm *professional() const { return m_forms->invoiceForm(CreditorKind::Professional); }
    void modify(int row) const
    {
        list().setRow(row);
        click(main(), u"Command3"_s);
    }
    /** Steps in the main form, joined by blanks: a key, Alt and a letter, a double click on row 2,
     *  or a click; no form that opens keeps the next one away. */
    void act(const QString &steps) const
    {
        static const QHash<QString, Qt::Key> keys = {{u"up"_s, Qt::Key_Up},
                                                     {u"tab"_s, Qt::Key_Tab},
                                                     {u"enter"_s, Qt::Key_Return},
                                                     {u"canc"_s, Qt::Key_Delete}};
        for (const QString &step : steps.split(u' ')) {
            if (step == u"double") {
                const QPoint cell = grid()->visualRect(grid()->model()->index(1, 1)).center();
                QTest::mouseClick(grid()->viewport(), Qt::LeftButton, {}, cell);
                QTest::mouseDClick(grid()->viewport(), Qt::LeftButton, {}, cell);
            } else if (step.startsWith(u"alt"))
                QTest::keyClick(main(), step.back().toLatin1(), Qt::AltModifier, 50);
            else if (keys.contains(step))
                QTest::keyClick(main()->windowHandle(), keys.value(step));
            else
                click(main(), step);
        }
    }
    /** What was asked, and which forms are open with their payments. */
    QString told() const
    {
        QStringList all = m_messages;
        for (const InvoiceForm *form : {company(), professional()}) {
            if (form)
                all += (form == company() ? u"A "_s : u"P "_s) +
                       QString::number(form->paymentNumber());
        }
        if (m_forms->chooser())
            all += u"new "_s + QString::number(m_values.CurrentPaymentNumber);
        return all.join(u' ');
    }
    /** Removes the documents in the project folder; how many there were. */
    qsizetype takeDocuments() const
    {
        QDir folder(MachinePath(ProjectFolder(m_values)));
        const QStringList names = folder.entryList({u"*.rtf"_s});
        for (const QString &name : names)
            folder.remove(name);
        return names.size();
    }

    std::unique_ptr<TestArchive> m_archive;
    ProgramValues m_values;
    std::unique_ptr<FormFlow> m_forms;
    std::unique_ptr<QSignalSpy> m_ended;
    QStringList m_messages;
    MessageAnswer m_answer = MessageAnswer::Yes;
};

int main(int argc, char *argv[])
{
    Application application(argc, argv);
    TestFormFlow test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_form_flow.moc"
