// Currency arithmetic and the conversions between amounts, numbers, days and their texts.

#include "common/amount_text.h"
#include "common/date_text.h"
#include "common/errors.h"
#include "common/number_text.h"
#include "common/rounding.h"
#include "common/text_cut.h"

#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

constexpr qint64 Largest = std::numeric_limits<qint64>::max();
constexpr qint64 Smallest = std::numeric_limits<qint64>::min();

} // namespace

class TestAmounts : public QObject
{
    Q_OBJECT

private slots:
    void formatsAmounts()
    {
        const QString cases = u"0 0,00|-1 -0,00|49 0,00|50 0,01|-50 -0,01|9999949 999,99|"
                              "9999950 1.000,00|-2000000 -200,00|87654321098 8.765.432,11|"
                              "9223372036854775807 922.337.203.685.477,58|"
                              "-9223372036854775808 -922.337.203.685.477,58"_s;
        for (const QString &row : cases.split(u'|')) {
            const Currency amount = Currency::fromScaled(row.section(u' ', 0, 0).toLongLong());
            const QString shown = row.section(u' ', 1);
            QCOMPARE(FormatImporto(amount), shown);
            QCOMPARE(FormatImportoEuro(amount), row == u"0 0,00" ? QString() : u"€ "_s + shown);
        }
    }

    void readsAmounts()
    {
        const QString cases = u"7.654,32>7654.32>76543200|3.200.100>3200100>32001000000|"
                              ".1.,2.,3>1.2,3>12000|7,654.32>7.65432>76543|"
                              "18,5 euro>18.5 euro>185000|- 1.250,75>- 1250.75>-12507500|"
                              "circa 5>circa 5>0|>>0|,>.>0"_s;
        for (const QString &row : cases.split(u'|')) {
            QString text = row.section(u'>', 0, 0);
            QString plain = text;
            const QString rewritten = row.section(u'>', 1, 1);
            QCOMPARE(PuntoDecimale(plain), rewritten);
            QCOMPARE(plain, rewritten);
            QCOMPARE(ImportoDaTesto(text).scaled(), row.section(u'>', 2).toLongLong());
            QCOMPARE(text, rewritten);
        }
    }

    void leadingNumber()
    {
        const QString cases = u"1234.56=1234.56|  98 76 . 5 =9876.5|12,75=12|+3.50x=3.5|-.25=-0.25|"
                              ".=0|7.=7|--5=0|1.2.3=1.2|2E-1 euro=0.2|2e3=2000|2e=2|2e+x=2|e5=0|"
                              "x1=0|1x2=1|١٢=0|\t7\n8\r9=789|1\v2=1|1-2=1|1e-400=0|-1e400=-inf"_s;
        for (const QString &row : cases.split(u'|'))
            QVERIFY2(LeadingNumber(row.section(u'=', 0, 0)) == row.section(u'=', 1).toDouble(),
                     qUtf8Printable(row));
    }

    void currencyBounds()
    {
        const Currency top = Currency::fromScaled(Largest);
        const Currency bottom = Currency::fromScaled(Smallest);
        const Currency least = Currency::fromScaled(1);
        QCOMPARE((top + bottom).scaled(), qint64{-1});
        QCOMPARE((top - least + least).scaled(), Largest);
        QCOMPARE(Currency::fromWhole(-922'337'203'685'477).scaled(), -9'223'372'036'854'770'000);
        QCOMPARE(Currency::fromDouble(-922'337'203'685'477.5808).scaled(), Smallest);
        for (const auto &beyond : QList<std::function<void()>>{
                 [=] { top + least; }, [=] { bottom - least; }, [=] { Currency() - bottom; },
                 [] { Currency::fromWhole(922'337'203'685'478); },
                 [] { Currency::fromDouble(922'337'203'685'477.5808); },
                 [] { Currency::fromDouble(std::nan("")); }, [] { ImportoDaTesto(u"1e300"_s); }})
            QVERIFY_THROWS_EXCEPTION(OverflowError, beyond());
        QVERIFY(Currency::fromScaled(-1) < Currency() && Currency() < least);
    }

