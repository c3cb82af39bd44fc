#include "common/ending.h"
#include "common/message_box.h"
#include "controls/flex_grid.h"
#include "overview/frm_principale.h"
#include "overview_probe.h"
#include "platform/machine_path.h"

#include <QApplication>
#include <QScreen>
#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

/** The form over three payments, of which the second is a professional's. */
class TestFrmPrincipale : public QObject
{
    Q_OBJECT

private slots:
    void init()
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
                [tell](CreditorKind kind) { tell(KindCode(kind)); });
        connect(m_form.get(), &FrmPrincipale::unloaded, this, [tell] { tell(u"unloaded"_s); });
        ReplaceMessageBoxes([this](MessageKind, const QString &text) {
            m_told += text;
            return m_answer;
        });
    }

    void cleanup()
    {
        ReplaceMessageBoxes({});
        SetEnding(false);
        m_form.reset();
    }

    void opensFilled()
    {
        open();
        QCOMPARE(m_form->windowTitle(), u"SALDORO APPALTO (00451)"_s);
        QCOMPARE(BodyText(list()), u"1|Rossi S.r.l.|15/03/2021|122,00|€\n"
                                   "2|Ing. Bò|02/04/2021|65,00|€\n"
                                   "3|Cave Unite|20/05/2021|30,50|€"_s);
        QCOMPARE(BodyText(m_form->overviewTable()), u"L1|Lavori|9.000,00|152,50|8.847,50\n"
                                                    "S1|Sicurezza|250,00|65,00|185,00"_s);
        QCOMPARE(m_form->overviewTable().row(), 1);
        QVERIFY(m_form->windowFlags() & Qt::WindowStaysOnTopHint);
        const QPoint off = m_form->frameGeometry().center() - m_form->screen()->geometry().center();
        QVERIFY2(off.manhattanLength() <= 4, "centred");
        QStringList order;
        for (int step = 0; step < 6 && QApplication::focusWidget(); ++step, act(u"tab"_s))
            order += QApplication::focusWidget()->accessibleName();
        QCOMPARE(order.join(u'|'),
                 u"Saldoro effettuati|Quadro di disponibilità|Nuovo|Modifica|Elimina|Chiudi"_s);
    }

    void obeysKeysAndClicks()
    {
        for (const auto &[steps, told] : {std::pair{u"Command3"_s, u"A 3"_s}, // the last row
                                          {u"up enter"_s, u"P 2"_s},
                                          {u"up up Command3"_s, u"A 1"_s},
                                          {u"up tab tab tab enter"_s, u"P 2"_s},
                                          {u"double"_s, u"P 2"_s},
                                          {u"tab up enter canc"_s, QString()}, // in the overview
                                          {u"altm alte"_s, u"A 3|"_s + question(3)},
                                          {u"altq tab enter"_s, u"new 4"_s}}) {
            cleanup();
            init();
            open();
            act(steps);
            QTRY_COMPARE(m_told.join(u'|'), told);
        }
    }

    void deletes()
    {
        for (const MessageAnswer answer : {MessageAnswer::No, MessageAnswer::Yes}) {
            const bool deleted = answer == MessageAnswer::Yes;
            cleanup();
            init();
            open();
            m_answer = answer;
            act(deleted ? u"up Command4"_s : u"up canc"_s);
            QCOMPARE(m_told.join(u'|'), question(2));
            QCOMPARE(m_archive->ledgerRows(u"SELECT group_concat(Npag) FROM Fatture"_s),
                     deleted ? u"1,3"_s : u"1,2,3"_s);
            QCOMPARE(m_archive->contractRows(u"SELECT Voce FROM SchedaProgetto"_s).isEmpty(),
                     deleted);
            QCOMPARE(list().rows(), deleted ? 3 : 4);
            QCOMPARE(m_form->overviewTable().text(2, 3), deleted ? u"0,00"_s : u"65,00"_s);
            QVERIFY(m_form->isVisible() && m_form->isLoaded());
            QCOMPARE(takeDocuments(), 0);

            // With payment 2 gone row 2 lists payment 3, but still goes by its own place.
            m_told.clear();
            act(u"Command3 Command4 Command1"_s);
            QCOMPARE(m_told.join(u'|'),
                     (deleted ? u"A 2|%1|new 3"_s : u"P 2|%1|new 4"_s).arg(question(2)));
            QCOMPARE(list().rows(), deleted ? 3 : 4);
        }
    }

    void leavesAnEmptyLedgerAlone()
    {
        m_archive->execute(LedgerPath(m_values), u"DELETE FROM Fatture"_s);
        open();
        QVERIFY(!control(u"Command3"_s)->isEnabled());
        act(u"enter canc Command4 Command3 Command1"_s);
        QCOMPARE(m_told.join(u' '), u"new 1"_s);
    }

    void refreshesTheOverviewAlone()
    {
        open();
        m_archive->execute(LedgerPath(m_values),
                           u"DELETE FROM Fatture; DELETE FROM Spese WHERE Cod = 'S1'"_s);
        m_form->RefreshProspetto();
        QCOMPARE(m_form->overviewTable().text(2, 3), u"0,00"_s);
        QCOMPARE(list().rows(), 4);
    }

    void writesDocumentsWhenUnloaded()
    {
        m_form->unload(); // nothing is loaded yet
        QCOMPARE(takeDocuments(), 0);
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
        QCOMPARE(takeDocuments(), 0);
        QCOMPARE(m_told.join(u' '), u"unloaded 0"_s);

        SetEnding(true); // an error has been reported: nothing is written then
        m_form->setInUse(false);
        QVERIFY(m_form->close());
        QCOMPARE(takeDocuments(), 0);
    }

private:
    static QString question(int row)
    {
        return u"Sei sicuro di vole eliminare il pagamento N°%1"_s.arg(row);
    }
    QWidget *control(const QString &name) const { return m_form->findChild<QWidget *>(name); }
    FlexGrid *grid() const { return m_form->findChild<FlexGrid *>(u"MSFlexGrid1"_s); }
    const TextTable &list() const { return grid()->table(); }
    void open()
    {
        QVERIFY(!m_form->isLoaded());
        m_form->load();
        m_form->show();
        QVERIFY(QTest::qWaitForWindowActive(m_form.get()));
    }
    /** Steps joined by blanks: a key, Alt and a letter, a double click on row 2, or a click. */
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
                QTest::keyClick(m_form.get(), step.back().toLatin1(), Qt::AltModifier, 50);
            else if (keys.contains(step))
                QTest::keyClick(m_form->windowHandle(), keys.value(step));
            else
                QTest::mouseClick(control(step), Qt::LeftButton);
        }
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
    std::unique_ptr<FrmPrincipale> m_form;
    QStringList m_told; ///< what the form told, with the current payment number, and asked
    MessageAnswer m_answer = MessageAnswer::No;
};

QTEST_MAIN(TestFrmPrincipale)
#include "test_frm_principale.moc"
