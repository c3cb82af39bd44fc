#include "app/application.h"
#include "open_program.h"

#include <QScreen>
#include <QTimer>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {
QString question(int row)
{
    return u"Sei sicuro di vole eliminare il pagamento N°%1"_s.arg(row);
}

Application &application()
{
    return *static_cast<Application *>(QCoreApplication::instance());
}

} // namespace

class TestFormFlow : public QObject
{
    Q_OBJECT

private slots:
    void opensFilled()
    {
        const OpenProgram program;
        const FrmPrincipale &main = program.main;
        QCOMPARE(main.windowTitle(), u"SALDORO APPALTO (00112)"_s);
        QCOMPARE(BodyText(program.list), u"1|Edil Valle|31/01/2020|122,00|€\n"
                                         "2|Ing. Po|01/02/2020|61,50|€\n"
                                         "3|Cave Unite|20/05/2021|30,50|€"_s);
        QCOMPARE(BodyText(program.overview), u"A1|Scavi|9.000,00|182,00|8.818,00\n"
                                             "B2|Ponti|0,00|1,50|-1,50"_s);
        QCOMPARE(program.overview.row(), 1);
        QVERIFY(main.windowFlags() & Qt::WindowStaysOnTopHint);
        const QPoint off = main.frameGeometry().center() - main.screen()->geometry().center();
        QVERIFY2(off.manhattanLength() <= 4, "centred");
        QStringList order;
        for (int step = 0; step < 6 && main.focusWidget(); ++step, program.play(u"Tab"_s))
            order += main.focusWidget()->accessibleName();
        QCOMPARE(order.join(u'|'),
                 u"Saldoro effettuati|Quadro di disponibilità|Nuovo|Modifica|Elimina|Chiudi"_s);
    }

    /** Which form opens with which number. */
    void obeysKeysAndClicks()
    {
        for (const auto &[steps, opened] :
             {std::pair{u"click Command3"_s, u"A 3"_s}, // the last row
              {u"Up, Return"_s, u"P 2"_s},
              {u"Up, Up, click Command3"_s, u"A 1"_s},
              {u"Up, Tab, Tab, Tab, Return"_s, u"P 2"_s},
              {u"Tab, Up, Return, Del"_s, QString()}, // in the overview
              {u"Alt+M"_s, u"A 3"_s},
              {u"Alt+E, Alt+N"_s, question(3) + u" new 4"_s},
              {u"Alt+Q, Tab, Return"_s, u"new 4"_s}}) {
            OpenProgram program;
            program.saysYes = false;
            program.play(steps);
            QCOMPARE(program.told(), opened);
        }
    }

    void deletes()
    {
        for (const bool deleted : {false, true}) {
            OpenProgram program;
            program.saysYes = deleted;
            program.archive.execute(
                LedgerPath(program.values), // all of that number go, whoever wrote them
                u"INSERT INTO Fatture (Npag) VALUES (2);"
                "INSERT INTO Spese (RelNpag, Cod) VALUES (2, 'X'), (22, 'X')"_s);
            program.play(deleted ? u"Up, click Command4"_s : u"Up, Del"_s);
            QCOMPARE(program.told(), question(2));
            QCOMPARE(program.archive.ledgerRows(u"SELECT group_concat(Npag) FROM Fatture; "
                                                "SELECT group_concat(RelNpag) FROM Spese"_s),
                     deleted ? u"1,3\n1,22"_s : u"1,2,3,2\n1,2,2,2,22"_s);
            QCOMPARE(
                program.archive.contractRows(u"SELECT group_concat(Voce) FROM SchedaProgetto"_s),
                deleted ? u"D0101,M0097_22"_s : u"D0101,M0097_2,M0097_22"_s);
            QCOMPARE(program.list.rows(), deleted ? 3 : 4);
            QCOMPARE(program.overview.text(2, 3), deleted ? u"0,00"_s : u"1,50"_s);
            QVERIFY(program.main.isVisible());
            QCOMPARE(program.takeDocuments(), 0);

            // With payment 2 gone row 2 lists payment 3, but still goes by its own place.
            program.messages.clear();
            program.play(u"click Command4, click Command3, click Command1"_s);
            QCOMPARE(program.told(),
                     (deleted ? u"%1 A 2 new 3"_s : u"%1 P 2 new 4"_s).arg(question(2)));
            QCOMPARE(program.list.rows(), deleted ? 3 : 4);
        }
    }

