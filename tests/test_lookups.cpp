#include "database_probe.h"
#include "store/code_map.h"
#include "store/contract_sheet.h"
#include "store/mandate_note.h"
#include "test_archive.h"

#include <QRegularExpression>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

const QString SheetSql =
    u"SELECT Voce, Funzione, Descri, Stringa, Importo, NomeFile, Link FROM SchedaProgetto"
    " ORDER BY rowid"_s;

/** "4 Tabella.Campo Codice/Voce" of the error that an action ends in; empty without one. */
template <typename Action>
QString errorOf(const Action &action)
{
    try {
        action();
    } catch (const DatabaseError &error) {
        return Fault(error.fault(), error.detail(Detail::Table), error.detail(Detail::Field)) +
               u' ' + error.detail(Detail::Code) + u'/' + error.detail(Detail::Item);
    }
    return {};
}

} // namespace

/** The ledger as it is made, and the look-ups in the suite's databases. */
class TestLookups : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_archive = std::make_unique<TestArchive>();
        m_values = m_archive->values();
    }

    /** "!" stands behind the texts that may be null but not empty. */
    void ledgerHoldsTwoEmptyTables()
    {
        QString sql = m_archive->ledgerRows(u"SELECT replace(sql, '\"', '') FROM sqlite_master"_s);
        sql.replace(QRegularExpression(u" CONSTRAINT ZeroLength (\\w+) CHECK \\(\\1 <> ''\\)"_s),
                    u"!"_s);
        QCOMPARE(sql,
                 u"CREATE TABLE Fatture (AziProf TEXT(1)!, Npag LONG, Creditore TEXT(60)!, NFat "
                 "TEXT(10), Del DATETIME, Memo MEMO TEXT, Descrizione TEXT(50), Aliquota CURRENCY, "
                 "Importo CURRENCY, ImportoIVA CURRENCY, AliquotaRA CURRENCY, ImportoPrest "
                 "CURRENCY, Contributo CURRENCY, CassaPrev CURRENCY, ImportoRA CURRENCY, "
                 "AltriImporti01 CURRENCY)\n"
                 "CREATE TABLE Spese (RelNpag LONG, Cod TEXT(10)!, Descrizione TEXT(50)!, Importo "
                 "CURRENCY)"_s);
        QCOMPARE(m_archive->ledgerRows(u"SELECT 1 FROM Fatture; SELECT 1 FROM Spese"_s), QString());
    }

    void codesAreMapped()
    {
        QCOMPARE(VoceMandato(m_values, 12), u"_12"_s);
        m_archive->execute(
            CodesPath(m_values),
            u"INSERT INTO Funzioni VALUES ('DA1','k9 z','Impresa dell''appalto'),"
            "('DA','other','Altro'),('P97','X',''),('da1','second',''),('p97','Y','')"_s);
        for (const QStringView code : {u"DA1", u"da1"})
            QCOMPARE(CodiceEsterno(m_values, code), u"k9 z"_s);
        for (const QStringView code : {u"D*", u"DA2"})
            QCOMPARE(CodiceEsterno(m_values, code), QString());
        QCOMPARE(DescrizioneFunzione(m_values, u"DA1"), u"Impresa dell'appalto"_s);
        QCOMPARE(DescrizioneFunzione(m_values, u"P97"), QString());
        QCOMPARE(VoceMandato(m_values, 4), u"X_4"_s);
    }

    void amountItem()
    {
        m_archive->execute(
            CodesPath(m_values),
            u"INSERT INTO Funzioni VALUES ('QS1A','T1','Totale'),('QS1P','T2',NULL)"_s);
        m_archive->execute(
            ContractPath(m_values),
            u"INSERT INTO SchedaProgetto (Voce, NomeFile, Link) VALUES ('t1','f',3)"_s);
        AggiornaVoceImporto(m_values, u"QS1A", 17, Currency::fromScaled(12345000));
        AggiornaVoceImporto(m_values, u"QS1P", -32768, Currency::fromScaled(-50));
        // The item that was there keeps its key as written; a null description gives an empty one.
        QCOMPARE(m_archive->contractRows(SheetSql),
                 u"t1|17|Totale|€ 1.234,50|12345000|f|3\nT2|-32768||€ -0,01|-50|-|-"_s);
    }

    void writersUpdateTheFirstMatch()
    {
        m_archive->execute(
            ContractPath(m_values),
            u"INSERT INTO SchedaProgetto (Voce, Stringa) VALUES ('B','o'),('b1','o'),('A','o'),"
            "('b1','o')"_s);
        ScriviVoceFile(m_values, u"B1"_s, 5, u"D'Ù"_s, u"x.rtf"_s);
        ScriviVoceStringa(m_values, u"a"_s, 6, u"d"_s, u"line 1\r\nl'ì"_s);
        ScriviVoceStringa(m_values, u"C_1"_s, 0, QString(), QString());
        ScriviVoceStringa(m_values, u"C_2"_s, 0, u"😀"_s.repeated(61), QString());
        ScriviVoceStringa(m_values, u"C_3"_s, 0, u"à"_s.repeated(60), QString());
        QCOMPARE(m_archive->contractRows(SheetSql),
                 u"B|-|-|o|-|-|-\nB1|5|D'Ù|o|-|x.rtf|-\na|6|d|line 1\r\nl'ì|-|-|-\nb1|-|-|o|-|-|-\n"
                 "C_1|0|||-|-|-\nC_2|0|%1||-|-|-\nC_3|0|%2||-|-|-"_s.arg(u"😀"_s.repeated(60),
                                                                         u"à"_s.repeated(60)));
    }

    /** "_" stands for itself; the first is the first by its key. */
    void patterns()
    {
        m_archive->execute(ContractPath(m_values),
                           u"INSERT INTO SchedaProgetto (Voce, Stringa) VALUES ('X_10','b'),"
                           "('X_1','a'),('x_1','c'),('XA1',NULL),(NULL,'e')"_s);
        const auto left = [&] {
            return m_archive->contractRows(u"SELECT group_concat(Voce, ' ') FROM SchedaProgetto"_s);
        };
        QVERIFY(!EsisteVoceLike(m_values, u"X_2"_s) && !EliminaVociLike(m_values, u"X_2"_s));
        QVERIFY(EsisteVoceLike(m_values, u"X_1"_s));
        QCOMPARE(StringaVoceLike(m_values, u"x_1*"_s), u"a"_s);
        QCOMPARE(StringaVoceLike(m_values, u"XA1"_s), QString());
        QVERIFY(EliminaVociLike(m_values, u"X_1"_s));
        QCOMPARE(left(), u"X_10 XA1"_s);
        QVERIFY(EliminaVociLike(m_values, u"x_1*"_s));
        QCOMPARE(left(), u"XA1"_s);
    }

    /** An error names the code or the item; nothing is written then. */
    void errorsNameCodeAndItem()
    {
        const QString tooLong(256, u'x'); // for the suite's column
        m_archive->execute(CodesPath(m_values),
                           u"PRAGMA ignore_check_constraints = 1; INSERT INTO Funzioni VALUES"
                           " ('N', NULL, NULL)"_s);
        using Fault = DatabaseFault;
        for (const auto &[fault, place, action] :
             QList<std::tuple<Fault, QString, std::function<void()>>>{
                 {Fault::NullValue, u"Funzioni.CodExt N/"_s,
                  [&] { CodiceEsterno(m_values, u"N"); }},
                 {Fault::NoCurrentRecord, u"Funzioni.Desc QDP/"_s,
                  [&] { DescrizioneFunzione(m_values, u"QDP"); }},
                 {Fault::NoCurrentRecord, u"Funzioni.CodExt QS1A/"_s,
                  [&] { AggiornaVoceImporto(m_values, u"QS1A", 0, {}); }},
                 {Fault::FieldTooSmall, u"SchedaProgetto.Descri /F1"_s,
                  [&] { ScriviVoceFile(m_values, u"F1"_s, 0, tooLong, u"f"_s); }},
                 {Fault::SyntaxError, u"SchedaProgetto. /D'1"_s,
                  [&] { ScriviVoceStringa(m_values, u"D'1"_s, 0, {}, {}); }},
                 {Fault::NoCurrentRecord, u"SchedaProgetto.Stringa /X_4"_s,
                  [&] { StringaVoceLike(m_values, u"X_4"_s); }}}) {
            QCOMPARE(errorOf(action), u"%1 %2"_s.arg(static_cast<int>(fault)).arg(place));
            QCOMPARE(m_archive->contractRows(SheetSql), QString());
        }
    }

private:
    std::unique_ptr<TestArchive> m_archive;
    ProgramValues m_values;
};

QTEST_GUILESS_MAIN(TestLookups)
#include "test_lookups.moc"
