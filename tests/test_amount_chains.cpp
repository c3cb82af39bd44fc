#include "common/errors.h"
#include "held_form.h"

#include <QRegularExpression>
#include <QTest>

#include <algorithm>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

/** The amounts of a form and their boxes. */
struct Amounts : HeldForm
{
    using HeldForm::HeldForm;

    int position(const QString &name) const
    {
        const QList<AmountField> &fields = amounts->fields();
        return static_cast<int>(
            std::find_if(fields.begin(), fields.end(),
                         [&](const AmountField &field) { return field.objectName == name; }) -
            fields.begin());
    }

    QString state() const
    {
        QStringList shown;
        for (int field = 0; field < amounts->fields().size(); ++field)
            shown.append(texts.text(field));
        return shown.join(u'|');
    }

    /** Carries out "Name=text" (enter, type, leave), "Name" (enter, leave) or "Name:text" (as
     *  loaded, without the focus). */
    void perform(const QString &step)
    {
        const QString name = step.section(QRegularExpression(u"[=:]"_s), 0, 0);
        const int field = position(name);
        const bool withFocus = !step.mid(name.size()).startsWith(u':');
        if (withFocus)
            amounts->entered(field);
        if (step.size() > name.size())
            texts.setText(field, step.mid(name.size() + 1));
        if (withFocus)
            amounts->left(field);
    }
};

/** Carries out a script: each step and what all fields show after it. */
void follow(CreditorKind kind, const QString &script)
{
    Amounts form(kind);
    for (const QString &line : script.split(u'\n')) {
        const QString step = line.section(u" -> "_s, 0, 0);
        form.perform(step);
        QCOMPARE(step + u" -> "_s + form.state(), line);
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
    void zeroesOfVatAndWithholding();
};

// fee | 4% | 2% | VAT base | rate | VAT | other | total | R.A. base | rate | R.A. | net
void TestAmountChains::aFeeNoteThenAnotherFee()
{
    follow(CreditorKind::Professional, uR"(Text4_0=2350 -> 2.350,00|||2.350,00|||||2.350,00|||
Text4_1=94 -> 2.350,00|94,00||2.444,00|||||2.444,00|||
Text4_2=48.88 -> 2.350,00|94,00|48,88|2.492,88|||||2.444,00|||
Text2_1=22 -> 2.350,00|94,00|48,88|2.492,88|22|548,43||3.041,31|2.444,00|||
Text5_0=20 -> 2.350,00|94,00|48,88|2.492,88|22|548,43||3.041,31|2.444,00|20|488,80|2.552,51
Text4_0=1000,99 -> 1.000,00|94,00|48,88|1.142,88|22|548,43||3.041,31|1.094,00|20|488,80|2.552,51
Text2_1=22.5 -> 1.000,00|94,00|48,88|1.142,88|22.5|548,43||1.691,31|1.094,00|20|488,80|2.552,51
Text5_0 -> 1.000,00|94,00|48,88|1.142,88|22.5|548,43||1.691,31|1.094,00|20|488,80|1.202,51
Text2_5=10.50 -> 1.000,00|94,00|48,88|1.142,88|22.5|548,43|10.50|2.741,31|1.094,00|20|488,80|1.202,51)"_s);
}

void TestAmountChains::company()
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

// A VAT amount that reads 0,00 is what the user wants; a withholding of 0,00 is computed anew.
void TestAmountChains::zeroesOfVatAndWithholding()
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

void TestAmountChains::beyondTheRange()
{
    const QList<std::pair<QString, QString>> cases{
        {u"Text2_2:"_s, u"Text4_0=1e15"_s},
        {u"Text4_1:900000000000000"_s, u"Text4_0=900000000000000"_s},
        {u"Text2_0:900000000000000"_s, u"Text2_1=1000"_s},
        {u"Text2_2:5,00"_s, u"Text2_1=1e999"_s}};
    for (const auto &[before, step] : cases) {
        Amounts form(CreditorKind::Professional);
        form.perform(before);
        QVERIFY_THROWS_EXCEPTION(OverflowError, form.perform(step));
    }
}

QTEST_GUILESS_MAIN(TestAmountChains)
#include "test_amount_chains.moc"
