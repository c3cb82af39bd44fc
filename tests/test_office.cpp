#include "answered_boxes.h"
#include "controls/flex_grid.h"
#include "database_probe.h"
#include "file_content.h"
#include "form_driver.h"
#include "office/frm_appalti.h"
#include "office/frm_controllo.h"
#include "office/frm_creditori.h"
#include "office/frm_voci.h"
#include "office/task.h"
#include "sound_project.h"
#include "store/archives_root.h"
#include "store/open_project.h"

#include <QClipboard>
#include <QDropEvent>
#include <QFileDialog>
#include <QMimeData>
#include <QPointer>
#include <QProgressDialog>
#include <QTableWidget>
#include <QTimer>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

/** An office whose archive holds the sound project and copies of it. */
class Archive : public AnsweredBoxes
{
public:
    Archive()
    {
        qputenv("XDG_CONFIG_HOME", settings.path().toUtf8());
        StoreArchivesRoot(project.archive.values().ArchiveRoot);
    }

    QString folder(const QString &code) const
    {
        return QFileInfo(project.folder()).path() + u'/' + code;
    }
    /** A copy of the sound project; gives the path of one of its databases. */
    QString copy(const QString &code, const QString &file = {}) const
    {
        QDir().mkpath(folder(code));
        for (const QFileInfo &each : QDir(project.folder()).entryInfoList(QDir::Files))
            QFile::copy(each.filePath(), folder(code) + u'/' + each.fileName());
        return folder(code) + u'/' + file;
    }

    QString rows(const QString &code, const QString &file, const QString &sql) const
    {
        return BareFile(folder(code) + u'/' + file).rows(sql);
    }

    QTemporaryDir settings;
    SoundProject project;
};

} // namespace

/** The window of the contracts, driven by keys and clicks. */
class TestOffice : public QObject
{
    Q_OBJECT

private slots:
    /** Each contract in its line, whatever is wrong with the others; read again when the window
     *  becomes active. */
    void list()
    {
        Archive office;
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
    }

    /** From nothing to a contract that Saldoro can open, by the keyboard; a try before was broken
     *  off. */
    void newContract()
    {
        Archive office;
        QDir().mkpath(office.folder(u"00113.nuovo"_s));
        WriteFile(office.folder(u"00113.nuovo"_s) + u"/AZIDB.mdb.nuovo"_s, "half");
        FrmAppalti form;
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        QGuiApplication::clipboard()->setText(
            u"Cod\tVoce di spesa\tImporto\n\tTitolo\t\nA1\tScavi\t1.000,50\nA2\tMuri\tx\n"
            "A3\tTetti\t7"_s);
        Play(&form, u"to Elenco, Alt+N"_s);
        auto *items = form.findChild<FrmVoci *>();
        QTRY_VERIFY(items != nullptr && QApplication::activeWindow() == items);
        QCOMPARE(Find<QLineEdit>(*items, u"Codice"_s)->text(), u"00001"_s);
        Play(items, u"Ctrl+V, Right, Right, F2"_s);
        Play(items, u"type 2, Return"_s);
        Play(items, u"Down, Del"_s);
        QCOMPARE(
            Find<QLabel>(*items, u"Somma"_s)->text(),
            u"Righe da prendere: 2    Totale: 1.002,50    Tralasciate: 3    Da correggere: 0"_s);
        const auto *write = Find<QPushButton>(*items, u"Scrivi"_s);
        for (const auto &[code, isPossible] : {std::pair(u"00112"_s, false), {u"00113"_s, true}}) {
            Find<QLineEdit>(*items, u"Codice"_s)->setText(code);
            QCOMPARE(write->isEnabled(), isPossible);
        }
        qputenv("PATH", office.settings.path().toUtf8()); // no Saldoro to be started
        Play(items, u"Alt+E"_s);
        QTRY_VERIFY(form.findChild<FrmVoci *>() == nullptr);
        QCOMPARE(office.rows(u"00113"_s, u"Appalto.mdb"_s, u"SELECT * FROM UltimaPerVariante"_s),
                 u"A1|Scavi|10005000\nA2|Muri|20000"_s);
        QVERIFY(!QDir(office.folder(u"00113.nuovo"_s)).exists());
        QVERIFY(office.messages.last().contains(u"Saldoro non può essere avviato"_s));
        QTRY_VERIFY(BodyText(Find<FlexGrid>(form, u"Elenco"_s)->table())
                        .contains(u"00113|2|1.002,50|0|0,00|1.002,50||"_s));
    }

    /** A long task shows how far it is, and is given up by the user without an error. */
    void cancelledTask()
    {
        const Archive office;
        QWidget form;
        form.show();
        QTimer user;
        connect(&user, &QTimer::timeout, &form, [&form] {
            const auto *box = form.findChild<QProgressDialog *>(u"Avanzamento"_s);
            if (box->isVisible() && box->labelText() == "Appalto.mdb"_L1)
                box->findChild<QPushButton *>()->click();
        });
        user.start(50);
        QVERIFY(!AttemptLong(form, u"Copia"_s, [](const TaskStep &step) {
            for (;;)
                step(u"Appalto.mdb"_s);
        }));
        QVERIFY(office.messages.isEmpty());
    }

