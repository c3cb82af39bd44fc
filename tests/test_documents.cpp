#include "common/archive_folders.h"
#include "common/errors.h"
#include "database/database.h"
#include "overview/overview_document.h"
#include "overview/payment_statement.h"
#include "platform/machine_path.h"
#include "rtf_text.h"
#include "test_archive.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

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
        for (int column = 0; column < cells.size(); ++column)
            overview.setText(overview.rows() - 1, column, cells.at(column));
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
            if (line.startsWith(u"Numero"))
                numbers += line.section(u": "_s, 1);
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
    void boxesCarryOver();
    void overviewLinesHaveOneWidth();
    void closingAgainReplacesWhatIsThere();
    void anUnmappedCodeStopsAtItsRegisterEntry();
    void moreThan32767PaymentsOfAKind();
};

void TestDocuments::closingWritesAndRegistersEverything()
{
    Project project;
    for (const int number : {9, 4, 7})
        project.addPayment(u"P"_s, number, number);
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
    for (const int number : {1, 2, 3})
        project.addPayment(u"A"_s, number, number);
    const Database ledger = Database::open(LedgerPath(project.values));
    RecordSet payments = ledger.openRecordSet(u"SELECT * FROM Fatture"_s);
    for (int number = 1; number <= 2; ++number, payments.moveNext()) {
        ComponiTestoPagamento(LedgerPayment(payments), project.values);
        earlier += u"\r\n"_s + project.values.TestoPagamento;
    }
    ComponiTestoPagamento(LedgerPayment(payments), project.values);
    const QString last = project.values.TestoPagamento;
    project.close();
    QCOMPARE(project.document(u"P98"_s).text, MeantText(earlier));
    QCOMPARE(project.document(u"P99"_s).text, MeantText(last));
    QCOMPARE(project.document(u"P99P"_s).text, MeantText(last));
}

void TestDocuments::boxesCarryOver()
{
    // kinds of the payments => which of them the four documents hold
    const QString cases = u"=>,name,,name A=>,1,,1 AA=>+ 1,2,,2 PP=>,name,+ 1,2 PA=>,2,,1 "
                          "PAPA=>+ 2,4,+ 1,3 X=>,name,,name p=>,name,,1"_s;
    for (const QString &row : cases.split(QRegularExpression(u" (?=[A-Zp])"_s))) {
        const QString kinds = row.section(u"=>"_s, 0, 0);
        const QString documents = row.section(u"=>"_s, 1);
        Project project;
        for (int i = 0; i < kinds.size(); ++i)
            project.addPayment(kinds.sliced(i, 1), i + 1, 10);
        project.values.TotaleLiquidato = Currency::fromWhole(5);
        project.close();
        const QStringList written{project.numbersIn(u"P98"_s), project.numbersIn(u"P99"_s),
                                  project.numbersIn(u"P98P"_s), project.numbersIn(u"P99P"_s)};
        QCOMPARE(written.join(u','), documents);
        // Without overview rows the boxes keep their first font.
        QCOMPARE(project.document(u"P99"_s).font, u"MS Sans Serif"_s);
        const qint64 companies = kinds.count(u'A') * 102500;
        // A kind in lower case is a company's among the professionals.
        const qint64 professionals = kinds.count(u'P') * 112500 + kinds.count(u'p') * 102500;
        QCOMPARE(project.archive.contractRows(u"SELECT Importo FROM SchedaProgetto WHERE Voce LIKE"
                                              " 'QS1%' ORDER BY Voce"_s),
                 u"%1\n%2\n%3"_s.arg(companies).arg(professionals).arg(companies + professionals));
    }
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
    for (const QString &line : lines.first(3))
        QCOMPARE(line.toUcs4().size(), 93);
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

void TestDocuments::anUnmappedCodeStopsAtItsRegisterEntry()
{
    Project project;
    project.archive.execute(CodesPath(project.values),
                            u"DELETE FROM Funzioni WHERE CodInt = 'P98'"_s);
    QString report;
    try {
        project.close();
    } catch (const SaldoroError &error) {
        report = error.message();
    }
    QVERIFY2(report.startsWith(u"Nessun record corrente"), qPrintable(report));
    QVERIFY2(report.contains(u"\nCodice: P98\n"), qPrintable(report));
    QCOMPARE(project.registeredItems(), u"QDPQDP"_s);
    QVERIFY(QFile::exists(project.path(u".rtf"_s)));
    QVERIFY(!QFile::exists(project.path(u"P99PP99P.rtf"_s)));
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
    QString report;
    try {
        project.close();
    } catch (const OverflowError &error) {
        report = error.message();
    }
    QVERIFY2(report.contains(u"\nPagamenti: alle aziende\n"), qPrintable(report));
    QCOMPARE(project.numbersIn(u"P99"_s), u"32767"_s);
    QCOMPARE(project.entries(), registered);
}

QTEST_GUILESS_MAIN(TestDocuments)
#include "test_documents.moc"
