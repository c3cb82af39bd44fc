#include "common/errors.h"
#include "held_form.h"

#include <QRegularExpression>
#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

/** Carries out "Name=text" (enter, type, leave), "Name" (enter, leave) or "Name:text" (as loaded,
 *  without the focus). */
void perform(HeldForm &form, const QString &step)
{
    static const QRegularExpression parts(u"^(\\w+)([=:]?)(.*)$"_s);
    const QRegularExpressionMatch match = parts.match(step);
    int field = 0;
    while (form.chain().fields.at(field).objectName != match.captured(1))
        ++field;
    const Amount amount = form.chain().fields.at(field).amount;
    const bool withFocus = match.captured(2) != u":";
    if (withFocus)
        form.record.amounts.makePlain(amount);
    if (match.hasCaptured(2) && !match.captured(2).isEmpty())
        form.record.amounts.setText(amount, match.captured(3));
    if (withFocus)
        form.chain().leave(form.record.amounts, amount);
}

/** Carries out a script: each step and what all fields show after it. */
void follow(CreditorKind kind, const QString &script)
{
    HeldForm form(kind);
    for (const QString &line : script.split(u'\n')) {
        const QString step = line.section(u" -> "_s, 0, 0);
        perform(form, step);
        QCOMPARE(step + u" -> "_s + form.amountTexts(), line);
    }
}

} // namespace

class TestAmountChains : public QObject
{
    Q_OBJECT

private slots:
    // fee | 4% | 2% | VAT base | rate | VAT | other | total | R.A. base | rate | R.A. | net
    void aFeeNoteThenAnotherFee()
    {
        follow(CreditorKind::Professional, uR"(Text4_0=2350 -> 2.350,00|||2.350,00|||||2.350,00|||
Text4_1=94 -> 2.350,00|94,00||2.444,00|||||2.444,00|||
Text4_2=48.88 -> 2.350,00|94,00|48,88|2.492,88|||||2.444,00|||
Text2_1=22 -> 2.350,00|94,00|48,88|2.492,88|22|548,43||3.041,31|2.444,00|||
Text5_0=20 -> 2.350,00|94,00|48,88|2.492,88|22|548,43||3.041,31|2.444,00|20|488,80|2.552,51
Text4_0=1000,99 -> 1.000,00|94,00|48,88|1.142,88|22|548,43||3.041,31|1.094,00|20|488,80|2.552,51
Text2_1=22.5 -> 1.000,00|94,00|48,88|1.142,88|22.5|548,43||1.691,31|1.094,00|20|488,80|2.552,51
Text5_0 -> 1.000,00|94,00|48,88|1.142,88|22.5|548,43||1.691,31|1.094,00|20|488,80|1.202,51)"_s);
    }

    // Other amounts and the base of the withholding keep the plain form that they were typed in,
    // and are read in the other notation from then on.
    void computedAmountsMayBeTypedOver()
    {
        follow(CreditorKind::Professional, uR"(Text2_0=-200 -> |||-200,00||||-200,00||||
Text2_2=abc -> |||-200,00||0,00||-200,00||||
Text2_5=12.5 -> |||-200,00||0,00|12.5|-75,00||||
Text2_3=1 000.5 -> |||-200,00||0,00|12.5|-75,00||||
Text2_4=50.25 -> |||-200,00||0,00|12.5|-75,00|50.25|||
Text5_0=2 -> |||-200,00||0,00|12.5|-75,00|50.25|2|100,50|-175,50
Text5_1=.005 -> |||-200,00||0,00|12.5|-75,00|50.25|2|0,01|-75,01
Text5_2=4 -> |||-200,00||0,00|12.5|-75,00|50.25|2|0,01|-75,01)"_s);
    }

    // A VAT amount that reads 0,00 is what the user wants; a withholding of 0,00 is computed again.
    void zeroesOfVatAndWithholding()
    {
        follow(CreditorKind::Professional, uR"(Text4_0=1000 -> 1.000,00|||1.000,00|||||1.000,00|||
Text2_2:0,00 -> 1.000,00|||1.000,00||0,00|||1.000,00|||
Text5_1:0,00 -> 1.000,00|||1.000,00||0,00|||1.000,00||0,00|
Text2_1=22 -> 1.000,00|||1.000,00|22|0,00||1.000,00|1.000,00||0,00|
Text5_0=20 -> 1.000,00|||1.000,00|22|0,00||1.000,00|1.000,00|20|200,00|800,00
Text2_2:0 -> 1.000,00|||1.000,00|22|0||1.000,00|1.000,00|20|200,00|800,00
Text2_1 -> 1.000,00|||1.000,00|22|220,00||1.220,00|1.000,00|20|200,00|800,00
Text5_0=10 -> 1.000,00|||1.000,00|22|220,00||1.220,00|1.000,00|10|200,00|1.020,00)"_s);
    }

    void company()
    {
        follow(CreditorKind::Company, uR"(Text2_0=1850 -> 1.850,00|||1.850,00
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

    void beyondTheRange()
    {
        for (const auto &[before, step] :
             {std::pair{u"Text2_2:"_s, u"Text4_0=1e15"_s},
              {u"Text4_1:900000000000000"_s, u"Text4_0=900000000000000"_s},
              {u"Text2_0:900000000000000"_s, u"Text2_1=1000"_s},
              {u"Text2_2:5,00"_s, u"Text2_1=1e999"_s}}) {
            HeldForm form(CreditorKind::Professional);
            perform(form, before);
            QVERIFY_THROWS_EXCEPTION(OverflowError, perform(form, step));
        }
    }
};

QTEST_GUILESS_MAIN(TestAmountChains)
#include "test_amount_chains.moc"
