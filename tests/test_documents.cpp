#include "common/archive_folders.h"
#include "common/errors.h"
#include "overview/document_writer.h"
#include "overview/payment_statement.h"
#include "platform/database.h"
#include "platform/machine_path.h"
#include "platform/rich_text_box.h"
#include "rtf_text.h"
#include "test_archive.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>

#include <functional>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

/** What an action ran into: the failure's text and file, or "none". */
QString failureOf(const std::function<void()> &action)
{
    try {
        action();
    } catch (const SaldoroError &error) {
        return error.problem() + u' ' + QFileInfo(error.detail(u"File"_s)).fileName();
    }
    return u"none"_s;
}

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
}

/** A project whose external codes are the internal ones, doubled. */
class Project
{
public:
    Project()
    {
        archive.execute(
            CodesPath(archive.values()),
            u"INSERT INTO Funzioni (CodInt, CodExt, Desc)"
            " SELECT value, value || value, 'Descr. ' || value FROM json_each("
            "'[\"QDP\",\"P98\",\"P99\",\"P98P\",\"P99P\",\"QS1A\",\"QS1P\",\"QS1T\"]')"_s);
        values = archive.values();
        overview.setRows(1);
    }

    void addPayment(const QString &kind, int number, int euros)
    {
        archive.build().addPayment({{u"AziProf"_s, kind},
                                    {u"Npag"_s, number},
                                    {u"Memo"_s, u"{è}\r\n€ 😀\r\n"_s},
                                    {u"Importo"_s, Currency::fromWhole(euros)},
                                    {u"ImportoIVA"_s, Currency::fromScaled(2500)},
                                    {u"ImportoPrest"_s, Currency()},
                                    {u"Contributo"_s, Currency()},
                                    {u"CassaPrev"_s, Currency()},
                                    {u"ImportoRA"_s, Currency()},
                                    {u"AltriImporti01"_s, Currency::fromWhole(1)}});
    }

    void addOverviewRow(const QStringList &cells)
    {
        overview.setRows(overview.rows() + 1);
        for (int column = 0; column < cells.size(); ++column) {
            overview.setText(overview.rows() - 1, column, cells.at(column));
        }
    }

    void close() { WriteProjectDocuments(values, overview); }
    QString path(const QString &name) const
    {
        return MachinePath(ProjectFolder(values)) + u'/' + name;
    }
    QStringList documents() const
    {
        return QDir(path({})).entryList({u"*.rtf*"_s}, QDir::Files, QDir::Name);
    }
    RtfContent document(const QString &code) const
    {
        return ReadRtf(bytesOf(path(code + code + u".rtf"_s)));
    }
    /** The payments that the statements of a document belong to, "name" for a box never filled. */
    QString numbersIn(const QString &code) const
    {
        const QString text = document(code).text;
        QStringList numbers{text.startsWith(u'\n') ? u"+"_s : u""_s};
        for (const QString &line : text.split(u'\n')) {
            if (line.startsWith(u"Numero")) {
                numbers += line.section(u": "_s, 1);
            }
        }
        return text.startsWith(u"RichTextBox") ? u"name"_s : numbers.join(u' ').trimmed();
    }
    QString entries() const
    {
        return archive.contractRows(u"SELECT Voce, Funzione, Descri, NomeFile, Stringa, Importo"
                                    " FROM SchedaProgetto ORDER BY rowid"_s);
    }
    QString registeredItems() const
    {
        return archive.contractRows(u"SELECT Voce FROM SchedaProgetto ORDER BY rowid"_s)
            .replace(u'\n', u' ');
    }

    TestArchive archive;
    ProgramValues values;
    TextTable overview{5};
};

} // namespace

class TestDocuments : public QObject
{
    Q_OBJECT

private slots:
    void closingWritesAndRegistersEverything();
    void statementsAreJoinedAsTheyStand();
    void boxesCarryOver_data();
    void boxesCarryOver();
    void overviewLinesHaveOneWidth();
    void closingAgainReplacesWhatIsThere();
    void kindInLowerCaseIsACompanyAmongProfessionals();
    void anUnmappedCodeStopsAtItsRegisterEntry();
    void aDocumentThatCantBeWrittenStopsTheRun();
    void moreThan32767PaymentsOfAKind();
    void failedWritesLeaveTheEarlierDocument();
};

