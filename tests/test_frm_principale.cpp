#include "common/ending.h"
#include "common/message_box.h"
#include "controls/flex_grid.h"
#include "overview/frm_principale.h"
#include "overview_probe.h"
#include "platform/machine_path.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

/** The form over three payments, of which the second is a professional's. */
class TestFrmPrincipale : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void opensFilled();
    void obeysKeysAndClicks_data();
    void obeysKeysAndClicks();
    void deletes_data();
    void deletes();
    void leavesAnEmptyLedgerAlone();
    void refreshesTheOverviewAlone();
    void writesDocumentsWhenUnloaded();

private:
    QWidget *control(const QString &name) const { return m_form->findChild<QWidget *>(name); }
    const TextTable &list() const
    {
        return m_form->findChild<FlexGrid *>(u"MSFlexGrid1"_s)->table();
    }
    void open();
    /** Steps joined by blanks: a key, Alt and a letter, a double click on row 2, or a click. */
    void act(const QString &steps) const;
    void doubleClickSecondRow() const;
    /** Removes the documents in the project folder; how many there were. */
    qsizetype takeDocuments() const;

    std::unique_ptr<TestArchive> m_archive;
    ProgramValues m_values;
    std::unique_ptr<FrmPrincipale> m_form;
    /** What the form told, with the current payment number, and asked. */
    QStringList m_told;
    MessageAnswer m_answer = MessageAnswer::No;
};

void TestFrmPrincipale::init()
{
    m_told.clear();
    m_answer = MessageAnswer::No;
    m_archive = std::make_unique<TestArchive>(u"00451"_s);
    m_archive->build().addStandardCodes();
    m_values = m_archive->values();
    PlantItems(*m_archive, u"('L1','Lavori',90000000),('S1','Sicurezza',2500000)"_s,
               u"(1,'L1',1220000),(2,'S1',650000),(3,'L1',305000)"_s);
    PlantThreePayments(*m_archive);
    m_archive->execute(ContractPath(m_values),
                       u"INSERT INTO SchedaProgetto (Voce) VALUES ('M0097_2')"_s);
    m_form = std::make_unique<FrmPrincipale>(m_values);
    const auto tell = [this](const QString &what) {
        m_told += what + u' ' + QString::number(m_values.CurrentPaymentNumber);
    };
    connect(m_form.get(), &FrmPrincipale::nuovoRequested, this, [tell] { tell(u"new"_s); });
    connect(m_form.get(), &FrmPrincipale::openPaymentRequested, this,
            [tell](CreditorKind kind) { tell(kind == CreditorKind::Company ? u"A"_s : u"P"_s); });
    connect(m_form.get(), &FrmPrincipale::unloaded, this, [tell] { tell(u"unloaded"_s); });
    ReplaceMessageBoxes([this](MessageKind, const QString &text) {
        m_told += text;
        return m_answer;
    });
}

void TestFrmPrincipale::cleanup()
{
    ReplaceMessageBoxes({});
    SetEnding(false);
    m_form.reset();
}

void TestFrmPrincipale::open()
{
    m_form->load();
    m_form->show();
    QVERIFY(QTest::qWaitForWindowActive(m_form.get()));
}

void TestFrmPrincipale::act(const QString &steps) const
{
    static const QHash<QString, Qt::Key> keys = {{u"up"_s, Qt::Key_Up},
                                                 {u"tab"_s, Qt::Key_Tab},
                                                 {u"enter"_s, Qt::Key_Return},
                                                 {u"canc"_s, Qt::Key_Delete}};
    for (const QString &step : steps.split(u' ')) {
        if (step == u"double")
            doubleClickSecondRow();
        else if (step.startsWith(u"alt"))
            QTest::keyClick(m_form.get(), step.back().toLatin1(), Qt::AltModifier, 50);
        else if (keys.contains(step))
            QTest::keyClick(QApplication::focusWidget(), keys.value(step));
        else
            QTest::mouseClick(control(step), Qt::LeftButton);
    }
}

void TestFrmPrincipale::doubleClickSecondRow() const
{
    auto *grid = m_form->findChild<FlexGrid *>(u"MSFlexGrid1"_s);
    const QPoint cell = grid->visualRect(grid->model()->index(1, 1)).center();
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell);
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, cell);
}

qsizetype TestFrmPrincipale::takeDocuments() const
{
    QDir folder(MachinePath(ProjectFolder(m_values)));
    const QStringList names = folder.entryList({u"*.rtf"_s});
    for (const QString &name : names)
        folder.remove(name);
    return names.size();
}

void TestFrmPrincipale::opensFilled()
{
    QVERIFY(!m_form->isLoaded());
    open();
    QCOMPARE(m_form->windowTitle(), u"SALDORO APPALTO (00451)"_s);
    QCOMPARE(BodyText(list()), u"1|Rossi S.r.l.|15/03/2021|122,00|€\n"
                               "2|Ing. Bò|02/04/2021|65,00|€\n"
                               "3|Cave Unite|20/05/2021|30,50|€"_s);
    QCOMPARE(BodyText(m_form->overviewTable()), u"L1|Lavori|9.000,00|152,50|8.847,50\n"
                                                "S1|Sicurezza|250,00|65,00|185,00"_s);
    QVERIFY(m_form->windowFlags() & Qt::WindowStaysOnTopHint);
    const QPoint off = m_form->frameGeometry().center() - m_form->screen()->geometry().center();
    QVERIFY2(off.manhattanLength() <= 4, "centred");
    QStringList order;
    for (int step = 0; step < 6 && QApplication::focusWidget(); ++step, act(u"tab"_s))
        order += QApplication::focusWidget()->accessibleName();
    QCOMPARE(order.join(u'|'),
             u"Saldoro effettuati|Quadro di disponibilità|Nuovo|Modifica|Elimina|Chiudi"_s);
}

