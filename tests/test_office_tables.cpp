#include "contracts_archive.h"
#include "controls/flex_grid.h"
#include "exchange/budget_changes.h"
#include "file_content.h"
#include "form_driver.h"
#include "office/frm_appalti.h"
#include "office/frm_voci.h"
#include "platform/registry.h"
#include "store/project_open_mark.h"

#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPointer>
#include <QPushButton>
#include <QTableWidget>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

/** The window of a new contract, open and active. */
struct NewContract : ContractsArchive
{
    NewContract()
    {
        form.setAttribute(Qt::WA_DeleteOnClose, false);
        form.show();
        if (!QTest::qWaitForWindowActive(&form))
            qFatal("the form did not become active");
    }
    FrmVoci form{project.archive.values().ArchiveRoot, {}, nullptr};
};

} // namespace

/** Budgets that are pasted or dropped: new contracts and variants. */
class TestOfficeTables : public QObject
{
    Q_OBJECT

private slots:
    /** From nothing to a contract that Saldoro can open, by the keyboard. */
    void newContract()
    {
        ContractsArchive office;
        FrmAppalti form;
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        QGuiApplication::clipboard()->setText(
            u"Cod\tVoce di spesa\tImporto\n\tTitolo\t\nA1\tScavi\t1.000,50\nA2\tMuri\t<b>\n"
            "A3\tTetti\t7"_s);
        Play(&form, u"to Elenco, Alt+N"_s);
        auto *items = form.findChild<FrmVoci *>();
        QTRY_VERIFY(items != nullptr && QApplication::activeWindow() == items);
        QCOMPARE(Find<QLineEdit>(*items, u"Codice"_s)->text(), u"00001"_s);
        Play(items, u"to Codice, Tab"_s);
        QCOMPARE(QApplication::focusWidget()->objectName(), u"Colonna_Voce"_s);
        Play(items, u"to Celle, Ctrl+V, Right, Right, F2"_s);
        QVERIFY(Find<QTableWidget>(*items, u"Celle"_s)
                    ->item(3, 0)
                    ->toolTip()
                    .contains(u"«&lt;b&gt;»"_s)); // no markup
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
        Find<QLineEdit>(*items, u"Codice"_s)->setText(u"00114"_s);
        office.copy(u"00114"_s); // by another program
        Play(items, u"Alt+E"_s);
        QVERIFY(Find<QLabel>(*items, u"Problema"_s)->text().contains(u"c'è già"_s));
        QVERIFY(office.rows(u"00114"_s, u"Appalto.mdb"_s, u"SELECT * FROM UltimaPerVariante"_s)
                    .contains(u"Ponti"_s));
        Find<QLineEdit>(*items, u"Codice"_s)->setText(u"00113"_s);
        qputenv("PATH", office.settings.path().toUtf8()); // no Saldoro to be started
        Play(items, u"to Celle, Up, F2"_s);
        Play(items, u"type y, Alt+E"_s); // what is still being typed counts
        QVERIFY(!write->isEnabled());
        Play(items, u"F2"_s);
        Play(items, u"type 4, Return"_s);
        QTRY_VERIFY(write->isEnabled());
        Play(items, u"F2"_s);
        Play(items, u"type 3, Alt+E"_s);
        QTRY_VERIFY(form.findChild<FrmVoci *>() == nullptr);
        QCOMPARE(office.rows(u"00113"_s, u"Appalto.mdb"_s, u"SELECT * FROM UltimaPerVariante"_s),
                 u"A1|Scavi|10005000\nA2|Muri|30000"_s);
        QVERIFY(office.messages.last().contains(u"Saldoro non può essere avviato"_s));
        QTRY_VERIFY(BodyText(Find<FlexGrid>(form, u"Elenco"_s)->table())
                        .contains(u"00113|2|1.003,50|0|0,00|1.003,50||"_s));
    }

