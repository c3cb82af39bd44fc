#include "contracts_archive.h"
#include "controls/flex_grid.h"
#include "database_probe.h"
#include "file_content.h"
#include "form_driver.h"
#include "manual_probe.h"
#include "office/form_parts.h"
#include "office/frm_appalti.h"
#include "office/frm_controllo.h"
#include "office/frm_voci.h"
#include "store/project_open_mark.h"

#include <QFileDialog>
#include <QProgressDialog>
#include <QPushButton>
#include <QRegularExpression>
#include <QTableWidget>
#include <QTimer>

using namespace saldoro;
using namespace Qt::StringLiterals;

/** The window of the contracts, driven by keys and clicks. */
class TestOffice : public QObject
{
    Q_OBJECT

private slots:
    /** Each contract in its line, whatever is wrong with the others; read again when the window
     *  becomes active. */
    void list()
    {
        ContractsArchive office;
        DirectConnection locked(office.copy(u"00010"_s, u"Appalto.mdb"_s));
        QCOMPARE(locked.run(u"BEGIN EXCLUSIVE"_s), QString());
        DirectConnection(office.copy(u"00011"_s, u"Saldoro.mdb"_s))
            .run(u"UPDATE Fatture SET Importo = NULL WHERE Npag = 2"_s);
        WriteFile(office.copy(u"00012"_s, u"Appalto.mdb"_s), "no database");
        QFile::remove(office.copy(u"00013"_s, u"Saldoro.mdb"_s)); // never opened
        DirectConnection(office.copy(u"00014"_s, u"Appalto.mdb"_s))
            .run(u"ALTER TABLE UltimaPerVariante ADD COLUMN Nuova TEXT;"
                 "INSERT INTO UltimaPerVariante VALUES ('C','D',10000,'x')"_s);
        FrmAppalti form;
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        const TextTable &list = Find<FlexGrid>(form, u"Elenco"_s)->table();
        const auto *state = Find<QLabel>(form, u"Stato"_s);
        QTRY_COMPARE_WITH_TIMEOUT(
            BodyText(list),
            u"00010|||||||L'archivio è occupato da un altro programma. Appalto.mdb\n"
            "00011|||||||Manca un valore che è necessario. Saldoro.mdb, Fatture, Importo, "
            "pagamento 2\n"
            "00012|||||||Il file non è un archivio dati leggibile oppure è danneggiato. "
            "Appalto.mdb\n"
            "00013|2|9.000,00|0|0,00|9.000,00||\n"
            "00014|3|9.001,00|2|183,50|8.817,50|01/02/2020|\n"
            "00112|2|9.000,00|2|183,50|8.816,50|01/02/2020|"_s,
            15000);
        QTRY_VERIFY(state->text().contains(u"00010: L'archivio è occupato"_s));

        Play(&form, u"to Elenco, End"_s);
        locked.run(u"ROLLBACK"_s);
        office.copy(u"00009"_s);
        QEvent activation(QEvent::ActivationChange);
        QCoreApplication::sendEvent(&form, &activation);
        QTRY_VERIFY(BodyText(list).startsWith(
            u"00009|2|9.000,00|2|183,50|8.816,50|01/02/2020|\n00010|2|9.000,00|"_s));
        QCOMPARE(list.text(list.row(), 0), u"00112"_s);

        QDir().rename(QFileInfo(office.folder({})).path(), office.settings.filePath(u"away"_s));
        QCoreApplication::sendEvent(&form, &activation);
        QTRY_VERIFY(state->text().startsWith(u"Nessun appalto: la cartella degli archivi"_s));
    }

    /** Thousands of lines are cut down, and that is said. */
    void manyLines()
    {
        QListWidget list;
        ShowLines(list, QStringList(1002, u"difetto"_s));
        QCOMPARE(list.count(), 1001);
        QVERIFY(list.item(1000)->text().startsWith(u"Ce ne sono altri 2"_s));
    }

    /** A long check shows how far it is, and is given up by the user without an error. */
    void cancelledCheck()
    {
        ContractsArchive office;
        BareFile(office.folder(u"00112"_s) + u"/Saldoro.mdb"_s)
            .rows(u"WITH RECURSIVE n(i) AS (SELECT 3 UNION ALL SELECT i + 1 FROM n WHERE i < "
                  "1000000) INSERT INTO Spese (RelNpag, Cod, Importo) SELECT i, 'A1', 1 FROM n"_s);
        FrmAppalti form;
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        QTimer user;
        QString shown;
        connect(&user, &QTimer::timeout, &form, [&form, &shown] {
            const auto *box = form.findChild<QProgressDialog *>(u"Avanzamento"_s);
            if (box == nullptr || !box->isVisible())
                return;
            shown = box->labelText();
            QTest::keyClick(box->findChild<QPushButton *>(), Qt::Key_Space);
        });
        user.start(20);
        Play(&form, u"to Elenco, Alt+T"_s);
        QVERIFY2(shown.startsWith("Lettura di "_L1) || shown == "Controllo"_L1, qPrintable(shown));
        const auto *check = form.findChild<FrmControllo *>();
        const auto *findings = Find<QListWidget>(*check, u"Difetti"_s);
        QCOMPARE(findings->count(), 1);
        QVERIFY(findings->item(0)->text().startsWith(u"Il controllo non è arrivato in fondo"_s));
        QVERIFY(office.messages.isEmpty());
    }

