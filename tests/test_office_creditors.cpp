#include "contracts_archive.h"
#include "file_content.h"
#include "form_driver.h"
#include "office/frm_appalti.h"
#include "office/frm_creditori.h"

#include <QClipboard>
#include <QComboBox>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QTableWidget>

using namespace saldoro;
using namespace Qt::StringLiterals;

/** Companies and professionals that are pasted, and the contractor that is chosen. */
class TestOfficeCreditors : public QObject
{
    Q_OBJECT

private slots:
    /** Creditors join those that are there. */
    void creditors()
    {
        ContractsArchive office;
        const QString contract = office.folder(u"00112"_s) + u"/Appalto.mdb"_s;
        BareFile(contract).rows(u"INSERT INTO SchedaProgetto (Voce, Funzione, Stringa) VALUES "
                                "('I01', 17, 'Ing. Po')"_s);
        BareFile(office.folder(u"00112"_s) + u"/AZIDB.mdb"_s)
            .rows(
                u"INSERT INTO Anag VALUES (2, 'Ada', 'x'), (NULL, 'Senza', 'x'); INSERT INTO Partecip VALUES (1, 4)"_s);
        FrmAppalti form;
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        Play(&form, u"to Elenco, Alt+I"_s);
        QPointer<FrmCreditori> list = form.findChild<FrmCreditori *>();
        QTRY_VERIFY(list && QApplication::activeWindow() == list);
        QGuiApplication::clipboard()->setText(
            u"Nome\tMandanti\nATI Po\tEdil Valle; ; Nova srl;\nNova srl\tUno\n"
            "edil valle\t\nada\t"_s); // who is in the register, and does not take part
        QCOMPARE(QApplication::focusWidget()->objectName(), u"Celle"_s);
        Play(list, u"Ctrl+V"_s);
        QVERIFY(!Find<QPushButton>(*list, u"Scrivi"_s)->isEnabled());
        const auto *cells = Find<QTableWidget>(*Find(*list, u"Imprese"_s), u"Celle"_s);
        QVERIFY(cells->item(0, 0)->textAlignment() & Qt::AlignLeft); // no amounts here
        const auto *known = Find<QListWidget>(*list, u"Imprese_note"_s);
        QCOMPARE(known->item(0)->text() + known->item(1)->text(),
                 u"Edil ValleAda (non partecipa)"_s);
        Play(Find(*list, u"Imprese"_s), u"Del"_s);
        Find<QComboBox>(*list, u"Appaltatore"_s)->setCurrentText(u"ATI Po"_s);
        Play(list, u"Alt+O"_s);
        QGuiApplication::clipboard()->setText(u"Arch. Adda"_s);
        Play(list, u"Ctrl+V, Alt+S"_s);
        QTRY_VERIFY(!list);
        QCOMPARE(office.rows(u"00112"_s, u"AZIDB.mdb"_s,
                             u"SELECT * FROM Anag; SELECT * FROM Partecip; SELECT * FROM Manda"_s),
                 u"4|Edil Valle|\n2|Ada|x\n-|Senza|x\n5|ATI Po|ATI\n6|Nova "
                 u"srl|ATI\n7|Uno|-\n1|4\n2|5\n3|6\n"
                 "4|2\n5|4\n5|6\n6|7"_s);
        QCOMPARE(office.rows(u"00112"_s, u"Appalto.mdb"_s,
                             u"SELECT Voce, Funzione, Stringa, Link FROM SchedaProgetto"_s),
                 u"D0101|-|ATI Po|5\nI01|17|Ing. Po|-\nI02|17|Arch. Adda|-"_s);
        QCOMPARE(QDir(office.folder(u"00112"_s)).entryList({u"* copia *"_s}).size(), 2);
    }

    /** The contractor that is chosen among pasted companies is never another than that, or the one
     *  that was there. */
    void chosenContractor()
    {
        ContractsArchive office;
        BareFile(office.folder(u"00112"_s) + u"/AZIDB.mdb"_s)
            .rows(u"INSERT INTO Anag VALUES (3, 'Alfa', 'x')"_s);
        FrmCreditori form(office.project.archive.values(), nullptr);
        form.setAttribute(Qt::WA_DeleteOnClose, false);
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        auto *box = Find<QComboBox>(form, u"Appaltatore"_s);
        office.saysYes = true; // to the question whether to replace rows
        const auto paste = [&form](const QString &text) {
            QGuiApplication::clipboard()->setText(text);
            Play(Find(form, u"Imprese"_s), u"to Celle, Ctrl+V"_s);
        };
        paste(u"Gamma\nBeta"_s);
        box->setCurrentText(u"Gamma"_s);
        Play(&form, u"F2"_s);
        Play(&form, u"type Gamma srl, Return"_s);
        QTRY_COMPARE(box->currentText(), u"Gamma srl"_s);
        Play(&form, u"Del"_s); // is left out
        QCOMPARE(box->currentText(), u"Edil Valle"_s);
        Play(&form, u"Del"_s);
        for (const auto &[pasted, chosen] : {std::pair(u"Beta\nGamma srl"_s, u"Gamma srl"_s),
                                             {u"Beta\nDelta"_s, u"Edil Valle"_s}}) {
            box->setCurrentText(u"Gamma srl"_s);
            paste(pasted);
            QCOMPARE(box->currentText(), chosen);
        }
        paste(u"Sigma\nSigma"_s); // can't be saved
        Play(&form, u"to Appaltatore, Alt+S"_s);
        QCOMPARE(box->currentText(), u"Edil Valle"_s);
    }