void TestDocuments::closingWritesAndRegistersEverything()
{
    Project project;
    for (const int number : {9, 4, 7}) {
        project.addPayment(u"P"_s, number, number);
    }
    project.addPayment(u"A"_s, 5, 100);
    project.addPayment(u"A"_s, 3, 1000);
    project.addOverviewRow({u"A01"_s, u"Scavi"_s, u"1,00"_s, u"2,00"_s, u"-1,00"_s});
    project.close();
    QCOMPARE(project.documents().join(u' '),
             u"P98P98.rtf P98PP98P.rtf P99P99.rtf P99PP99P.rtf QDPQDP.rtf"_s);
    QCOMPARE(project.numbersIn(u"P98"_s), u"+ 3"_s);
    QCOMPARE(project.numbersIn(u"P99"_s), u"5"_s);
    QCOMPARE(project.numbersIn(u"P98P"_s), u"+ 4 7"_s);
    QCOMPARE(project.numbersIn(u"P99P"_s), u"9"_s);
    for (const QString &code : {u"QDP"_s, u"P98"_s, u"P99"_s, u"P98P"_s, u"P99P"_s}) {
        QCOMPARE(project.document(code).font, u"Courier New"_s);
        QVERIFY(project.document(code).fixedPitch);
    }
    QCOMPARE(project.entries(), u"QDPQDP|0|Descr. QDP|QDPQDP.rtf|-|-\n"
                                "P98P98|0|Descr. P98|P98P98.rtf|-|-\n"
                                "P99P99|0|Descr. P99|P99P99.rtf|-|-\n"
                                "QS1AQS1A|0|Descr. QS1A|-|€ 1.100,50|11005000\n"
                                "P98PP98P|0|Descr. P98P|P98PP98P.rtf|-|-\n"
                                "P99PP99P|0|Descr. P99P|P99PP99P.rtf|-|-\n"
                                "QS1PQS1P|0|Descr. QS1P|-|€ 23,75|237500\n"
                                "QS1TQS1T|0|Descr. QS1T|-|€ 1.124,25|11242500"_s);
}

void TestDocuments::statementsAreJoinedAsTheyStand()
{
    Project project;
    QString earlier;
    for (const int number : {1, 2, 3}) {
        project.addPayment(u"A"_s, number, number);
    }
    const Database ledger = Database::open(LedgerPath(project.values));
    RecordSet payments = ledger.openRecordSet(u"SELECT * FROM Fatture"_s);
    for (int number = 1; number <= 2; ++number, payments.moveNext()) {
        ComponiTestoPagamento(payments, project.values);
        earlier += u"\r\n"_s + project.values.TestoPagamento;
    }
    ComponiTestoPagamento(payments, project.values);
    const QString last = project.values.TestoPagamento;
    project.close();
    QCOMPARE(project.document(u"P98"_s).text, MeantText(earlier));
    QCOMPARE(project.document(u"P99"_s).text, MeantText(last));
    QCOMPARE(project.document(u"P99P"_s).text, MeantText(last));
}

void TestDocuments::boxesCarryOver_data()
{
    QTest::addColumn<QString>("kinds");
    QTest::addColumn<QStringList>("documents");
    QTest::newRow("no payments") << u""_s << QStringList{u""_s, u"name"_s, u""_s, u"name"_s};
    QTest::newRow("one company") << u"A"_s << QStringList{u""_s, u"1"_s, u""_s, u"1"_s};
    QTest::newRow("companies") << u"AA"_s << QStringList{u"+ 1"_s, u"2"_s, u""_s, u"2"_s};
    QTest::newRow("professionals") << u"PP"_s << QStringList{u""_s, u"name"_s, u"+ 1"_s, u"2"_s};
    QTest::newRow("one of each") << u"PA"_s << QStringList{u""_s, u"2"_s, u""_s, u"1"_s};
    QTest::newRow("mixed") << u"PAPA"_s << QStringList{u"+ 2"_s, u"4"_s, u"+ 1"_s, u"3"_s};
    QTest::newRow("other kind") << u"X"_s << QStringList{u""_s, u"name"_s, u""_s, u"name"_s};
}

