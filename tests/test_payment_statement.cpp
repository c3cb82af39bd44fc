#include "database/database.h"
#include "overview/payment_statement.h"
#include "overview_probe.h"

#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

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
    void layouts()
    {
        for (const QString &kind : {u"'P'"_s, u"'A'"_s, u"'p'"_s, u"NULL"_s}) {
            const bool professional = kind == u"'P'";
            QCOMPARE(compose(u"AziProf="_s + kind), u"none"_s);
            QCOMPARE(m_values.TestoPagamento, professional ? Professional : Company);
            // 0,01 was there before; half cents are kept in the total, though not shown.
            QCOMPARE(m_values.TotaleLiquidato.scaled(),
                     professional ? 123'460'369'650 : 123'458'869'650);
        }
    }

    void nullsReadAsEmptyOrZero()
    {
        QCOMPARE(compose(u"Creditore=NULL, NFat=NULL, Del=NULL, Memo=NULL, Descrizione=NULL,"
                         " Aliquota=NULL, AliquotaRA=NULL, AltriImporti01=NULL, Importo=12080000,"
                         " ImportoIVA=-80000"_s),
                 u"none"_s);
        const QStringList lines = m_values.TestoPagamento.split(u"\r\n"_s);
        QCOMPARE(lines.size(), 14);
        QCOMPARE(lines.mid(1, 5).join(u'\n'), u"Creditore ..................: \n"
                                              "Descrizione ................: \n"
                                              "Titolo (fattura) ...........: Nr.  del \n"
                                              "Importo totale pagato ......: 1.200,00\n"
                                              "Altri Importi ..............: 0,00"_s);
        QCOMPARE(lines.last(), QString());
        QCOMPARE(m_values.TotaleLiquidato.scaled(), 12'000'100);
    }

    /** Companies have no use for the last four; where a statement fails, nothing changes. */
    void otherNullsEndTheRun()
    {
        const QStringList fields =
            u"Npag Importo ImportoIVA ImportoPrest Contributo CassaPrev ImportoRA"_s.split(u' ');
        for (int i = 0; i < 2 * fields.size(); ++i) {
            const QString &field = fields.at(i / 2);
            const bool fails = i % 2 || i / 2 < 3;
            const QString number = field == u"Npag" ? QString() : u"12"_s;
            QCOMPARE(compose(u"AziProf='%1', %2=NULL"_s.arg(QChar(i % 2 ? u'P' : u'A')).arg(field)),
                     fails ? u"Saldoro.mdb/Fatture/%1//%2//"_s.arg(field, number) : u"none"_s);
            QCOMPARE(m_values.TestoPagamento == u"before", fails);
            QCOMPARE(m_values.TotaleLiquidato.scaled() == 100, fails);
        }
    }

private:
    /** Composes the statement of a payment that differs from the usual by @p changes; FailurePlace.
     */
    QString compose(const QString &changes)
    {
        const TestArchive archive;
        m_values = archive.values();
        archive.execute(LedgerPath(m_values),
                        u"INSERT INTO Fatture VALUES ('P', 12, 'ing. Niccolò D''Amìco', ' 1 2 ',"
                        " '2002-03-05', replace(' riga 1||{riga} 3|', '|', char(13, 10)), 'Saldo ',"
                        " NULL, 123456789500, 2080050, 200000, 10000000, -400050, 200049, 2000000,"
                        " 1500000); UPDATE Fatture SET "_s +
                            changes);
        m_values.TestoPagamento = u"before"_s;
        m_values.TotaleLiquidato = Currency::fromScaled(100);
        const Database ledger = Database::open(LedgerPath(m_values));
        const RecordSet payments = ledger.openRecordSet(u"SELECT * FROM Fatture"_s);
        return FailurePlace([&] { ComponiTestoPagamento(LedgerPayment(payments), m_values); });
    }

    ProgramValues m_values;
};

QTEST_GUILESS_MAIN(TestPaymentStatement)
#include "test_payment_statement.moc"
