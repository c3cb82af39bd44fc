#include "archive_probe.h"
#include "common/errors.h"
#include "file_content.h"
#include "overview/closing_work.h"
#include "platform/machine_path.h"
#include "rtf_text.h"

#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

/** A project whose external codes are the internal ones, doubled. */
struct Project
{
    Project()
    {
        archive.execute(
            CodesPath(values),
            u"INSERT INTO Funzioni SELECT value, value || value, 'Descr. ' || value"
            " FROM json_each('[\"QDP\",\"P98\",\"P99\",\"P98P\",\"P99P\",\"QS1A\",\"QS1P\","
            "\"QS1T\"]')"_s);
        overview.setRows(1);
    }
    /** Payments of so many euros as their numbers, and 0,25 of VAT. */
    void addPayments(const QString &kind, const QList<int> &numbers) const
    {
        for (const int number : numbers)
            archive.execute(
                LedgerPath(values),
                u"INSERT INTO Fatture VALUES ('%1',%2,NULL,NULL,NULL,'{è}' || char(13,10)"
                " || '€ 😀' || char(13,10),NULL,0,%2*10000,2500,0,0,0,0,0,10000)"_s.arg(kind)
                    .arg(number));
    }
    /** Closes; the error's report, if any. */
    QString close()
    {
        try {
            WriteProjectDocuments(values, overview);
        } catch (const SaldoroError &error) {
            return error.message();
        }
        return {};
    }
    QString path(const QString &name) const
    {
        return MachinePath(ProjectFolder(values) + u'\\' + name);
    }
    QString documents() const
    {
        return QDir(path({}))
            .entryList({u"*.rtf*"_s}, QDir::Files | QDir::Hidden, QDir::Name)
            .join(u' ');
    }
    RtfContent document(const QString &code) const
    {
        return ReadRtf(ContentOf(path(code + code + u".rtf"_s)));
    }
    /** Which payments the four documents of statements tell of, "+" after a leading line break;
     *  "name" for a box never filled. */
    QString numbers() const
    {
        QStringList all;
        for (const QString &code : {u"P98"_s, u"P99"_s, u"P98P"_s, u"P99P"_s}) {
            const QString text = document(code).text;
            QStringList found{text.startsWith(u'\n') ? u"+"_s : QString()};
            for (const QString &line : text.split(u'\n')) {
                if (line.startsWith(u"Numero"))
                    found += line.section(u": "_s, 1);
            }
            all += text.startsWith(u"RichTextBox") ? u"name"_s : found.join(u' ').trimmed();
        }
        return all.join(u',');
    }
    QString sheet(const QString &columns) const
    {
        return archive.contractRows(u"SELECT %1 FROM SchedaProgetto ORDER BY rowid"_s.arg(columns));
    }

    TestArchive archive;
    ProgramValues values = archive.values();
    TextTable overview{5};
};

} // namespace

class TestDocuments : public QObject
{
    Q_OBJECT

private slots:
    void closingWritesAndRegistersEverything()
    {
        Project project;
        project.addPayments(u"P"_s, {9, 4, 7});
        project.addPayments(u"A"_s, {500, 3});
        AddRow(project.overview, {u"A01"_s, u"Scavi"_s, u"1,00"_s, u"2,00"_s, u"-1,00"_s});
        QCOMPARE(project.close(), QString());
        QCOMPARE(project.documents(),
                 u"P98P98.rtf P98PP98P.rtf P99P99.rtf P99PP99P.rtf QDPQDP.rtf"_s);
        QCOMPARE(project.numbers(), u"+ 3,500,+ 4 7,9"_s);
        for (const QString &code : {u"QDP"_s, u"P98"_s, u"P99"_s, u"P98P"_s, u"P99P"_s}) {
            QCOMPARE(project.document(code).font, u"Courier New"_s);
            QVERIFY(project.document(code).fixedPitch);
        }
        QCOMPARE(
            project.sheet(u"Voce, Funzione, Descri, NomeFile, Stringa, Importo"_s),
            u"QDPQDP|0|Descr. QDP|QDPQDP.rtf|-|-\nP98P98|0|Descr. P98|P98P98.rtf|-|-\n"
            "P99P99|0|Descr. P99|P99P99.rtf|-|-\nQS1AQS1A|0|Descr. QS1A|-|€ 503,50|5035000\n"
            "P98PP98P|0|Descr. P98P|P98PP98P.rtf|-|-\nP99PP99P|0|Descr. P99P|P99PP99P.rtf|-|-\n"
            "QS1PQS1P|0|Descr. QS1P|-|€ 23,75|237500\nQS1TQS1T|0|Descr. QS1T|-|€ 527,25|5272500"_s);
    }