void TestDocuments::boxesCarryOver()
{
    QFETCH(QString, kinds);
    QFETCH(QStringList, documents);
    Project project;
    for (int i = 0; i < kinds.size(); ++i) {
        project.addPayment(kinds.sliced(i, 1), i + 1, 10);
    }
    project.values.TotaleLiquidato = Currency::fromWhole(5);
    project.close();
    const QStringList written{project.numbersIn(u"P98"_s), project.numbersIn(u"P99"_s),
                              project.numbersIn(u"P98P"_s), project.numbersIn(u"P99P"_s)};
    QCOMPARE(written.join(u','), documents.join(u','));
    // Without overview rows the boxes keep their first font.
    QCOMPARE(project.document(u"P99"_s).font, u"MS Sans Serif"_s);
    const qint64 companies = kinds.count(u'A') * 102500;
    const qint64 professionals = kinds.count(u'P') * 112500;
    QCOMPARE(project.archive.contractRows(u"SELECT Importo FROM SchedaProgetto WHERE Voce LIKE"
                                          " 'QS1%' ORDER BY Voce"_s),
             u"%1\n%2\n%3"_s.arg(companies).arg(professionals).arg(companies + professionals));
}

void TestDocuments::overviewLinesHaveOneWidth()
{
    Project project;
    project.addOverviewRow({u"A01"_s, QString(), u"1.000,00"_s, u"0,00"_s, u"-200,00"_s});
    project.addOverviewRow(
        {u"ABCDEFG"_s, QString(40, u'è'), QString(20, u'1'), QString(20, u'2'), QString(20, u'3')});
    project.addOverviewRow({u"😀😀"_s, u"😀"_s.repeated(36), u"0"_s, QString(), QString()});
    project.close();
    const QString blanks(40, u' ');
    const QStringList lines{
        u"A01  "_s + blanks.first(37) + u"1.000,00         0,00             -200,00          "_s,
        u"ABCDE"_s + QString(35, u'è') + u"  "_s + QString(17, u'1') + QString(17, u'2') +
            QString(17, u'3'),
        u"😀😀   "_s + u"😀"_s.repeated(35) + u"  0"_s + blanks + blanks.first(10), QString()};
    QCOMPARE(project.document(u"QDP"_s).text, lines.join(u'\n'));
    for (const QString &line : lines.first(3)) {
        QCOMPARE(line.toUcs4().size(), 93);
    }
}

void TestDocuments::closingAgainReplacesWhatIsThere()
{
    Project project;
    project.addPayment(u"A"_s, 1, 10);
    project.close();
    QVERIFY(QFile::rename(project.path(u"P99P99.rtf"_s), project.path(u"p99P99.RTF"_s)));
    const QByteArray before = bytesOf(project.path(u"p99P99.RTF"_s));
    project.archive.execute(LedgerPath(project.values), u"UPDATE Fatture SET Npag = 8"_s);
    project.close();
    QCOMPARE(project.documents().size(), 5);
    const QString name = QDir(project.path({})).entryList({u"p99p99.rtf"_s}).value(0);
    QCOMPARE(name.toLower(), u"p99p99.rtf"_s);
    QCOMPARE(bytesOf(project.path(name)), QByteArray(before).replace(": 1\\par", ": 8\\par"));
    QCOMPARE(project.registeredItems().count(u' '), 7);
}

void TestDocuments::kindInLowerCaseIsACompanyAmongProfessionals()
{
    Project project;
    project.addPayment(u"p"_s, 1, 10);
    project.close();
    QVERIFY(project.document(u"P99P"_s).text.contains(u"\n  Importo lavori"));
    QCOMPARE(project.values.TotaleLiquidato, Currency::fromScaled(102500));
}

void TestDocuments::anUnmappedCodeStopsAtItsRegisterEntry()
{
    Project project;
    project.archive.execute(CodesPath(project.values),
                            u"DELETE FROM Funzioni WHERE CodInt = 'P98'"_s);
    QVERIFY(failureOf([&] { project.close(); }).startsWith(u"Nessun record corrente"));
    QCOMPARE(project.registeredItems(), u"QDPQDP"_s);
    QVERIFY(QFile::exists(project.path(u".rtf"_s)));
    QVERIFY(!QFile::exists(project.path(u"P99PP99P.rtf"_s)));
}