    /** The wheel, turned while the pointer is on a box, does not choose another column. */
    void wheelOnAColumn()
    {
        NewContract office;
        FrmVoci &form = office.form;
        QGuiApplication::clipboard()->setText(u"Cod\tVoce\tNetto\tLordo\nA1\tScavi\t1\t2"_s);
        Play(&form, u"to Celle, Ctrl+V, to Colonna_Importo"_s);
        auto *box = Find<QComboBox>(form, u"Colonna_Importo"_s);
        const int chosen = box->currentIndex();
        for (const int turn : {-120, 120}) {
            const QPointF place = box->rect().center();
            QWheelEvent wheel(place, box->mapToGlobal(place), {}, {0, turn}, Qt::NoButton, {},
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(box, &wheel);
            QCOMPARE(box->currentIndex(), chosen);
        }
        Play(&form, u"Down"_s);
        QCOMPARE(box->currentIndex(), chosen + 1);
    }

    /** What the check finds stands in the row that it is about. */
    void faultyCodes()
    {
        NewContract office;
        FrmVoci &form = office.form;
        QGuiApplication::clipboard()->setText(
            u"Cod\tVoce di spesa\tImporto\nA'1\tScavi\t1\nB1\tMuri\t2\nb1\tTetti\t4"_s);
        Play(&form, u"to Celle, Ctrl+V"_s);
        const auto *cells = Find<QTableWidget>(form, u"Celle"_s);
        QStringList faulty;
        for (int row = 0; row < cells->rowCount(); ++row) {
            if (cells->item(row, 0)->text().contains(u"codice"_s))
                faulty += QString::number(row);
        }
        QCOMPARE(faulty.join(u' '), u"1 3"_s);
        QCOMPARE(Find<QLabel>(form, u"Somma"_s)->text().section(u'\n', 0, 0),
                 u"Righe da prendere: 1    Totale: 2,00    Tralasciate: 1    Da correggere: 2"_s);
    }

    /** More items than can be picked from are no fault of one of them; they are written when that
     *  is wanted even so. */
    void moreItemsThanThePickOffers()
    {
        NewContract office;
        FrmVoci &form = office.form;
        QString cells;
        for (int item = 1; item <= 202; ++item)
            cells += u"%1\tScavi\t1\n"_s.arg(item);
        QGuiApplication::clipboard()->setText(cells);
        Play(&form, u"to Celle, Ctrl+V"_s);
        const QString told =
            u"Elenco delle voci: le voci sono 202: «Inserisci» ne può offrire 201"_s;
        QCOMPARE(
            Find<QLabel>(form, u"Somma"_s)->text().section(u" e si"_s, 0, 0),
            u"Righe da prendere: 202    Totale: 202,00    Tralasciate: 0    Da correggere: 0\n"_s +
                told);
        Play(&form, u"Alt+E"_s);
        const auto *refusals = Find<QListWidget>(form, u"Rifiuti"_s);
        QCOMPARE(refusals->count(), 1);
        QVERIFY(refusals->item(0)->text().startsWith(told));
        Play(&form, u"Alt+O"_s);
        QTRY_VERIFY(!form.isVisible());
        QCOMPARE(
            office.rows(u"00001"_s, u"Appalto.mdb"_s, u"SELECT COUNT(*) FROM UltimaPerVariante"_s),
            u"202"_s);
    }

    /** Where the setting can't be written, the new contract is said to be there all the same. */
    void newContractWithoutTheSetting()
    {
        NewContract office;
        if (RegistryFilePath().isEmpty())
            QSKIP("the system has a registry");
        QGuiApplication::clipboard()->setText(u"A1\tScavi\t1"_s);
        const QString settings = QFileInfo(RegistryFilePath()).path();
        QDir(settings).removeRecursively();
        WriteFile(settings, "in the way");
        Play(&office.form, u"to Celle, Ctrl+V, Alt+E"_s);
        QTRY_VERIFY(!office.form.isVisible());
        QCOMPARE(office.messages.size(), 1);
        QVERIFY2(office.messages.first().contains(u"Già fatto: il progetto c'è"_s),
                 qPrintable(office.messages.first()));
    }

    /** CSV files are dropped on the table; where commas part the cells, none of an amount does. */
    void droppedFile()
    {
        NewContract office;
        FrmVoci &form = office.form;
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
        office.saysYes = true; // to the question whether to replace them
        QCOMPARE(drop("A1;Scavi;7\nB1;Muri;8"), u"Righe da prendere: 2    Totale: 15,00"_s);
        Play(&form, u"to Celle, Ctrl+End, Del"_s); // which chooses the row that it goes to
        QVERIFY(Find<QLabel>(form, u"Somma"_s)
                    ->text()
                    .startsWith(u"Righe da prendere: 1    Totale: 7,00"_s));
        // A guess at the letters is told; the header stays out when all rows go and come back.
        QCOMPARE(drop("Voce;Descri;Importo\nA1;Citt\xE0;7"),
                 u"Righe da prendere: 1    Totale: 7,00"_s);
        const auto *sum = Find<QLabel>(form, u"Somma"_s);
        const QString told = sum->text();
        QVERIFY2(told.contains(u"\nvoci.csv, riga 2: non è in UTF-8"_s), qPrintable(told));
        Play(&form, u"to Celle, Ctrl+A, Del"_s);
        QVERIFY(
            sum->text().startsWith(u"Righe da prendere: 0    Totale: 0,00    Tralasciate: 2"_s));
        Play(&form, u"Del"_s);
        QCOMPARE(sum->text(), told);
    }

    /** A variant says what changes, is refused where payments lose their item, and written even
     *  so. */
    void variant()
    {
        ContractsArchive office;
        FrmAppalti form;
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        {
            const ProjectOpenMark saldoro(office.folder(u"00112"_s));
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
        QFile::remove(office.folder(u"00112"_s) + u"/Saldoro.mdb"_s); // never opened: unpaid
        QVERIFY(!CompareBudget(office.folder(u"00112"_s), {}).first().isPaid);
    }
};

QTEST_MAIN(TestOfficeTables)
#include "test_office_tables.moc"