    /** Decimal ties count as ties, though most have no exact double. */
    void halvesGoToTheEvenNeighbour()
    {
        for (const auto &[value, scaled] : {std::pair{0.00025, 2},
                                            {0.00035, 4},
                                            {-0.00025, -2},
                                            {0.000251, 3},
                                            {0.000349, 3},
                                            {0.1 + 0.2, 3000},
                                            {1234.56 * 22 / 100, 2'716'032}})
            QCOMPARE(Currency::fromDouble(value).scaled(), qint64{scaled});
        QCOMPARE(RoundHalfEven<qint32>(2147483646.5), 2147483646);
        QCOMPARE(RoundHalfEven<qint32>(-2147483648.5), std::numeric_limits<qint32>::min());
        QVERIFY(!RoundHalfEven<qint32>(2147483647.5) && !RoundHalfEven<qint32>(-2147483649.0));
    }

    void rateTexts()
    {
        QCOMPARE(RateText(22.0), u"22"_s);
        QCOMPARE(RateText(-0.0), u"0"_s);
        QCOMPARE(RateText(0.1 + 0.2), u"0.3"_s);
        QCOMPARE(RateText(-4.25), u"-4.25"_s);
        QCOMPARE(SignedNumberText(0), u" 0"_s);
        QCOMPARE(SignedNumberText(-3), u"-3"_s);
    }

    void dates()
    {
        const QString cases =
            u"1/2/03=01/02/2003 01/02/29=01/02/2029 1/2/30=01/02/1930 29/2/2024=29/02/2024 "
            "01/02/0100=01/02/0100 31/12/9999=31/12/9999 29/2/2023= 31/4/2024= 0/1/2024= 1/13/2024="
            " 001/2/2024= 1/2= 01/02/= 01/02/3= 01/02/203= 01/02/0099= 1/2/20244= 1/2/2024/= "
            "__/__/____= "
            "a/2/2024= +1/2/2024= ١/2/2024= ="_s;
        for (const QString &row : cases.split(u' '))
            QCOMPARE(FormatData(DataDaTesto(row.section(u'=', 0, 0))), row.section(u'=', 1));
        QVERIFY(!DataDaTesto(u"1/2/2024\n"_s).isValid());
    }

    void cutsCountCharacters()
    {
        const QString mixed = u"è€😀x"_s;
        QCOMPARE(CharacterCount(mixed), 4);
        QCOMPARE(LeftCharacters(mixed, 3), u"è€😀"_s);
        QCOMPARE(LeftCharacters(mixed, 2), u"è€"_s);
        QCOMPARE(LeftCharacters(mixed, 9), mixed);
        QCOMPARE(LeftCharacters(mixed, 0), QString());
        QCOMPARE(FixedWidth(mixed, 6), u"è€😀x  "_s);
        QCOMPARE(FixedWidth(u"abcdef"_s, 4), u"abcd"_s);
    }

    void apostrophes() { QCOMPARE(RaddoppiaApici(u"D'Amico '' l'"_s), u"D''Amico '''' l''"_s); }

    void errorReports()
    {
        DatabaseError error(DatabaseFault::NullValue, u"/dati/Saldoro.mdb"_s, u"Fatture"_s,
                            u"Del"_s);
        error.addDetail(u"Pagamento"_s, u"14"_s);
        error.addDetail(u"Campo"_s, u"altro"_s);
        QCOMPARE(
            QString::fromUtf8(error.what()),
            error.problem() +
                u"\nFile: /dati/Saldoro.mdb\nTabella: Fatture\nCampo: Del\nPagamento: 14\n\n"_s +
                error.remedy());
    }
};

QTEST_GUILESS_MAIN(TestAmounts)
#include "test_amounts.moc"
