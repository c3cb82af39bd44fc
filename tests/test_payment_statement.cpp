#include "database/database.h"
#include "overview/payment_statement.h"
#include "overview_probe.h"

#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

/** A ledger with one payment, the given fields ("Field=value, ...") being other than usual. */
void plantPayment(const TestArchive &archive, const QString &kind, const QString &changes = {})
{
    const QString path = LedgerPath(archive.values());
    archive.execute(path, u"INSERT INTO Fatture VALUES ('P', 12, 'ing. Niccolò D''Amìco', ' 1 2 ',"
                          " '2002-03-05', replace(' riga 1||{riga} 3|', '|', char(13, 10)),"
                          " 'Saldo ', NULL, 123456789500, 2080050, 200000, 10000000, -400050,"
                          " 200049, 2000000, 1500000)"_s);
    archive.execute(path, u"UPDATE Fatture SET AziProf = "_s + kind);
    if (!changes.isEmpty())
        archive.execute(path, u"UPDATE Fatture SET "_s + changes);
}

/** Composes the statement of the first payment of the ledger. */
void compose(const TestArchive &archive, ProgramValues &values)
{
    const Database ledger = Database::open(LedgerPath(archive.values()));
    RecordSet payments = ledger.openRecordSet(u"SELECT * FROM Fatture"_s);
    ComponiTestoPagamento(LedgerPayment(payments), values);
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

const QString Company = Professional.section(u"\r\n"_s, 0, 3) +
                        u"\r\nImporto totale pagato ......: 12.345.886,96\r\n"
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
    void layouts();
    void nullsReadAsEmptyOrZero();
    void otherNullsEndTheRun();
};

void TestPaymentStatement::layouts()
{
    for (const QString &kind : {u"'P'"_s, u"'A'"_s, u"'p'"_s, u"NULL"_s}) {
        const TestArchive archive;
        plantPayment(archive, kind);
        ProgramValues values = archive.values();
        values.TestoPagamento = u"left over"_s;
        values.TotaleLiquidato = Currency::fromScaled(100);
        compose(archive, values);
        QCOMPARE(values.TestoPagamento, kind == u"'P'" ? Professional : Company);
        // 0,01 was there before; half cents are kept in the total, though not shown.
        QCOMPARE(values.TotaleLiquidato.scaled(),
                 kind == u"'P'" ? 123'460'369'650 : 123'458'869'650);
    }
}

void TestPaymentStatement::nullsReadAsEmptyOrZero()
{
    const TestArchive archive;
    plantPayment(archive, u"'P'"_s,
                 u"Creditore = NULL, NFat = NULL, Del = NULL, Memo = NULL,"
                 " Descrizione = NULL, AliquotaRA = NULL,"
                 " AltriImporti01 = NULL, Importo = 10000000,"
                 " ImportoIVA = 2080000"_s);
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

void TestPaymentStatement::otherNullsEndTheRun()
{
    const QStringList fields =
        u"Npag Importo ImportoIVA ImportoPrest Contributo CassaPrev ImportoRA"_s.split(u' ');
    for (int i = 0; i < 2 * fields.size(); ++i) {
        const QString &field = fields.at(i / 2);
        const QString kind = i % 2 ? u"'P'"_s : u"'A'"_s;
        const bool fails = i / 2 < 3 || kind == u"'P'"; // companies have only the first three
        const TestArchive archive;
        plantPayment(archive, kind, field + u" = NULL"_s);
        ProgramValues values = archive.values();
        values.TestoPagamento = u"before"_s;
        const QString number = field == u"Npag" ? QString() : u"12"_s;
        QCOMPARE(FailurePlace([&] { compose(archive, values); }),
                 fails ? u"Saldoro.mdb/Fatture/"_s + field + u"//"_s + number + u"//"_s
                       : u"none"_s);
        QCOMPARE(values.TestoPagamento == u"before", fails);
        QCOMPARE(values.TotaleLiquidato == Currency(), fails);
    }
}

QTEST_GUILESS_MAIN(TestPaymentStatement)
#include "test_payment_statement.moc"
