#include "common/archive_folders.h"
#include "demo_archive.h"
#include "test_archive.h"

#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

/** The figures of the demo archive agree with each other, as a clerk would check them. */
class TestDemoArchive : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void figures_data();
    void figures();
    void theBudgetAddsUp();
    void oneItemIsOverspent();

private:
    QString ledger(const QString &sql) const { return m_archive.rows(LedgerPath(m_values), sql); }

    TestArchive m_archive;
    ProgramValues m_values;
};

void TestDemoArchive::initTestCase()
{
    m_values = m_archive.values();
    m_values.ProjectCode = u"demo"_s;
    MakeDemoProject(m_values.ArchiveRoot, m_values.ProjectCode);
}

void TestDemoArchive::figures_data()
{
    QTest::addColumn<QString>("wrongRows");
    const QString amounts = u"SELECT Npag FROM Fatture WHERE "_s;
    // Amounts are counted in ten-thousandths; VAT and withholding are rounded to the cent.
    QTest::newRow("allocations add up to the invoice")
        << u"SELECT Npag FROM Fatture WHERE Importo + ImportoIVA + ifnull(AltriImporti01, 0)"
           " <> (SELECT sum(Importo) FROM Spese WHERE RelNpag = Npag)"_s;
    QTest::newRow("VAT") << amounts +
                                u"abs(ImportoIVA - Importo * (Aliquota / 10000) / 100) > 50"_s;
    QTest::newRow("taxable") << amounts + u"AziProf = 'P' AND Importo <> ImportoPrest + Contributo"
                                          " + CassaPrev"_s;
    QTest::newRow("contributions")
        << amounts +
               u"AziProf = 'P' AND (abs(Contributo - ImportoPrest * 4 / 100) > 50 OR CassaPrev"
               " <> 0 AND abs(CassaPrev - (ImportoPrest + Contributo) * 2 / 100) > 50)"_s;
    QTest::newRow("withholding")
        << amounts + u"AziProf = 'P' AND abs(ImportoRA - (ImportoPrest + Contributo)"
                     " * (AliquotaRA / 10000) / 100) > 50"_s;
    QTest::newRow("numbers without a gap")
        << amounts + u"Npag <> rowid OR rowid > 16 OR Creditore IS NULL OR Del IS NULL"_s;
    QTest::newRow("descriptions") << u"SELECT RelNpag FROM Spese WHERE Descrizione IS NULL OR"
                                     " length(Descrizione) > 50 OR length(Cod) > 5"_s;
}

void TestDemoArchive::figures()
{
    QFETCH(QString, wrongRows);
    QCOMPARE(ledger(u"SELECT count(*) FROM Fatture"_s), u"16"_s);
    QCOMPARE(ledger(wrongRows), QString());
}

void TestDemoArchive::theBudgetAddsUp()
{
    const QString sums = u"SELECT substr(Voce, 1, 1), count(*), sum(Importo) FROM"
                         " UltimaPerVariante GROUP BY 1"_s;
    QCOMPARE(m_archive.rows(ContractPath(m_values), sums), u"A|4|11600000000\nB|22|6900000000"_s);
}

void TestDemoArchive::oneItemIsOverspent()
{
    const QString paid = u"SELECT Cod, sum(Importo) FROM Spese GROUP BY Cod"_s;
    QStringList overspent;
    for (const QString &row : ledger(paid).split(u'\n')) {
        const QString budget =
            m_archive.rows(ContractPath(m_values),
                           u"SELECT Importo FROM UltimaPerVariante WHERE Voce = '%1'"_s.arg(
                               row.section(u'|', 0, 0)));
        QVERIFY2(!budget.isEmpty(), qPrintable(row));
        if (row.section(u'|', 1).toLongLong() > budget.toLongLong()) {
            overspent.append(row.section(u'|', 0, 0));
        }
    }
    QCOMPARE(overspent, QStringList{u"B03"_s});
}

QTEST_GUILESS_MAIN(TestDemoArchive)
#include "test_demo_archive.moc"
