#include "app/application.h"
#include "app/form_flow.h"
#include "common/ending.h"
#include "controls/flex_grid.h"
#include "form_driver.h"
#include "invoice/frm_nuova_fattura.h"
#include "overview/frm_principale.h"
#include "overview_probe.h"
#include "platform/machine_path.h"

#include <QScreen>
#include <QTimer>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

/** The main screen, and the real forms tied together, over three payments of which the second is a
 *  professional's. Questions are answered with Yes. */
class Program : public AnsweredBoxes
{
public:
    Program()
    {
        answer = MessageAnswer::Yes;
        AddStandardCodes(values);
        PlantItems(archive, u"('L1','Lavori',90000000),('S1','Sicurezza',2500000)"_s,
                   u"(1,'L1',1220000),(2,'S1',650000),(3,'L1',305000)"_s);
        PlantThreePayments(archive);
        archive.execute(ContractPath(values),
                        u"INSERT INTO SchedaProgetto (Voce) VALUES ('M0097_2'),('M0097_22')"_s);
        forms.showMainForm();
        if (!QTest::qWaitForWindowActive(&main))
            qFatal("the main form did not become active");
    }
    ~Program() { SetEnding(false); }

    FrmNuovaFattura *chooser() const { return forms.chooser(); }
    InvoiceForm *company() { return forms.invoiceForm(CreditorKind::Company); }
    InvoiceForm *professional() { return forms.invoiceForm(CreditorKind::Professional); }
    void play(const QString &steps) const { Play(main, steps); }
    void modify(int row)
    {
        list.setRow(row);
        play(u"click Command3"_s);
    }
    /** What was asked, and which forms are open with their payments. */
    QString told()
    {
        QStringList all = messages;
        for (const InvoiceForm *form : {company(), professional()}) {
            if (form)
                all += (form == company() ? u"A "_s : u"P "_s) +
                       QString::number(form->paymentNumber());
        }
        if (chooser())
            all += u"new "_s + QString::number(values.CurrentPaymentNumber);
        return all.join(u' ');
    }
    /** Removes the documents in the project folder; how many there were. */
    qsizetype takeDocuments() const
    {
        QDir folder(MachinePath(ProjectFolder(values)));
        const QStringList names = folder.entryList({u"*.rtf"_s});
        for (const QString &name : names)
            folder.remove(name);
        return names.size();
    }

    TestArchive archive{u"00451"_s};
    ProgramValues values = archive.values();
    FormFlow forms{values};
    FrmPrincipale &main = *forms.mainForm();
    FlexGrid *const grid = Find<FlexGrid>(main, u"MSFlexGrid1"_s);
    TextTable &list = grid->table();
    const TextTable &overview = main.overviewTable();
};

QString question(int row)
{
    return u"Sei sicuro di vole eliminare il pagamento N°%1"_s.arg(row);
}