void TestFrmPrincipale::obeysKeysAndClicks_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("told");
    QTest::newRow("the last row is current") << u"Command3"_s << u"A 3"_s;
    QTest::newRow("Enter on a row") << u"up enter"_s << u"P 2"_s;
    QTest::newRow("row by key, then button") << u"up up Command3"_s << u"A 1"_s;
    QTest::newRow("Enter on the button") << u"up tab tab tab enter"_s << u"P 2"_s;
    QTest::newRow("double click") << u"double"_s << u"P 2"_s;
    QTest::newRow("keys in the overview") << u"tab up enter canc"_s << QString();
    QTest::newRow("Alt and letters")
        << u"altm alte altn"_s << u"A 3|Sei sicuro di vole eliminare il pagamento N°3|new 4"_s;
    QTest::newRow("to the overview by Alt and letter") << u"altq tab enter"_s << u"new 4"_s;
}

void TestFrmPrincipale::obeysKeysAndClicks()
{
    QFETCH(const QString, steps);
    QFETCH(const QString, told);
    open();
    act(steps);
    QTRY_COMPARE(m_told.join(u'|'), told);
}

void TestFrmPrincipale::deletes_data()
{
    QTest::addColumn<QString>("step");
    QTest::addColumn<MessageAnswer>("answer");
    QTest::newRow("key, No") << u"canc"_s << MessageAnswer::No;
    QTest::newRow("button, Yes") << u"Command4"_s << MessageAnswer::Yes;
}

void TestFrmPrincipale::deletes()
{
    QFETCH(const QString, step);
    QFETCH(const MessageAnswer, answer);
    const bool deleted = answer == MessageAnswer::Yes;
    open();
    m_answer = answer;
    act(u"up "_s + step);
    QCOMPARE(m_told.join(u'|'), u"Sei sicuro di vole eliminare il pagamento N°2"_s);
    QCOMPARE(m_archive->ledgerRows(u"SELECT group_concat(Npag) FROM Fatture"_s),
             deleted ? u"1,3"_s : u"1,2,3"_s);
    QCOMPARE(m_archive->contractRows(u"SELECT Voce FROM SchedaProgetto"_s).isEmpty(), deleted);
    QCOMPARE(list().rows(), deleted ? 3 : 4);
    QCOMPARE(m_form->overviewTable().text(2, 3), deleted ? u"0,00"_s : u"65,00"_s);
    QVERIFY(m_form->isVisible() && m_form->isLoaded());
    QCOMPARE(takeDocuments(), 0);

    // With payment 2 gone row 2 lists payment 3, but still goes by its own place.
    m_told.clear();
    act(u"Command3 Command4 Command1"_s);
    QCOMPARE(m_told.join(u'|'),
             u"%1|Sei sicuro di vole eliminare il pagamento N°2|%2"_s.arg(
                 deleted ? u"A 2"_s : u"P 2"_s, deleted ? u"new 3"_s : u"new 4"_s));
    QCOMPARE(list().rows(), deleted ? 3 : 4);
}

void TestFrmPrincipale::leavesAnEmptyLedgerAlone()
{
    m_archive->execute(LedgerPath(m_values), u"DELETE FROM Fatture"_s);
    open();
    QVERIFY(!control(u"Command3"_s)->isEnabled());
    act(u"enter canc Command4 Command3 Command1"_s);
    QCOMPARE(m_told.join(u' '), u"new 1"_s);
}

void TestFrmPrincipale::refreshesTheOverviewAlone()
{
    m_form->unload(); // nothing is loaded yet: no documents
    QCOMPARE(takeDocuments(), 0);
    open();
    m_archive->execute(LedgerPath(m_values), u"DELETE FROM Fatture"_s);
    m_archive->execute(LedgerPath(m_values), u"DELETE FROM Spese WHERE Cod = 'S1'"_s);
    m_form->RefreshProspetto();
    QCOMPARE(m_form->overviewTable().text(2, 3), u"0,00"_s);
    QCOMPARE(list().rows(), 4);
}

void TestFrmPrincipale::writesDocumentsWhenUnloaded()
{
    open();
    PlantPayments(*m_archive, "('A',4,'Nuova','2022-01-01',10000,0,NULL)");
    act(u"tab"_s);
    m_form->showMaximized();
    const QRect place = m_form->geometry();
    m_form->reload();
    QVERIFY(m_form->isVisible() && m_form->isLoaded() && m_form->isMaximized());
    QCOMPARE(m_form->geometry(), place);
    QCOMPARE(BodyText(list()).section(u'\n', 3), u"4|Nuova|01/01/2022|1,00|€"_s);
    QTRY_COMPARE(QApplication::focusWidget(), control(u"MSFlexGrid1"_s));
    QCOMPARE(takeDocuments(), 5);

    m_form->close();
    QVERIFY(!m_form->isVisible() && !m_form->isLoaded());
    QCOMPARE(takeDocuments(), 5);
    m_form->close();
    m_form->reload();
    QVERIFY(m_form->isVisible() && m_form->isLoaded());
    QCOMPARE(m_told.join(u' '), u"unloaded 0"_s);

    SetEnding(true); // an error has been reported: nothing is written then
    m_form->setInUse(false);
    QVERIFY(m_form->close());
    QCOMPARE(takeDocuments(), 0);
}

QTEST_MAIN(TestFrmPrincipale)
#include "test_frm_principale.moc"
