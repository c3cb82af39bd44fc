#include "common/amount_text.h"
#include "common/date_text.h"
#include "common/errors.h"
#include "common/number_text.h"
#include "random_seed.h"

#include <QDir>
#include <QRegularExpression>
#include <QTest>

#include <random>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

constexpr qint64 largest = std::numeric_limits<qint64>::max();
constexpr qint64 smallest = std::numeric_limits<qint64>::min();

/** A count of ten-thousandths in Italian notation, to four decimals and ungrouped. */
QString written(qint64 scaled)
{
    const QString digits = QString::number(scaled).remove(u'-').rightJustified(5, u'0');
    return (scaled < 0 ? u"-"_s : QString()) + digits.chopped(4) + u',' + digits.right(4);
}

/** The same to two decimals, half away from zero, and grouped. */
QString shown(qint64 scaled)
{
    static const QRegularExpression groupEnd(u"\\B(?=([0-9]{3})+,)"_s);
    const quint64 magnitude = scaled < 0 ? -static_cast<quint64>(scaled) : quint64(scaled);
    QString text = QString::number((magnitude + 50) / 100).rightJustified(3, u'0');
    text.insert(text.size() - 2, u',');
    return (scaled < 0 ? u"-"_s : QString()) + text.replace(groupEnd, u"."_s);
}

} // namespace

class TestAmounts : public QObject
{
    Q_OBJECT

private slots:
    void shownAmounts()
    {
        QCOMPARE(FormatImporto(Currency::fromScaled(smallest)), u"-922.337.203.685.477,58"_s);
        QCOMPARE(FormatImportoEuro(Currency::fromScaled(-1)), u"€ -0,00"_s);
        QCOMPARE(FormatImportoEuro(Currency()), QString());
    }

    /** Other amounts in each run. */
    void randomAmounts()
    {
        std::mt19937_64 random(RandomSeed());
        for (int left = 50'000; left > 0; --left) {
            const auto any = static_cast<qint64>(random()) >> (random() % 64);
            QCOMPARE(FormatImporto(Currency::fromScaled(any)), shown(any));
            // Fifteen digits: within them every amount has a floating number of its own.
            const qint64 scaled = any % 1'000'000'000'000'000;
            QString text = written(scaled);
            text.append(
                QStringList{{}, u" euro"_s, u",5"_s, u"-"_s, u" €"_s}[qint64(random() % 5)]);
            for (const QChar stray : {u'.', u' '})
                text.insert(qint64(random() % size_t(text.size())), stray);
            QString plain = QString(text).remove(u'.');
            plain[plain.indexOf(u',')] = u'.';
            QCOMPARE(text + u'=' + QString::number(ImportoDaTesto(QString(text)).scaled()),
                     text + u'=' + QString::number(scaled));
            QCOMPARE(PuntoDecimale(text), plain);
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
        const Currency top = Currency::fromScaled(largest);
        const Currency bottom = Currency::fromScaled(smallest);
        const Currency least = Currency::fromScaled(1);
        QCOMPARE((top + bottom).scaled(), qint64{-1});
        QCOMPARE((top - least + least).scaled(), largest);
        QCOMPARE(Currency::fromWhole(-922'337'203'685'477).scaled(), -9'223'372'036'854'770'000);
        QCOMPARE(Currency::fromDouble(-922'337'203'685'477.5808).scaled(), smallest);
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
    }

    void textsOfFields()
    {
        QString text = u"1.2,3,4"_s;
        QCOMPARE(PuntoDecimale(text), u"12.3,4"_s);
        QCOMPARE(FormatData(DataDaTesto(u"1/2/29"_s)), u"01/02/2029"_s);
        QCOMPARE(FormatData(DataDaTesto(u"1/2/30"_s)), u"01/02/1930"_s);
    }

    void rateTexts()
    {
        QCOMPARE(RateText(22.0), u"22"_s);
        QCOMPARE(RateText(-0.0), u"0"_s);
        QCOMPARE(RateText(0.1 + 0.2), u"0.3"_s);
        QCOMPARE(RateText(-4.25), u"-4.25"_s);
    }

    void errorReports()
    {
        DatabaseError error(DatabaseFault::NullValue, u"/dati/Saldoro.mdb"_s, u"Fatture"_s,
                            u"Del"_s);
        error.addDetail(Detail::Payment, u"14"_s);
        error.addDetail(Detail::Field, u"altro"_s);
        QCOMPARE(QString::fromUtf8(error.what()),
                 error.problem() + u"\nFile: "_s +
                     QDir::toNativeSeparators(u"/dati/Saldoro.mdb"_s) +
                     u"\nTabella: Fatture\nCampo: Del\nPagamento: 14\n\n"_s + error.remedy());
    }
};

QTEST_GUILESS_MAIN(TestAmounts)
#include "test_amounts.moc"