    /** A contractor of the register that is not linked to it, or to another company, gets its link,
     *  though its name stays. */
    void contractorWithoutLink()
    {
        ContractsArchive office;
        BareFile(office.folder(u"00112"_s) + u"/AZIDB.mdb"_s)
            .rows(u"INSERT INTO Anag VALUES (3, 'Alfa', 'x')"_s);
        const QString stored = u"SELECT Stringa, Link FROM SchedaProgetto"_s;
        FrmCreditori *form = nullptr;
        for (const QString &link : {u"NULL"_s, u"0"_s, u"4"_s, u"9"_s}) {
            BareFile(office.folder(u"00112"_s) + u"/Appalto.mdb"_s)
                .rows(u"UPDATE SchedaProgetto SET Stringa = 'Alfa', Link = "_s + link);
            form = new FrmCreditori(office.project.archive.values(), nullptr);
            form->show();
            QVERIFY(QTest::qWaitForWindowActive(form));
            Play(form, u"Alt+S"_s);
            QCOMPARE(office.rows(u"00112"_s, u"Appalto.mdb"_s, stored), u"Alfa|3"_s);
            QVERIFY(office.messages.last().endsWith(u"è ora collegato a «Alfa»."_s));
        }
        // One that the register lacks follows no pasted cell of its name.
        BareFile(office.folder(u"00112"_s) + u"/Appalto.mdb"_s)
            .rows(u"UPDATE SchedaProgetto SET Stringa = 'Zeta'"_s);
        form = new FrmCreditori(office.project.archive.values(), nullptr);
        form->show();
        QVERIFY(QTest::qWaitForWindowActive(form));
        QGuiApplication::clipboard()->setText(u"Zeta"_s);
        Play(Find(*form, u"Imprese"_s), u"to Celle, Ctrl+V"_s);
        Play(form, u"F2"_s);
        Play(form, u"type Altra, Return, Alt+S"_s);
        QCOMPARE(office.rows(u"00112"_s, u"Appalto.mdb"_s, stored), u"Zeta|3"_s);
        QVERIFY(office.rows(u"00112"_s, u"AZIDB.mdb"_s, u"SELECT nominativo FROM Anag"_s)
                    .contains(u"Altra"_s));
    }

    /** A number that anything still refers to is not given to another company, and what another
     *  window has added meanwhile is not added twice. */
    void othersMeanwhile()
    {
        const SoundProject project;
        const ProgramValues &values = project.archive.values();
        project.archive.execute(project.path(u'A'), u"INSERT INTO Manda VALUES (7, 9)"_s);
        const TableRows rows{{u"Nuova"_s, NewValue()}};
        AddCreditors(values, rows, {}, {});
        const QString stored = u"SELECT * FROM Anag; SELECT * FROM Partecip"_s;
        QCOMPARE(project.archive.rows(project.path(u'A'), stored),
                 u"4|Edil Valle|\n10|Nuova|-\n1|10"_s);
        const auto before = ContentsOf(project.folder());
        QVERIFY_THROWS_EXCEPTION(SaldoroError, AddCreditors(values, rows, {}, {}));
        QCOMPARE(ContentsOf(project.folder()), before);
    }

    /** Behind the highest number there is none: nothing is written. */
    void noHigherNumber()
    {
        const SoundProject project;
        const QString path = project.path(u'A');
        project.archive.execute(path, u"INSERT INTO Anag VALUES (2147483647, 'Ultima', 'x')"_s);
        const auto before = ContentsOf(project.folder());
        try {
            AddCreditors(project.archive.values(), {{u"Nuova"_s, NewValue()}}, {}, {});
            QFAIL("was written");
        } catch (const DatabaseError &error) {
            QCOMPARE(error.detail(Detail::Table) + u'.' + error.detail(Detail::Field),
                     u"Anag.ID"_s);
            QVERIFY(error.detail(Detail::File).endsWith(u"AZIDB.mdb"_s));
        }
        QCOMPARE(ContentsOf(project.folder()), before);
    }

    /** A name that does not fit is told: it may be one of many. */
    void tooLongName()
    {
        const SoundProject project;
        const QString name(256, u'x');
        try {
            AddCreditors(project.archive.values(), {{name, NewValue()}}, {}, {});
            QFAIL("was written");
        } catch (const DatabaseError &error) {
            QCOMPARE(error.detail(Detail::Creditor), name);
        }
    }
};

QTEST_MAIN(TestOfficeCreditors)
#include "test_office_creditors.moc"
