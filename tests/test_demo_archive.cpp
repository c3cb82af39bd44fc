#include "common/archive_folders.h"
#include "database_probe.h"
#include "exchange/export.h"
#include "exchange/import.h"
#include "platform/machine_path.h"
#include "test_archive.h"

#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

const QString demo = QStringLiteral(DEMO_FOLDER);

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file " + path.toUtf8());
}

} // namespace

/** The figures of the demo archive agree with each other, as a clerk would check them. */
class TestDemoArchive : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void figures();
    void goesOutAsItCameIn();

private:
    TestArchive m_archive;
    ProgramValues m_values;
};

void TestDemoArchive::initTestCase()
{
    m_values = m_archive.values();
    m_values.ProjectCode = u"demo"_s;
    const QString folder = MachinePath(ProjectFolder(m_values));
    QVERIFY(QDir().mkpath(folder));
    const ImportOutcome outcome = ImportProject({demo, folder, false, false, {}});
    QVERIFY2(outcome.isDone && outcome.remarks.isEmpty(), qPrintable(outcome.remarks));
}

/** Amounts are counted in ten-thousandths; VAT and withholding are rounded to the cent. */
void TestDemoArchive::figures()
{
    DirectConnection ledger(MachinePath(LedgerPath(m_values)));
    QCOMPARE(ledger.run(u"ATTACH '%1' AS b"_s.arg(MachinePath(ContractPath(m_values)))), QString());
    for (const char *wrong :
         {"Importo + ImportoIVA + ifnull(AltriImporti01, 0)"
          " <> (SELECT sum(Importo) FROM Spese WHERE RelNpag = Npag)",
          "abs(ImportoIVA - Importo * (Aliquota / 10000) / 100) > 50",
          "AziProf = 'P' AND Importo <> ImportoPrest + Contributo + CassaPrev",
          "AziProf = 'P' AND (abs(Contributo - ImportoPrest * 4 / 100) > 50 OR CassaPrev <> 0"
          " AND abs(CassaPrev - (ImportoPrest + Contributo) * 2 / 100) > 50)",
          "AziProf = 'P' AND abs(ImportoRA - (ImportoPrest + Contributo)"
          " * (AliquotaRA / 10000) / 100) > 50"})
        QVERIFY2(ledger.run(u"SELECT Npag FROM Fatture WHERE "_s + QLatin1String(wrong)).isEmpty(),
                 wrong);
    QCOMPARE(ledger.run(u"SELECT count(*), min(Npag = rowid) FROM Fatture"_s), u"16|1"_s);
    QCOMPARE(ledger.run(u"SELECT substr(Voce, 1, 1), count(*), sum(Importo) FROM"
                        " b.UltimaPerVariante GROUP BY 1"_s),
             u"A|4|11600000000\nB|22|6900000000"_s);
    QCOMPARE(
        ledger.run(u"SELECT Cod FROM Spese LEFT JOIN b.UltimaPerVariante ON Voce = Cod GROUP BY Cod"
                   " HAVING sum(Spese.Importo) > ifnull(UltimaPerVariante.Importo, 0)"_s),
        u"B03"_s); // is overspent
}

void TestDemoArchive::goesOutAsItCameIn()
{
    const QTemporaryDir folder;
    ExportProject(MachinePath(ProjectFolder(m_values)), folder.path());
    const QStringList files = QDir(demo).entryList({u"*.csv"_s});
    QCOMPARE(files.size(), 8);
    for (const QString &file : files)
        QCOMPARE(contentOf(folder.filePath(file)), contentOf(demo + u'/' + file));
}

QTEST_GUILESS_MAIN(TestDemoArchive)
#include "test_demo_archive.moc"