    /** CSV files are dropped on the table; where commas part the cells, none of an amount does. */
    void droppedFile()
    {
        Archive office;
        FrmVoci form(office.project.archive.values().ArchiveRoot, {}, nullptr);
        form.setAttribute(Qt::WA_DeleteOnClose, false);
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        const auto drop = [&](const QByteArray &content) {
            const QString path = office.settings.filePath(u"voci.csv"_s);
            WriteFile(path, content);
            QMimeData data;
            data.setUrls({QUrl::fromLocalFile(path)});
            const auto *cells = Find<QTableWidget>(form, u"Celle"_s);
            const QPoint place = cells->mapTo(&form, cells->rect().center());
            QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, {});
            QApplication::sendEvent(form.windowHandle(), &enter);
            QDropEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, {});
            QApplication::sendEvent(form.windowHandle(), &event);
            QApplication::processEvents();
            return Find<QLabel>(form, u"Somma"_s)->text().section(u"    "_s, 0, 1);
        };
        QCOMPARE(drop("Voce,Descri,Importo\nA1,Scavi,12,50"),
                 u"Righe da prendere: 0    Totale: 0,00"_s);
        QVERIFY(office.messages.last().startsWith(u"!voci.csv, riga 2: le celle sono 4"_s));
        QCOMPARE(drop("Voce,Descri,Importo\nA1,Scavi,\"12,50\""),
                 u"Righe da prendere: 1    Totale: 12,50"_s);
        office.answer = MessageAnswer::Yes; // to the question whether to replace them
        QCOMPARE(drop("A1;Scavi;7\nB1;Muri;8"), u"Righe da prendere: 2    Totale: 15,00"_s);
    }

    /** A payment's day that lacks is found and set; copy and CSV files are complete. */
    void checkCopyAndExport()
    {
        Archive office;
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
        Play(check, u"to Data, type 01022020, click Imposta"_s);
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

    /** A variant says what changes, is refused where payments lose their item, and written even
     *  so. */
    void variant()
    {
        Archive office;
        FrmAppalti form;
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        {
            const OpenProject saldoro(office.folder(u"00112"_s));
            Play(&form, u"to Elenco, Alt+V"_s);
            QVERIFY(office.messages.takeLast().contains(u"L'appalto è aperto in Saldoro."_s));
        }
        QGuiApplication::clipboard()->setText(u"A1\tScavi\t9.500,00\nC3\tTetti\t1"_s);
        Play(&form, u"to Elenco, Alt+V"_s);
        QPointer<FrmVoci> items = form.findChild<FrmVoci *>();
        QTRY_VERIFY(items && QApplication::activeWindow() == items);
        Play(items, u"Ctrl+V"_s);
        const auto *changes = Find<QListWidget>(*items, u"Confronto"_s);
        QStringList lines;
        for (int row = 0; row < changes->count(); ++row)
            lines.append(changes->item(row)->text());
        QCOMPARE(lines.join(u'\n'), u"B2 (Ponti): tolta, era senza importo, ed è già pagata\n"
                                    "A1 (Scavi): da 9.000,00 a 9.500,00\n"
                                    "C3 (Tetti): nuova, 1,00"_s);
        Play(items, u"Alt+S"_s);
        const auto *refusals = Find<QListWidget>(*items, u"Rifiuti"_s);
        QVERIFY(refusals->isVisible() && refusals->item(0)->text().contains(u"B2"_s));
        const QString budget = u"SELECT * FROM UltimaPerVariante"_s;
        QVERIFY(office.rows(u"00112"_s, u"Appalto.mdb"_s, budget).contains(u"B2"_s));
        Play(items, u"Alt+O"_s);
        QTRY_VERIFY(!items);
        QCOMPARE(office.rows(u"00112"_s, u"Appalto.mdb"_s, budget),
                 u"A1|Scavi|95000000\nC3|Tetti|10000"_s);
        QVERIFY(office.messages.last().contains(u"Appalto copia"_s));
    }

    /** Creditors join those that are there. */
    void creditors()
    {
        Archive office;
        const QString contract = office.folder(u"00112"_s) + u"/Appalto.mdb"_s;
        BareFile(contract).rows(u"INSERT INTO SchedaProgetto (Voce, Funzione, Stringa) VALUES "
                                "('I01', 17, 'Ing. Po')"_s);
        BareFile(office.folder(u"00112"_s) + u"/AZIDB.mdb"_s)
            .rows(u"INSERT INTO Anag VALUES (4, 'Edil Valle', 'x')"_s);
        FrmAppalti form;
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        Play(&form, u"to Elenco, Alt+I"_s);
        QPointer<FrmCreditori> list = form.findChild<FrmCreditori *>();
        QTRY_VERIFY(list && QApplication::activeWindow() == list);
        QGuiApplication::clipboard()->setText(u"Nome\tMandanti\nATI Po\tEdil Valle; Nova srl\n"
                                              "edil valle\t"_s);
        Play(list, u"Ctrl+V"_s);
        QVERIFY(!Find<QPushButton>(*list, u"Scrivi"_s)->isEnabled());
        Play(Find(*list, u"Imprese"_s), u"Del"_s);
        Find<QComboBox>(*list, u"Appaltatore"_s)->setCurrentText(u"ATI Po"_s);
        Play(list, u"Alt+O"_s);
        QGuiApplication::clipboard()->setText(u"Arch. Adda"_s);
        Play(list, u"Ctrl+V, Alt+S"_s);
        QTRY_VERIFY(!list);
        QCOMPARE(office.rows(u"00112"_s, u"AZIDB.mdb"_s,
                             u"SELECT * FROM Anag; SELECT * FROM Partecip; SELECT * FROM Manda"_s),
                 u"4|Edil Valle|x\n5|ATI Po|ATI\n6|Nova srl|-\n1|5\n5|4\n5|6"_s);
        QCOMPARE(office.rows(u"00112"_s, u"Appalto.mdb"_s,
                             u"SELECT Voce, Funzione, Stringa, Link FROM SchedaProgetto"_s),
                 u"D0101|-|ATI Po|5\nI01|17|Ing. Po|-\nI02|17|Arch. Adda|-"_s);
    }
};

QTEST_MAIN(TestOffice)
#include "test_office.moc"