    /** Those of a kind stand as they are, one below the other, but for the last; what the total
     *  adds up is not rounded. */
    void statements()
    {
        Project project;
        const QString payment =
            u"INSERT INTO Fatture VALUES ('%1', %2, 'ing. Niccolò D''Amìco', ' 1 2\u00a0 ',"
            " '2002-03-05', replace(' riga 1||{riga} 3|', '|', char(13, 10)), 'Saldo ', NULL,"
            " 123456789500, 2080050, 200000, 10000000, -400050, 200049, 2000000, 1500000)"_s;
        const QString nulls =
            u"INSERT INTO Fatture (AziProf, Npag, Importo, ImportoIVA, ImportoPrest, Contributo,"
            " CassaPrev, ImportoRA) VALUES ('P', 11, 12080000, -80000, 0, 0, 0, 0)"_s;
        for (const QString &sql : {nulls, payment.arg(u"A"_s).arg(13), payment.arg(u"P"_s).arg(12)})
            project.archive.execute(LedgerPath(project.values), sql);
        QCOMPARE(project.close(), QString());
        QCOMPARE(project.document(u"P98P"_s).text.section(u'\n', 0, 6),
                 u"\nNumero Pagamento ...........: 11\n"
                 "Creditore ..................: \n"
                 "Descrizione ................: \n"
                 "Titolo (fattura) ...........: Nr.  del \n"
                 "Importo totale pagato ......: 1.200,00\n"
                 "Altri Importi ..............: 0,00"_s);
        const QString professional =
            u"Numero Pagamento ...........: 12\r\n"
            "Creditore ..................: ing. Niccolò D'Amìco\r\n"
            "Descrizione ................: Saldo \r\n"
            "Titolo (fattura) ...........: Nr. 1 2\u00a0 del 05/03/2002\r\n"
            "Importo totale pagato ......: 12.346.036,96\r\n"
            "Altri Importi ..............: 150,00\r\n"
            "Elenco analitico voci spesa \r\n"
            "  Importo Prestazione ......: 1.000,00\r\n"
            "  Contributo pre.le 4% .....: -40,01\r\n"
            "  Cassa Previdenza 2% ......: 20,00\r\n"
            "  Iva lavori ...............: 208,01\r\n"
            "  Importo R.A. .............: 200,00\r\n"
            "  Note ..:\r\n"
            " riga 1\r\n\r\n{riga} 3\r\n"_s;
        QCOMPARE(project.document(u"P99P"_s).text, MeantText(professional));
        QCOMPARE(project.document(u"P99"_s).text,
                 MeantText(u"Numero Pagamento ...........: 13\r\n"_s +
                           professional.section(u"\r\n"_s, 1, 3) +
                           u"\r\nImporto totale pagato ......: 12.345.886,96\r\n"
                           "Elenco analitico voci spesa \r\n"
                           "  Importo lavori ...........: 12.345.678,95\r\n"
                           "  Iva lavori ...............: 208,01\r\n"
                           "Note ..:\r\n"
                           " riga 1\r\n\r\n{riga} 3\r\n"_s));
        QCOMPARE(project.sheet(u"group_concat(Importo)"_s),
                 u"123458869550,123472369550,246931239100"_s);
    }