bool closes(InvoiceForm *form)
{
    return form && form->close();
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
        const Program program;
        const FrmPrincipale &main = program.main;
        QCOMPARE(main.windowTitle(), u"SALDORO APPALTO (00451)"_s);
        QCOMPARE(BodyText(program.list), u"1|Rossi S.r.l.|15/03/2021|122,00|€\n"
                                         "2|Ing. Bò|02/04/2021|65,00|€\n"
                                         "3|Cave Unite|20/05/2021|30,50|€"_s);
        QCOMPARE(BodyText(program.overview), u"L1|Lavori|9.000,00|152,50|8.847,50\n"
                                             "S1|Sicurezza|250,00|65,00|185,00"_s);
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

    /** Which form opens with which number; "double" is a double click on row 2. */
    void obeysKeysAndClicks()
    {
        for (const auto &[steps, opened] :
             {std::pair{u"click Command3"_s, u"A 3"_s}, // the last row
              {u"Up, Return"_s, u"P 2"_s},
              {u"Up, Up, click Command3"_s, u"A 1"_s},
              {u"Up, Tab, Tab, Tab, Return"_s, u"P 2"_s},
              {u"double"_s, u"P 2"_s},
              {u"Tab, Up, Return, Del"_s, QString()}, // in the overview
              {u"Alt+M"_s, u"A 3"_s},
              {u"Alt+E, Alt+N"_s, question(3) + u" new 4"_s},
              {u"Alt+Q, Tab, Return"_s, u"new 4"_s}}) {
            Program program;
            program.answer = MessageAnswer::No;
            if (steps == "double"_L1) {
                const QPoint cell = program.grid->visualRect(program.list.index(1, 1)).center();
                QTest::mouseClick(program.grid->viewport(), Qt::LeftButton, {}, cell);
                QTest::mouseDClick(program.grid->viewport(), Qt::LeftButton, {}, cell);
            } else
                program.play(steps);
            QCOMPARE(program.told(), opened);
        }
    }

    void deletes()
    {
        for (const MessageAnswer answer : {MessageAnswer::No, MessageAnswer::Yes}) {
            const bool deleted = answer == MessageAnswer::Yes;
            Program program;
            const TestArchive &archive = program.archive;
            program.answer = answer;
            archive.execute(LedgerPath(program.values), // all of that number go, whoever wrote them
                            u"INSERT INTO Fatture (Npag) VALUES (2);"
                            "INSERT INTO Spese (RelNpag, Cod) VALUES (2, 'X'), (22, 'X')"_s);
            program.play(deleted ? u"Up, click Command4"_s : u"Up, Del"_s);
            QCOMPARE(program.told(), question(2));
            QCOMPARE(archive.ledgerRows(u"SELECT group_concat(Npag) FROM Fatture; "
                                        "SELECT group_concat(RelNpag) FROM Spese"_s),
                     deleted ? u"1,3\n1,3,22"_s : u"1,2,3,2\n1,2,3,2,22"_s);
            QCOMPARE(archive.contractRows(u"SELECT group_concat(Voce) FROM SchedaProgetto"_s),
                     deleted ? u"M0097_22"_s : u"M0097_2,M0097_22"_s);
            QCOMPARE(program.list.rows(), deleted ? 3 : 4);
            QCOMPARE(program.overview.text(2, 3), deleted ? u"0,00"_s : u"65,00"_s);
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
        Program program;
        program.archive.execute(LedgerPath(program.values), u"DELETE FROM Fatture"_s);
        program.main.reload();
        QVERIFY(!Find(program.main, u"Command3"_s)->isEnabled());
        program.play(u"Return, Del, click Command4, click Command3, click Command1"_s);
        QCOMPARE(program.told(), u"new 1"_s);
    }

    void newPaymentReachesTheList()
    {
        Program program;
        program.play(u"click Command1"_s);
        QVERIFY(!program.main.isEnabled() && !program.main.close() && program.main.isVisible());
        Play(*program.chooser(), u"click Option4, click Command1"_s);
        QVERIFY(program.main.isEnabled());
        QCOMPARE(program.told(), u"P 4"_s);
        QVERIFY(QTest::qWaitForWindowActive(program.professional()));
        Play(*program.professional(),
             u"type Arch. Neri, to MaskEdBox1, type 05062021, click Command1"_s);
        QCOMPARE(program.told(), u"Gli importi non coincidono continuare ? "_s);
        QCOMPARE(program.list.text(4, 1) + program.list.text(4, 2), u"Arch. Neri05/06/2021"_s);
        QCOMPARE(program.takeDocuments(), 5);
    }

    void annullaChangesNothing()
    {
        Program program;
        program.play(u"click Command1"_s);
        Play(*program.chooser(), u"click Command2"_s);
        QCOMPARE(program.told(), QString());
        QVERIFY(program.main.isEnabled());
        QCOMPARE(program.main.focusWidget(), Find(program.main, u"Command1"_s));
        QCOMPARE(program.takeDocuments(), 0);
    }

    /** An open form comes to the front with its own payment, whatever has been asked for. */
    void eachKindOpensOnce()
    {
        Program program;
        program.modify(1);
        program.modify(2);
        InvoiceForm *const first = program.company();
        QVERIFY(first);
        first->showMinimized();
        Play(*first, u"to Text1_0, type !"_s);
        program.modify(3);
        QCOMPARE(program.company(), first);
        QCOMPARE(program.told(), u"A 1 P 2"_s);
        QVERIFY(QTest::qWaitForWindowActive(first));
        QVERIFY(!first->isMinimized());

        Play(*first, u"click Command1"_s); // saves, though payment 3 is current
        QCOMPARE(program.list.text(1, 1), u"!Rossi S.r.l."_s);
        program.messages.clear();
        program.modify(3);
        QCOMPARE(program.told(), u"A 3 P 2"_s);
    }

    /** While an invoice form is open a closed main form comes back; without one the program ends.
     */
    void endsWithTheLastForm()
    {
        Program program;
        QStringList seen;
        const auto see = [&] {
            seen += program.list.text(1, 1) + (program.main.isVisible() ? u"+"_s : u"-"_s) +
                    QString::number(program.takeDocuments());
        };
        program.modify(1);
        const QList<std::function<void()>> steps{
            [&] { program.play(u"click Command2"_s); },
            [&] {
                program.main.close(); // is done already
                program.archive.execute(LedgerPath(program.values),
                                        u"UPDATE Fatture SET Creditore='X'"_s);
                see();
            },
            [&] { Play(*program.company(), u"click Command2"_s); },
            [&] { see(); }, // there was nothing on screen to be written
            [&] { program.main.close(); },
            [&] { seen += u"still there"_s; }};
        for (int step = 0; step < steps.size(); ++step)
            QTimer::singleShot(100 * step, &program.main, steps.at(step));
        QTimer::singleShot(3000, &program.main, [] { QCoreApplication::exit(9); });
        QCOMPARE(application().run([] { return true; }), 0);
        see();
        QCOMPARE(seen.join(u' '), u"Rossi S.r.l.-5 X+0 X-5"_s);
    }

    void reloadKeepsThePlace()
    {
        Program program;
        program.play(u"Tab"_s);
        program.main.showMaximized();
        const QRect place = program.main.geometry();
        program.main.reload();
        QVERIFY(program.main.isVisible() && program.main.isMaximized());
        QCOMPARE(program.main.geometry(), place);
        QTRY_COMPARE(QApplication::focusWidget(), program.grid);
    }

    void mainFormStaysOutOfUseBelowTheChooser()
    {
        Program program;
        program.modify(2);
        program.play(u"click Command1"_s);
        QVERIFY(closes(program.professional()));
        QVERIFY(program.main.isVisible() && !program.main.isEnabled());
        QTRY_COMPARE(QApplication::activeWindow(), program.chooser());
        program.main.activateWindow(); // as a click on it would
        QTRY_COMPARE(QApplication::activeWindow(), program.chooser());
        Play(*program.chooser(), u"click Command1"_s);
        QVERIFY(program.main.isEnabled());
        QCOMPARE(program.told(), u"A 4"_s);
    }

    /** The reload after a deletion meets a null; forms that close afterwards write nothing. */
    void errorEndsWithoutClosingWork()
    {
        Program program;
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
        const QString report = program.messages.at(1);
        for (const QString &part : {u"Saldoro.mdb"_s, u"Fatture"_s, u"Importo"_s, u"Pagamento: 2"_s,
                                    u"saldoro-archivio"_s})
            QVERIFY2(report.contains(part), qUtf8Printable(report));
        program.main.setEnabled(false); // nor does that keep it open now
        QVERIFY(closes(program.company()) && program.main.close());
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