void TestDocuments::aDocumentThatCantBeWrittenStopsTheRun()
{
    Project project;
    project.addPayment(u"A"_s, 1, 10);
    project.addPayment(u"P"_s, 2, 20);
    QVERIFY(QDir().mkpath(project.path(u"p98pP98P.rtf"_s)));
    QCOMPARE(failureOf([&] { project.close(); }).toLower(),
             u"al posto del documento c'è una cartella. p98pp98p.rtf"_s);
    QCOMPARE(project.documents().join(u' '), u"P98P98.rtf P99P99.rtf P99PP99P.rtf QDPQDP.rtf"_s);
    QCOMPARE(project.registeredItems(), u"QDPQDP P98P98 P99P99 QS1AQS1A"_s);
    QVERIFY(QDir(project.path({})).rename(u"p98pP98P.rtf"_s, u"aside"_s));
    project.close();
    QCOMPARE(project.registeredItems(),
             u"QDPQDP P98P98 P99P99 QS1AQS1A P98PP98P P99PP99P QS1PQS1P QS1TQS1T"_s);
}

void TestDocuments::moreThan32767PaymentsOfAKind()
{
    Project project;
    const QString insert =
        u"WITH RECURSIVE n(i) AS (SELECT %1 UNION ALL SELECT i + 1 FROM n WHERE i < %2)"
        " INSERT INTO Fatture (AziProf, Npag, Importo, ImportoIVA)"
        " SELECT 'A', i, 10000, 0 FROM n"_s;
    project.archive.execute(LedgerPath(project.values), insert.arg(1).arg(32767));
    project.close();
    QCOMPARE(project.numbersIn(u"P99"_s), u"32767"_s);
    QCOMPARE(project.document(u"P98"_s).text.count(u"\nNumero"), 32766);
    const QString registered = project.entries();
    project.archive.execute(LedgerPath(project.values), insert.arg(32768).arg(32768));
    QVERIFY_THROWS_EXCEPTION(OverflowError, project.close());
    QCOMPARE(project.numbersIn(u"P99"_s), u"32767"_s);
    QCOMPARE(project.entries(), registered);
}

void TestDocuments::failedWritesLeaveTheEarlierDocument()
{
    QTemporaryDir folder;
    const QString path = folder.path() + u"\\X.rtf"_s;
    RichTextBox box(u"first"_s);
    QCOMPARE(failureOf([&] { box.saveFile(folder.path() + u"\\none\\X.rtf"_s); }),
             u"La cartella del documento non esiste. X.rtf"_s);
    const auto mount = [&](const QString &options) {
        return QProcess::execute(u"mount"_s, {u"-t"_s, u"tmpfs"_s, u"-o"_s, options, u"tmpfs"_s,
                                              folder.path()}) == 0;
    };
    if (QSysInfo::kernelType() != u"linux"_s || !mount(u"size=256k"_s)) {
        QSKIP("A small file system can't be mounted here");
    }
    box.saveFile(path);
    const QByteArray before = bytesOf(MachinePath(path));
    box.setText(QString(400'000, u'x'));
    const QString full = failureOf([&] { box.saveFile(path); });
    const bool remounted = mount(u"remount,ro"_s);
    const QString refused = failureOf([&] { box.saveFile(path); });
    const QByteArray after = bytesOf(MachinePath(path));
    const QStringList files = QDir(folder.path()).entryList(QDir::Files | QDir::Hidden);
    QCOMPARE(QProcess::execute(u"umount"_s, {folder.path()}), 0);
    QCOMPARE(full, u"Il disco è pieno: il documento non è stato scritto. X.rtf"_s);
    QVERIFY(remounted);
    QCOMPARE(refused, u"Il documento o la sua cartella non accetta modifiche. X.rtf"_s);
    QCOMPARE(after, before);
    QCOMPARE(files.join(u' '), u"X.rtf"_s);
}

QTEST_GUILESS_MAIN(TestDocuments)
#include "test_documents.moc"