    /** What a kind without payments finds in the boxes is written once more. A kind in lower case
     *  stands among the professionals and counts like a company's. */
    void boxesCarryOver()
    {
        const QString cases = u" ,name,,name 0 0 0|A ,1,,1 12500 0 12500|AA + 1,2,,2 35000 0 35000|"
                              "PP ,name,+ 1,2 0 55000 55000|PA ,2,,1 22500 22500 45000|"
                              "PAPA + 2,4,+ 1,3 65000 65000 130000|X ,name,,name 0 0 0|"
                              "p ,name,,1 0 12500 12500"_s;
        for (const QString &row : cases.split(u'|')) {
            Project project;
            const QString kinds = row.section(u' ', 0, 0);
            for (int i = 0; i < kinds.size(); ++i)
                project.addPayments(kinds.sliced(i, 1), {i + 1});
            project.values.TotaleLiquidato = Currency::fromWhole(5);
            QCOMPARE(project.close(), QString());
            const QString totals = project.archive.contractRows(
                u"SELECT group_concat(Importo, ' ') FROM (SELECT Importo FROM SchedaProgetto"
                " WHERE Voce LIKE 'QS1%' ORDER BY Voce)"_s);
            QCOMPARE(kinds + u' ' + project.numbers() + u' ' + totals, row);
            // Without overview rows the boxes keep their first font.
            QCOMPARE(project.document(u"P99"_s).font, u"MS Sans Serif"_s);
        }
    }

    void overviewLinesHaveOneWidth()
    {
        Project project;
        AddRow(project.overview, {u"A01"_s, {}, u"1.000,00"_s, u"0,00"_s, u"-200,00"_s});
        AddRow(project.overview, {u"ABCDEFG"_s, QString(40, u'è'), QString(20, u'1'),
                                  QString(20, u'2'), QString(20, u'3')});
        AddRow(project.overview, {u"😀😀"_s, u"😀"_s.repeated(36), u"0"_s, {}, {}});
        QCOMPARE(project.close(), QString());
        const QString blanks(50, u' ');
        const QStringList lines{u"A01  "_s + blanks.first(37) +
                                    u"1.000,00         0,00             -200,00          "_s,
                                u"ABCDE"_s + QString(35, u'è') + u"  "_s + QString(17, u'1') +
                                    QString(17, u'2') + QString(17, u'3'),
                                u"😀😀   "_s + u"😀"_s.repeated(35) + u"  0"_s + blanks, QString()};
        QCOMPARE(project.document(u"QDP"_s).text, lines.join(u'\n'));
        for (const QString &line : lines.first(3))
            QCOMPARE(line.toUcs4().size(), 93);
    }

    void closingAgainReplacesWhatIsThere()
    {
        Project project;
        project.addPayments(u"A"_s, {1});
        project.close();
        const QFileInfo document(project.path(u"P99P99.rtf"_s));
        QVERIFY(QFile::rename(document.filePath(), document.path() + u"/p99P99.RTF"_s));
        project.archive.execute(LedgerPath(project.values), u"UPDATE Fatture SET Npag = 8"_s);
        QCOMPARE(project.close(), QString());
        QCOMPARE(project.documents().count(u".rtf"_s, Qt::CaseInsensitive), 5);
        QCOMPARE(project.numbers(), u",8,,8"_s);
        QCOMPARE(project.sheet(u"count(*)"_s), u"8"_s);
    }

    void anUnmappedCodeStopsAtItsRegisterEntry()
    {
        Project project;
        project.archive.execute(CodesPath(project.values),
                                u"DELETE FROM Funzioni WHERE CodInt = 'P98'"_s);
        const QString report = project.close();
        QVERIFY2(report.startsWith(u"Nessun record corrente"), qPrintable(report));
        QVERIFY2(report.contains(u"\nCodice: P98\n"), qPrintable(report));
        QCOMPARE(project.sheet(u"Voce"_s), u"QDPQDP"_s);
        QCOMPARE(project.documents(), u".rtf P99P99.rtf QDPQDP.rtf"_s);
    }

    void moreThan32767PaymentsOfAKind()
    {
        Project project;
        const QString insert =
            u"WITH RECURSIVE n(i) AS (SELECT %1 UNION ALL SELECT i + 1 FROM n WHERE i < %2)"
            " INSERT INTO Fatture (AziProf, Npag, Importo, ImportoIVA)"
            " SELECT 'A', i, 10000, 0 FROM n"_s;
        project.archive.execute(LedgerPath(project.values), insert.arg(1).arg(32767));
        QCOMPARE(project.close(), QString());
        project.archive.execute(LedgerPath(project.values), insert.arg(32768).arg(32768));
        const QString report = project.close();
        QVERIFY2(report.contains(u"\nPagamenti: alle aziende\n"), qPrintable(report));
        QVERIFY(project.document(u"P99"_s).text.contains(u": 32767\n"));
    }
};

QTEST_GUILESS_MAIN(TestDocuments)
#include "test_documents.moc"
