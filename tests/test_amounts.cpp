// Currency arithmetic and the conversions between amounts, numbers, days and their texts.

#include "common/amount_text.h"
#include "common/currency.h"
#include "common/date_text.h"
#include "common/errors.h"
#include "common/number_text.h"
#include "common/text_cut.h"

#include <QTest>

#include <cmath>
#include <limits>

using namespace saldoro;

namespace {

constexpr qint64 Largest = std::numeric_limits<qint64>::max();
constexpr qint64 Smallest = std::numeric_limits<qint64>::min();

} // namespace

class TestAmounts : public QObject
{
    Q_OBJECT

private slots:
    void formatsAmounts_data();
    void formatsAmounts();
    void readsAmounts_data();
    void readsAmounts();
    void leadingNumber_data();
    void leadingNumber();
    void currencyBounds();
    void doublesRoundTiesToEven();
    void rateTexts();
    void dates_data();
    void dates();
    void cutsCountCharacters();
    void apostrophes();
    void errorReports();
};

void TestAmounts::formatsAmounts_data()
{
    QTest::addColumn<qint64>("scaled");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("euro");
    const auto row = [](qint64 scaled, const char *shown) {
        const QString text = QString::fromUtf8(shown);
        QTest::newRow(shown) << scaled << text
                             << (scaled == 0 ? QString() : QStringLiteral("€ ") + text);
    };
    row(0, "0,00");
    row(-1, "-0,00");
    row(49, "0,00");
    row(50, "0,01");
    row(-50, "-0,01");
    row(9'999'949, "999,99");
    row(9'999'950, "1.000,00");
    row(-2'000'000, "-200,00");
    row(87'654'321'098, "8.765.432,11");
    row(Largest, "922.337.203.685.477,58");
    row(Smallest, "-922.337.203.685.477,58");
}

void TestAmounts::formatsAmounts()
{
    QFETCH(qint64, scaled);
    QTEST(FormatImporto(Currency::fromScaled(scaled)), "shown");
    QTEST(FormatImportoEuro(Currency::fromScaled(scaled)), "euro");
}

void TestAmounts::readsAmounts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("rewritten");
    QTest::addColumn<qint64>("scaled");
    QTest::newRow("grouped") << "7.654,32"
                             << "7654.32" << qint64(76'543'200);
    QTest::newRow("millions") << "3.200.100"
                              << "3200100" << qint64(32'001'000'000);
    QTest::newRow("two commas") << "4,5,6"
                                << "4.5,6" << qint64(45'000);
    QTest::newRow("dots and commas") << ".1.,2.,3"
                                     << "1.2,3" << qint64(12'000);
    QTest::newRow("dot notation") << "7,654.32"
                                  << "7.65432" << qint64(76'543);
    QTest::newRow("words after") << "18,5 euro"
                                 << "18.5 euro" << qint64(185'000);
    QTest::newRow("negative") << "- 1.250,75"
                              << "- 1250.75" << qint64(-12'507'500);
    QTest::newRow("no number") << "circa 5"
                               << "circa 5" << qint64(0);
    QTest::newRow("empty") << ""
                           << "" << qint64(0);
    QTest::newRow("comma only") << ","
                                << "." << qint64(0);
}

void TestAmounts::readsAmounts()
{
    QFETCH(QString, text);
    QString plain = text;
    QTEST(PuntoDecimale(plain), "rewritten");
    QTEST(plain, "rewritten");
    const Currency value = ImportoDaTesto(text);
    QTEST(text, "rewritten");
    QTEST(value.scaled(), "scaled");
}

void TestAmounts::leadingNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("value");
    const auto row = [](const char *text, double value) {
        QTest::newRow(text) << QString::fromUtf8(text) << value;
    };
    row("1234.56", 1234.56);
    row("  98 76 . 5 ", 9876.5);
    row("12,75", 12.0);
    row("+3.50x", 3.5);
    row("-.25", -0.25);
    row(".", 0.0);
    row("--5", 0.0);
    row("1.2.3", 1.2);
    row("2e3", 2000.0);
    row("2E-1 euro", 0.2);
    row("2e", 2.0);
    row("e5", 0.0);
    row("١٢", 0.0);
    row("\t7\n8\r9", 789.0);
    row("1-2", 1.0);
    row("1e-400", 0.0);
    row("1e400", std::numeric_limits<double>::infinity());
}

void TestAmounts::leadingNumber()
{
    QFETCH(QString, text);
    QTEST(LeadingNumber(text), "value");
}

void TestAmounts::currencyBounds()
{
    const Currency top = Currency::fromScaled(Largest);
    const Currency bottom = Currency::fromScaled(Smallest);
    const Currency least = Currency::fromScaled(1);
    QCOMPARE((top + bottom).scaled(), qint64(-1));
    QCOMPARE((top - least + least).scaled(), Largest);
    QVERIFY_THROWS_EXCEPTION(OverflowError, top + least);
    QVERIFY_THROWS_EXCEPTION(OverflowError, bottom - least);
    QVERIFY_THROWS_EXCEPTION(OverflowError, Currency() - bottom);
    QCOMPARE(Currency::fromWhole(-922'337'203'685'477).scaled(), -9'223'372'036'854'770'000);
    QVERIFY_THROWS_EXCEPTION(OverflowError, Currency::fromWhole(922'337'203'685'478));
    QCOMPARE(Currency::fromDouble(-922'337'203'685'477.5808).scaled(), Smallest);
    QVERIFY_THROWS_EXCEPTION(OverflowError, Currency::fromDouble(922'337'203'685'477.5808));
    QVERIFY_THROWS_EXCEPTION(OverflowError, Currency::fromDouble(std::nan("")));
    QVERIFY_THROWS_EXCEPTION(OverflowError, ImportoDaTesto(QStringLiteral("1e300")));
    QVERIFY(Currency::fromScaled(-1) < Currency() && Currency() < least);
}

void TestAmounts::doublesRoundTiesToEven()
{
    const auto scaled = [](double value) { return Currency::fromDouble(value).scaled(); };
    QCOMPARE(scaled(0.00025), qint64(2));
    QCOMPARE(scaled(0.00035), qint64(4));
    QCOMPARE(scaled(-0.00025), qint64(-2));
    QCOMPARE(scaled(0.000251), qint64(3));
    QCOMPARE(scaled(0.000349), qint64(3));
    QCOMPARE(scaled(0.1 + 0.2), qint64(3000));
    QCOMPARE(scaled(1234.56 * 22 / 100), qint64(2'716'032));
}

void TestAmounts::rateTexts()
{
    QCOMPARE(RateText(22.0), QStringLiteral("22"));
    QCOMPARE(RateText(-0.0), QStringLiteral("0"));
    QCOMPARE(RateText(0.1 + 0.2), QStringLiteral("0.3"));
    QCOMPARE(RateText(-4.25), QStringLiteral("-4.25"));
    QCOMPARE(SignedNumberText(12), QStringLiteral(" 12"));
    QCOMPARE(SignedNumberText(-3), QStringLiteral("-3"));
}

void TestAmounts::dates_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown"); // empty: no date
    const auto row = [](const char *text, const char *shown) {
        QTest::newRow(text) << QString::fromUtf8(text) << QString::fromUtf8(shown);
    };
    row("7/4/2025", "07/04/2025");
    row("29/02/24", "29/02/2024");
    row("29/02/2023", "");
    row("31/12/29", "31/12/2029");
    row("01/01/30", "01/01/1930");
    row("12/25/2024", "");
    row("00/01/2024", "");
    row("01/02/", "");
    row("01/02/3", "");
    row("01/02/203", "");
    row("01/02/0099", "");
    row("01/02/0100", "01/02/0100");
    row("1/2/2024/", "");
    row("__/__/____", "");
    row("a/2/2024", "");
    row("+1/2/2024", "");
}

void TestAmounts::dates()
{
    QFETCH(QString, text);
    QTEST(FormatData(DataDaTesto(text)), "shown");
}

void TestAmounts::cutsCountCharacters()
{
    const QString mixed = QStringLiteral("è€😀x");
    QCOMPARE(CharacterCount(mixed), 4);
    QCOMPARE(LeftCharacters(mixed, 3), QStringLiteral("è€😀"));
    QCOMPARE(LeftCharacters(mixed, 2), QStringLiteral("è€"));
    QCOMPARE(LeftCharacters(mixed, 9), mixed);
    QCOMPARE(LeftCharacters(mixed, 0), QString());
    QCOMPARE(FixedWidth(mixed, 6), QStringLiteral("è€😀x  "));
    QCOMPARE(FixedWidth(QStringLiteral("abcdef"), 4), QStringLiteral("abcd"));
    QCOMPARE(FixedWidth(QString(), 2), QStringLiteral("  "));
}

void TestAmounts::apostrophes()
{
    QCOMPARE(RaddoppiaApici(QStringLiteral("D'Amico '' l'")), QStringLiteral("D''Amico '''' l''"));
    QCOMPARE(RaddoppiaApici(QStringLiteral("Rossi")), QStringLiteral("Rossi"));
}

void TestAmounts::errorReports()
{
    DatabaseError error(DatabaseFault::NullValue, QStringLiteral("/dati/Saldoro.mdb"),
                        QStringLiteral("Fatture"), QStringLiteral("Del"));
    error.addDetail(QStringLiteral("Pagamento"), QStringLiteral("14"));
    error.addDetail(QStringLiteral("Campo"), QStringLiteral("altro"));
    QCOMPARE(error.detail(QStringLiteral("Campo")), QStringLiteral("Del"));
    const QString report = QString::fromUtf8(error.what());
    for (const char *piece : {"/dati/Saldoro.mdb", "Fatture", "Del", "Pagamento: 14"})
        QVERIFY2(report.contains(QLatin1String(piece)), piece);
    QVERIFY(report.startsWith(error.problem()) && report.endsWith(error.remedy()));
}

QTEST_GUILESS_MAIN(TestAmounts)
#include "test_amounts.moc"
