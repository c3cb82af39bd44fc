#include "common/errors.h"
#include "invoice/company_amounts.h"
#include "invoice/professional_amounts.h"

#include <QRegularExpression>
#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

QString stateOf(const AmountChain &chain)
{
    QStringList texts;
    for (int position = 0; position < chain.fieldCount(); ++position)
        texts.append(chain.text(position));
    return texts.join(u'|');
}

/** Carries out "Name=text" (enter, type, leave), "Name" (enter, leave) or "Name:text" (as loaded,
 *  without the focus). */
void perform(AmountChain &chain, const QString &step)
{
    const QString name = step.section(QRegularExpression(u"[=:]"_s), 0, 0);
    const int position = chain.position(name);
    const QString typed = step.mid(name.size() + 1);
    const bool withFocus = !step.mid(name.size()).startsWith(u':');
    if (withFocus)
        chain.entered(position);
    if (step.size() > name.size())
        chain.setText(position, typed);
    if (withFocus)
        chain.left(position);
}

/** Carries out a script: each step and what all fields show after it. */
template <class Chain>
void follow(const QString &script)
{
    Chain chain;
    for (const QString &line : script.split(u'\n')) {
        const QString step = line.section(u" -> "_s, 0, 0);
        perform(chain, step);
        QCOMPARE(step + u" -> "_s + stateOf(chain), line);
    }
}

} // namespace

class TestAmountChains : public QObject
{
    Q_OBJECT

private slots:
    void aFeeNoteThenAnotherFee();
    void company();
    void beyondTheRange();
    void fieldsThatAreNotThere();
};

// fee | 4% | 2% | VAT base | rate | VAT | other | total | R.A. base | rate | R.A. | net
void TestAmountChains::aFeeNoteThenAnotherFee()
{
    follow<ProfessionalAmounts>(uR"(Text4_0=2350 -> 2.350,00|||2.350,00|||||2.350,00|||
Text4_1=94 -> 2.350,00|94,00||2.444,00|||||2.444,00|||
Text4_2=48.88 -> 2.350,00|94,00|48,88|2.492,88|||||2.444,00|||
Text2_1=22 -> 2.350,00|94,00|48,88|2.492,88|22|548,43||3.041,31|2.444,00|||
Text5_0=20 -> 2.350,00|94,00|48,88|2.492,88|22|548,43||3.041,31|2.444,00|20|488,80|2.552,51
Text4_0=1000,99 -> 1.000,00|94,00|48,88|1.142,88|22|548,43||3.041,31|1.094,00|20|488,80|2.552,51
Text2_1=22.5 -> 1.000,00|94,00|48,88|1.142,88|22.5|548,43||1.691,31|1.094,00|20|488,80|2.552,51
Text5_0 -> 1.000,00|94,00|48,88|1.142,88|22.5|548,43||1.691,31|1.094,00|20|488,80|1.202,51)"_s);
}

void TestAmountChains::company()
{
    follow<CompanyAmounts>(uR"(Text2_0=1850 -> 1.850,00|||1.850,00
Text2_1=22 -> 1.850,00|22|407,00|2.257,00
Text2_0=1000.005 -> 1.000,01|22|407,00|1.407,01
Text2_2=400,9 -> 1.000,01|22|400,00|1.400,01
Text2_3=77 -> 1.000,01|22|400,00|77
Text2_1=10.5 -> 1.000,01|10.5|105,00|1.105,01
Text2_3 -> 1.000,01|10.5|105,00|1105.01
Text2_0=0.03 -> 0,03|10.5|105,00|105,03
Text2_1=50 -> 0,03|50|0,02|0,05
Text2_1= -> 0,03|0|0,00|0,03)"_s);
}

void TestAmountChains::beyondTheRange()
{
    const QList<std::pair<QString, QString>> cases{
        {u"Text2_2:"_s, u"Text4_0=1e15"_s},
        {u"Text4_1:900000000000000"_s, u"Text4_0=900000000000000"_s},
        {u"Text2_0:900000000000000"_s, u"Text2_1=1000"_s},
        {u"Text2_2:5,00"_s, u"Text2_1=1e999"_s}};
    for (const auto &[before, step] : cases) {
        ProfessionalAmounts chain;
        perform(chain, before);
        QVERIFY_THROWS_EXCEPTION(OverflowError, perform(chain, step));
    }
}

void TestAmountChains::fieldsThatAreNotThere()
{
    ProfessionalAmounts fees;
    CompanyAmounts company;
    QVERIFY_THROWS_EXCEPTION(BoundsError, fees.position(u"Text2_9"_s));
    QVERIFY_THROWS_EXCEPTION(BoundsError, fees.left(fees.fieldCount()));
    QVERIFY_THROWS_EXCEPTION(BoundsError, company.left(company.fieldCount()));
    QVERIFY_THROWS_EXCEPTION(BoundsError, company.setText(-1, u"1"_s));
}

QTEST_GUILESS_MAIN(TestAmountChains)
#include "test_amount_chains.moc"