    void leavesAnEmptyLedgerAlone()
    {
        OpenProgram program;
        program.archive.execute(LedgerPath(program.values), u"DELETE FROM Fatture"_s);
        program.main.reopen();
        QVERIFY(!Find(program.main, u"Command3"_s)->isEnabled());
        program.play(u"Return, Del, click Command4, click Command3, click Command1"_s);
        QCOMPARE(program.told(), u"new 1"_s);
    }

    /** While an invoice form is open a closed main form comes back; without one the program ends.
     */
    void endsWithTheLastForm()
    {
        OpenProgram program;
        QStringList seen;
        const auto see = [&] {
            seen += program.list.text(1, 1) + (program.main.isVisible() ? u"+"_s : u"-"_s) +
                    QString::number(program.takeDocuments());
        };
        const auto closeInvoiceFirst = [&] {
            see();
            program.archive.execute(LedgerPath(program.values),
                                    u"UPDATE Fatture SET Creditore='X'"_s);
            Play(program.company(), u"click Command2"_s);
            see(); // there was nothing on screen to be written
            program.main.close();
        };
        program.modify(1);
        QTimer::singleShot(0, &program.main, [&] {
            program.play(u"click Command2"_s);
            QTimer::singleShot(100, &program.main, closeInvoiceFirst);
        });
        QTimer::singleShot(5000, &program.main, [] { QCoreApplication::exit(9); });
        QCOMPARE(application().run([] { return true; }), 0);
        see();
        QCOMPARE(seen.join(u' '), u"Edil Valle-5 X+0 X-5"_s);
    }

    void reloadKeepsThePlace()
    {
        OpenProgram program;
        program.play(u"Tab"_s);
        program.main.showMaximized();
        const QRect place = program.main.geometry();
        program.main.reopen();
        QVERIFY(program.main.isVisible() && program.main.isMaximized());
        QCOMPARE(program.main.geometry(), place);
        QTRY_COMPARE(QApplication::focusWidget(), program.grid);
    }

    /** What is on the screen does not change before the ledger is open, both tables of it. */
    void aLoadThatCannotBeginLeavesTheScreen()
    {
        OpenProgram program;
        const QString before = BodyText(program.list) + BodyText(program.overview);
        program.archive.execute(LedgerPath(program.values), u"DROP TABLE Spese"_s);
        QVERIFY_THROWS_EXCEPTION(DatabaseError, program.main.load());
        QCOMPARE(BodyText(program.list) + BodyText(program.overview), before);
    }

    void mainFormStaysOutOfUseBelowTheChooser()
    {
        OpenProgram program;
        program.modify(2);
        program.play(u"click Command1"_s);
        Play(program.forms.invoiceForm(CreditorKind::Professional), u"click Command2"_s);
        QVERIFY(program.main.isVisible() && !program.main.isEnabled());
        QTRY_COMPARE(QApplication::activeWindow(), program.chooser());
        program.main.activateWindow(); // as a click on it would
        QTest::qWait(50);              // the signal comes later
        QTRY_COMPARE(QApplication::activeWindow(), program.chooser());
        Play(program.chooser(), u"click Command1"_s);
        QVERIFY(program.main.isEnabled());
        QCOMPARE(program.told(), u"A 4"_s);
    }

    /** The reload after a deletion meets a null; forms that close afterwards write nothing. */
    void errorEndsWithoutClosingWork()
    {
        OpenProgram program;
        program.modify(1);
        program.archive.execute(LedgerPath(program.values),
                                u"UPDATE Fatture SET Importo=NULL WHERE Npag=2"_s);
        QTimer::singleShot(0, &program.main, [&program] {
            program.list.setRow(3);
            program.play(u"click Command4"_s);
            QCoreApplication::exit(0); // if no error has ended it
        });
        QCOMPARE(application().run([] { return true; }), 1);
        QCOMPARE(program.messages.size(), 2); // the question, then the report
        QVERIFY(program.messages.at(1).contains(u"Pagamento: 2\n"_s));
        program.main.setEnabled(false); // nor does that keep it open now
        Play(program.company(), u"click Command2"_s);
        QVERIFY(program.main.close());
        QCOMPARE(program.takeDocuments(), 0);
        QCOMPARE(program.archive.ledgerRows(u"SELECT Npag FROM Fatture"_s), u"1\n2"_s);
    }
};

int main(int argc, char *argv[])
{
    Application application(argc, argv);
    TestFormFlow test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_form_flow.moc"
