#include "common/archive_folders.h"
#include "common/errors.h"
#include "overview/payment_statement.h"
#include "platform/database.h"
#include "test_archive.h"

#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

/** A text cell; without this a literal would be taken for another kind of value. */
std::pair<QString, NewValue> cell(const QString &field, const NewValue &value)
{
    return {field, value};
}

NewValue amount(qint64 tenThousandths)
{
    return Currency::fromScaled(tenThousandths);
}

FieldList wholePayment(const QString &kind)
{
    return {cell(u"AziProf"_s, kind),
            cell(u"Npag"_s, 12),
            cell(u"Creditore"_s, u"ing. Niccolò D'Amìco"_s),
            cell(u"NFat"_s, u" 1 2 "_s),
            cell(u"Del"_s, QDate(2002, 3, 5)),
            cell(u"Memo"_s, u" riga 1\r\n\r\n{riga} 3\r\n"_s),
            cell(u"Descrizione"_s, u"Saldo "_s),
            cell(u"Importo"_s, amount(12'345'678'9500)),
            cell(u"ImportoIVA"_s, amount(208'0050)),
            cell(u"AliquotaRA"_s, amount(20'0000)),
            cell(u"ImportoPrest"_s, amount(1000'0000)),
            cell(u"Contributo"_s, amount(-40'0050)),
            cell(u"CassaPrev"_s, amount(20'0049)),
            cell(u"ImportoRA"_s, amount(200'0000)),
            cell(u"AltriImporti01"_s, amount(150'0000))};
}

void setField(FieldList &fields, const QString &name, const NewValue &value)
{
    for (auto &[field, old] : fields) {
        if (field == name) {
            old = value;
        }
    }
}

/** Composes the statement of the first payment of the ledger. */
void compose(const TestArchive &archive, ProgramValues &values)
{
    const Database ledger = Database::open(LedgerPath(archive.values()));
    RecordSet payments = ledger.openRecordSet(u"SELECT * FROM Fatture"_s);
    ComponiTestoPagamento(payments, values);
}

const QString Professional = u"Numero Pagamento ...........: 12\r\n"
                             "Creditore ..................: ing. Niccolò D'Amìco\r\n"
                             "Descrizione ................: Saldo \r\n"
                             "Titolo (fattura) ...........: Nr. 1 2 del 05/03/2002\r\n"
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

const QString Company = u"Numero Pagamento ...........: 12\r\n"
                        "Creditore ..................: ing. Niccolò D'Amìco\r\n"
                        "Descrizione ................: Saldo \r\n"
                        "Titolo (fattura) ...........: Nr. 1 2 del 05/03/2002\r\n"
                        "Importo totale pagato ......: 12.345.886,96\r\n"
                        "Elenco analitico voci spesa \r\n"
                        "  Importo lavori ...........: 12.345.678,95\r\n"
                        "  Iva lavori ...............: 208,01\r\n"
                        "Note ..:\r\n"
                        " riga 1\r\n\r\n{riga} 3\r\n"_s;

} // namespace

class TestPaymentStatement : public QObject
{
    Q_OBJECT

private slots:
    void layouts_data();
    void layouts();
    void nullsReadAsEmptyOrZero();
    void otherNullsEndTheRun_data();
    void otherNullsEndTheRun();
    void totalsBeyondTheRange();
};

void TestPaymentStatement::layouts_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("statement");
    QTest::addColumn<qint64>("total");
    // 0,01 was there before; half cents are kept in the total, though not shown.
    QTest::newRow("professional") << u"P"_s << Professional << qint64{123'460'369'650};
    QTest::newRow("company") << u"A"_s << Company << qint64{123'458'869'650};
    QTest::newRow("lower case") << u"p"_s << Company << qint64{123'458'869'650};
    QTest::newRow("none") << QString() << Company << qint64{123'458'869'650};
}

void TestPaymentStatement::layouts()
{
    QFETCH(QString, kind);
    QFETCH(QString, statement);
    QFETCH(qint64, total);
    TestArchive archive;
    FieldList fields = wholePayment(kind);
    if (kind.isEmpty()) {
        setField(fields, u"AziProf"_s, {});
    }
    archive.build().addPayment(fields);
    ProgramValues values = archive.values();
    values.TestoPagamento = u"left over"_s;
    values.TotaleLiquidato = Currency::fromScaled(100);
    compose(archive, values);
    QCOMPARE(values.TestoPagamento, statement);
    QCOMPARE(values.TotaleLiquidato.scaled(), total);
}

void TestPaymentStatement::nullsReadAsEmptyOrZero()
{
    TestArchive archive;
    FieldList fields = wholePayment(u"P"_s);
    for (const QString &name : {u"Creditore"_s, u"NFat"_s, u"Del"_s, u"Memo"_s, u"Descrizione"_s,
                                u"AliquotaRA"_s, u"AltriImporti01"_s}) {
        setField(fields, name, {});
    }
    setField(fields, u"Importo"_s, amount(1000'0000));
    setField(fields, u"ImportoIVA"_s, amount(208'0000));
    archive.build().addPayment(fields);
    ProgramValues values = archive.values();
    compose(archive, values);
    QStringList lines = values.TestoPagamento.split(u"\r\n"_s);
    QCOMPARE(lines.size(), 14);
    QCOMPARE(lines.mid(1, 5).join(u'\n'), u"Creditore ..................: \n"
                                          "Descrizione ................: \n"
                                          "Titolo (fattura) ...........: Nr.  del \n"
                                          "Importo totale pagato ......: 1.208,00\n"
                                          "Altri Importi ..............: 0,00"_s);
    QCOMPARE(lines.last(), QString());
    QCOMPARE(values.TotaleLiquidato, Currency::fromWhole(1208));
}

void TestPaymentStatement::otherNullsEndTheRun_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<bool>("needsProfessional");
    QTest::newRow("number") << u"Npag"_s << false;
    QTest::newRow("amount") << u"Importo"_s << false;
    QTest::newRow("tax") << u"ImportoIVA"_s << false;
    QTest::newRow("fee") << u"ImportoPrest"_s << true;
    QTest::newRow("contribution") << u"Contributo"_s << true;
    QTest::newRow("fund") << u"CassaPrev"_s << true;
    QTest::newRow("withholding") << u"ImportoRA"_s << true;
}

void TestPaymentStatement::otherNullsEndTheRun()
{
    QFETCH(QString, field);
    QFETCH(bool, needsProfessional);
    for (const QString &kind : {u"A"_s, u"P"_s}) {
        TestArchive archive;
        FieldList fields = wholePayment(kind);
        setField(fields, field, {});
        archive.build().addPayment(fields);
        ProgramValues values = archive.values();
        values.TestoPagamento = u"before"_s;
        QString fault = u"none"_s;
        try {
            compose(archive, values);
        } catch (const DatabaseError &error) {
            QCOMPARE(error.fault(), DatabaseFault::NullValue);
            fault = error.detail(u"Campo"_s) + u' ' + error.detail(u"Pagamento"_s);
        }
        const bool fails = !needsProfessional || kind == u"P";
        const QString number = field == u"Npag" ? QString() : u"12"_s;
        QCOMPARE(fault, fails ? field + u' ' + number : u"none"_s);
        QCOMPARE(values.TestoPagamento == u"before", fails);
        QCOMPARE(values.TotaleLiquidato == Currency(), fails);
    }
}

void TestPaymentStatement::totalsBeyondTheRange()
{
    TestArchive archive;
    FieldList fields = wholePayment(u"A"_s);
    setField(fields, u"Importo"_s, amount(std::numeric_limits<qint64>::max() - 208'0050));
    archive.build().addPayment(fields);
    ProgramValues values = archive.values();
    compose(archive, values);
    QCOMPARE(values.TotaleLiquidato.scaled(), std::numeric_limits<qint64>::max());
    QVERIFY_THROWS_EXCEPTION(OverflowError, compose(archive, values));
    QCOMPARE(values.TotaleLiquidato.scaled(), std::numeric_limits<qint64>::max());
}

QTEST_GUILESS_MAIN(TestPaymentStatement)
#include "test_payment_statement.moc"