    /** Every window has its chapter of the manual. */
    void manual()
    {
        ContractsArchive office;
        FrmAppalti form;
        form.show();
        const QString list = u"L'elenco degli appalti"_s;
        for (const QString &keys : {u"F1"_s, u"to Elenco, Alt+M"_s})
            CheckManual(form, keys, list);
        for (const auto &[key, chapter] : {std::pair(u"Alt+N"_s, u"Copiare, incollare, creare"_s),
                                           {u"Alt+I"_s, list},
                                           {u"Alt+T"_s, u"Controllo degli archivi"_s}}) {
            Play(&form, u"to Elenco, "_s + key);
            QWidget *opened =
                form.findChildren<QWidget *>(QRegularExpression(u"\\AFrm"_s)).value(0);
            QVERIFY2(opened, qPrintable(key));
            CheckManual(*opened, u"F1"_s, chapter);
            Play(opened, u"Esc"_s);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            form.activateWindow();
            QTRY_COMPARE(QApplication::activeWindow(), &form);
        }
    }

    /** Saldoro would look for the contract in the folder that is set now. */
    void folderSetMeanwhile()
    {
        ContractsArchive office;
        FrmAppalti form;
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        StoreArchivesRoot(office.settings.path());
        Play(&form, u"to Elenco, Return"_s);
        QVERIFY(office.messages.takeLast().contains(u"è cambiata nel frattempo"_s));
        QCOMPARE(Find<FlexGrid>(form, u"Elenco"_s)->table().rows(), 1);
        // Where there are no archives, their disk may not be there.
        for (const bool isWanted : {false, true}) {
            office.saysYes = isWanted;
            Play(&form, u"to Elenco, Alt+N"_s);
            QVERIFY(office.messages.takeLast().contains(u"non ci sono archivi"_s));
            QCOMPARE(form.findChild<FrmVoci *>() != nullptr, isWanted);
        }
    }

    /** A contract that is gone for a while, as on a disk in the network, gives way to no other. */
    void vanishedContract()
    {
        ContractsArchive office;
        office.copy(u"00050"_s);
        FrmAppalti form;
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        const TextTable &list = Find<FlexGrid>(form, u"Elenco"_s)->table();
        const auto *open = Find<QPushButton>(form, u"Apri"_s);
        const auto comeBack = [&form] {
            QEvent activated(QEvent::ActivationChange);
            QApplication::sendEvent(&form, &activated);
        };
        Play(&form, u"to Elenco, End"_s);
        QCOMPARE(list.text(list.row(), 0), u"00112"_s);
        const QString folder = office.folder(u"00112"_s);
        QVERIFY(QDir().rename(folder, folder + u".nuovo"_s));
        comeBack();
        QCOMPARE(list.row(), 0);
        QVERIFY(!open->isEnabled());
        QVERIFY(QDir().rename(folder + u".nuovo"_s, folder));
        comeBack();
        QCOMPARE(list.text(list.row(), 0), u"00112"_s);
        QVERIFY(open->isEnabled());
    }

    /** A payment's day that lacks is found and set; copy and CSV files are complete. */
    void checkCopyAndExport()
    {
        ContractsArchive office;
        BareFile(office.folder(u"00112"_s) + u"/Saldoro.mdb"_s)
            .rows(u"UPDATE Fatture SET Del = NULL WHERE Npag = 2"_s);
        FrmAppalti form;
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        Play(&form, u"to Elenco, Alt+T"_s);
        auto *check = form.findChild<FrmControllo *>();
        QTRY_VERIFY(check != nullptr && QApplication::activeWindow() == check);
        const auto *findings = Find<QListWidget>(*check, u"Difetti"_s);
        QCOMPARE(findings->count(), 1);
        QVERIFY(findings->item(0)->text().startsWith(u"Pagamento 2"_s));
        {
            const ProjectOpenMark saldoro(office.folder(u"00112"_s));
            Play(check, u"to Data, type 1/2/20, click Imposta"_s);
            QVERIFY(office.messages.takeLast().contains(u"L'appalto è aperto in Saldoro."_s));
        }
        Play(check, u"click Imposta"_s);
        QCOMPARE(findings->item(0)->text(), u"Nessun difetto."_s);
        QVERIFY(office.messages.last().contains(u"Saldoro copia"_s));
        QCOMPARE(office.rows(u"00112"_s, u"Saldoro.mdb"_s, u"SELECT Npag, Del FROM Fatture"_s),
                 u"1|2020-01-31\n2|2020-02-01"_s);
        Play(check, u"Esc"_s);

        const QTemporaryDir target;
        const auto chooseTarget = [&target] {
            auto *box = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
            QVERIFY(box != nullptr);
            Find<QLineEdit>(*box, u"fileNameEdit"_s)->setText(target.path());
            QTest::keyClick(Find<QLineEdit>(*box, u"fileNameEdit"_s), Qt::Key_Return);
        };
        for (const auto &key : {u"Alt+C"_s, u"Alt+E"_s}) {
            form.activateWindow(); // off screen no window manager does
            QTRY_VERIFY(QApplication::activeWindow() == &form);
            QTimer::singleShot(200, &form, chooseTarget);
            Play(&form, u"to Elenco, "_s + key);
        }
        const QString copy = QDir(target.path()).entryList({u"00112 copia *"_s}).value(0);
        for (const QString &file : {u"Saldoro.mdb"_s, u"Appalto.mdb"_s, u"AZIDB.mdb"_s})
            QCOMPARE(
                BareFile(target.path() + u'/' + copy + u'/' + file).rows(u"PRAGMA quick_check"_s),
                u"ok"_s);
        QVERIFY(ContentOf(target.filePath(u"Fatture.csv"_s)).contains("01/02/2020"));
        QCOMPARE(QDir(target.path()).entryList({u"*.csv"_s}).size(), 8);
    }
};

QTEST_MAIN(TestOffice)
#include "test_office.moc"
