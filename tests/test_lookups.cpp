#include "database_probe.h"
#include "store/code_lookups.h"
#include "store/ledger.h"
#include "store/mandate_note.h"
#include "test_archive.h"

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

const QString SheetSql =
    u"SELECT Voce, Funzione, Descri, Stringa, Importo, NomeFile, Link FROM SchedaProgetto"
    " ORDER BY rowid"_s;

QString itemsOf(const TestArchive &archive)
{
    return archive.contractRows(u"SELECT Voce FROM SchedaProgetto ORDER BY rowid"_s)
        .replace(u'\n', u' ');
}

} // namespace

class TestLookups : public QObject
{
    Q_OBJECT

private slots:
    void ledgerHoldsTwoEmptyTables();
    void ledgerFieldsThatMayBeEmpty();
    void ledgerIsNotCreatedOverAnother();
    void codesAreMapped();
    void unknownAndNullCodes();
    void errorsNameCodeAndItem();
    void amountItem();
    void writersUpdateTheFirstMatch();
    void descriptionIsCutAt60();
    void patterns();
    void textOfAnItem();
    void aMissingFieldStopsTheWholeItem();
};

void TestLookups::ledgerHoldsTwoEmptyTables()
{
    const TestArchive archive;
    QCOMPARE(archive.ledgerRows(u"SELECT type, name FROM sqlite_master"_s),
             u"table|Fatture\ntable|Spese"_s);
    const auto fields = [&](const QString &table) {
        return archive.ledgerRows(
            u"SELECT group_concat(name || ' ' || type, ', '), "
            "sum(pk OR \"notnull\" OR dflt_value IS NOT NULL), "
            "(SELECT count(*) FROM %1) FROM pragma_table_info('%1')"_s.arg(table));
    };
    QCOMPARE(fields(u"Fatture"_s),
             u"AziProf TEXT(1), Npag LONG, Creditore TEXT(60), NFat TEXT(10), Del DATETIME, "
             "Memo MEMO TEXT, Descrizione TEXT(50), Aliquota CURRENCY, Importo CURRENCY, "
             "ImportoIVA CURRENCY, AliquotaRA CURRENCY, ImportoPrest CURRENCY, "
             "Contributo CURRENCY, CassaPrev CURRENCY, ImportoRA CURRENCY, "
             "AltriImporti01 CURRENCY|0|0"_s);
    QCOMPARE(fields(u"Spese"_s),
             u"RelNpag LONG, Cod TEXT(10), Descrizione TEXT(50), Importo CURRENCY|0|0"_s);
}

void TestLookups::ledgerFieldsThatMayBeEmpty()
{
    const TestArchive archive;
    const auto written = [&](const QString &table, const QStringList &fields) {
        RowAppender rows(LedgerPath(archive.values()), table);
        QStringList accepted;
        for (const QString &field : fields) {
            rows.add({{field, NewValue()}});
            const QString fault = FaultOf([&] { rows.add({{field, QString()}}); });
            if (fault != Fault(DatabaseFault::ZeroLengthRefused, table, field))
                accepted += field + fault;
        }
        return accepted.join(u' ');
    };
    QCOMPARE(written(u"Fatture"_s, {u"AziProf"_s, u"Creditore"_s, u"NFat"_s, u"Del"_s, u"Memo"_s,
                                    u"Descrizione"_s}),
             u"NFat Del Memo Descrizione"_s);
    QCOMPARE(written(u"Spese"_s, {u"Cod"_s, u"Descrizione"_s}), QString());
}

void TestLookups::ledgerIsNotCreatedOverAnother()
{
    TestArchive archive;
    archive.build().addPayment({{u"Npag"_s, 1}});
    QCOMPARE(FaultOf([&] { CreateLedgerDatabase(ProjectFolder(archive.values())); }),
             Fault(DatabaseFault::FileExists));
    QCOMPARE(archive.ledgerRows(u"SELECT Npag FROM Fatture"_s), u"1"_s);
    QCOMPARE(FaultOf([&] { CreateLedgerDatabase(ProjectFolder(archive.values()) + u"9"_s); }),
             Fault(DatabaseFault::FileMissing));
}

void TestLookups::codesAreMapped()
{
    TestArchive archive;
    archive.build().addCode(u"DA1"_s, u"k9 z"_s, u"Impresa dell'appalto"_s);
    archive.build().addCode(u"DA"_s, u"other"_s, u"Altro"_s);
    archive.build().addCode(u"P97"_s, u"X"_s, QString());
    QCOMPARE(CodiceEsterno(archive.values(), u"DA1"_s), u"k9 z"_s);
    QCOMPARE(CodiceEsterno(archive.values(), u"da1"_s), u"k9 z"_s);
    QCOMPARE(CodiceEsterno(archive.values(), u"D*"_s), QString());
    QCOMPARE(DescrizioneFunzione(archive.values(), u"DA1"_s), u"Impresa dell'appalto"_s);
    QCOMPARE(DescrizioneFunzione(archive.values(), u"P97"_s), QString());
    QCOMPARE(VoceMandato(archive.values(), 4), u"X_4"_s);
}

void TestLookups::unknownAndNullCodes()
{
    const TestArchive archive;
    QCOMPARE(CodiceEsterno(archive.values(), u"DA1"_s), QString());
    QCOMPARE(VoceMandato(archive.values(), 12), u"_12"_s);
    const auto fault = [](DatabaseFault kind, const char *field) {
        return Fault(kind, u"Funzioni"_s, QString::fromLatin1(field));
    };
    QCOMPARE(FaultOf([&] { DescrizioneFunzione(archive.values(), u"DA1"_s); }),
             fault(DatabaseFault::NoCurrentRecord, "Desc"));
    QCOMPARE(FaultOf([&] { AggiornaVoceImporto(archive.values(), u"DA1"_s, 0, Currency()); }),
             fault(DatabaseFault::NoCurrentRecord, "CodExt"));
    QCOMPARE(archive.contractRows(SheetSql), QString());
    archive.execute(CodesPath(archive.values()), u"INSERT INTO Funzioni (CodInt) VALUES ('N')"_s);
    QCOMPARE(FaultOf([&] { CodiceEsterno(archive.values(), u"N"_s); }),
             fault(DatabaseFault::NullValue, "CodExt"));
    QCOMPARE(FaultOf([&] { DescrizioneFunzione(archive.values(), u"N"_s); }),
             fault(DatabaseFault::NullValue, "Desc"));
}

void TestLookups::errorsNameCodeAndItem()
{
    const TestArchive archive;
    const ProgramValues &values = archive.values();
    const QString tooLong(256, u'x'); // for the suite's column
    archive.execute(CodesPath(values),
                    u"PRAGMA ignore_check_constraints = 1; INSERT INTO Funzioni VALUES"
                    " ('QS1T', 'T3', '"_s +
                        tooLong + u"')"_s);
    const auto named = [](const auto &action) {
        try {
            action();
        } catch (const SaldoroError &error) {
            return error.detail(u"Campo"_s) + u'/' + error.detail(u"Codice"_s) + u'/' +
                   error.detail(u"Voce"_s);
        }
        return u"no error"_s;
    };
    QCOMPARE(named([&] { CodiceEsterno(ProgramValues(), u"P97"); }), u"/P97/"_s);
    QCOMPARE(named([&] { DescrizioneFunzione(values, u"QDP"); }), u"Desc/QDP/"_s);
    QCOMPARE(named([&] { AggiornaVoceImporto(values, u"QS1A", 0, {}); }), u"CodExt/QS1A/"_s);
    QCOMPARE(named([&] { AggiornaVoceImporto(values, u"QS1T", 0, {}); }), u"Descri/QS1T/T3"_s);
    QCOMPARE(named([&] { ScriviVoceFile(values, u"F1"_s, 0, tooLong, u"f"_s); }), u"Descri//F1"_s);
    QCOMPARE(named([&] { ScriviVoceStringa(values, tooLong, 0, {}, {}); }), u"Voce//"_s + tooLong);
    QCOMPARE(named([&] { StringaVoceLike(values, u"X_4"_s); }), u"Stringa//X_4"_s);
}

void TestLookups::amountItem()
{
    TestArchive archive;
    archive.build().addCode(u"QS1A"_s, u"T1"_s, u"Totale"_s);
    archive.execute(CodesPath(archive.values()),
                    u"INSERT INTO Funzioni (CodInt, CodExt) VALUES ('QS1P', 'T2')"_s);
    archive.build().addSheetItem({{u"Voce"_s, u"t1"_s}, {u"NomeFile"_s, u"f"_s}, {u"Link"_s, 3}});
    AggiornaVoceImporto(archive.values(), u"QS1A"_s, 17, Currency::fromScaled(12345000));
    AggiornaVoceImporto(archive.values(), u"QS1P"_s, -32768, Currency::fromScaled(-50));
    // The item that was there keeps its key as written; a null description gives an empty one.
    QCOMPARE(archive.contractRows(SheetSql),
             u"t1|17|Totale|€ 1.234,50|12345000|f|3\nT2|-32768||€ -0,01|-50|-|-"_s);
}

void TestLookups::writersUpdateTheFirstMatch()
{
    TestArchive archive;
    for (const QString &item : {u"B"_s, u"b1"_s, u"A"_s, u"b1"_s})
        archive.build().addSheetItem({{u"Voce"_s, item}, {u"Stringa"_s, u"old"_s}});
    ScriviVoceFile(archive.values(), u"B1"_s, 5, u"D'Ù"_s, u"x.rtf"_s);
    ScriviVoceStringa(archive.values(), u"a"_s, 6, u"d"_s, u"line 1\r\nl'ì"_s);
    ScriviVoceStringa(archive.values(), u"C_1"_s, 0, QString(), QString());
    QCOMPARE(archive.contractRows(SheetSql), u"B|-|-|old|-|-|-\n"
                                             "B1|5|D'Ù|old|-|x.rtf|-\n"
                                             "a|6|d|line 1\r\nl'ì|-|-|-\n"
                                             "b1|-|-|old|-|-|-\n"
                                             "C_1|0|||-|-|-"_s);
    // An apostrophe in a key can't be searched for; nothing is written then.
    QCOMPARE(FaultOf([&] { ScriviVoceFile(archive.values(), u"D'1"_s, 0, u"d"_s, u"f"_s); }),
             Fault(DatabaseFault::SyntaxError, u"SchedaProgetto"_s));
    QCOMPARE(itemsOf(archive), u"B B1 a b1 C_1"_s);
}

void TestLookups::descriptionIsCutAt60()
{
    const TestArchive archive;
    for (const QString &character : {u"à"_s, u"😀"_s}) {
        for (const int length : {0, 60, 61}) {
            ScriviVoceStringa(archive.values(), u"X_1"_s, 0, character.repeated(length), u"v"_s);
            QCOMPARE(archive.contractRows(u"SELECT length(Descri) FROM SchedaProgetto"_s),
                     QString::number(qMin(length, 60)));
        }
    }
}

void TestLookups::patterns()
{
    const QString items = u"X_1 X_10 x_1 XA1 Y_2 X%1 Z*"_s;
    // Letter case is nothing, "_" and "%" stand for themselves.
    for (const auto &[pattern, left] :
         {std::pair{u"X_1"_s, u"X_10 XA1 Y_2 X%1 Z* -"_s}, std::pair{u"X_2"_s, items + u" -"_s},
          std::pair{u"x_1*"_s, u"XA1 Y_2 X%1 Z* -"_s}, std::pair{u"*"_s, u"-"_s}}) {
        TestArchive archive;
        for (const QString &item : items.split(u' '))
            archive.build().addSheetItem({{u"Voce"_s, item}});
        archive.execute(ContractPath(archive.values()),
                        u"INSERT INTO SchedaProgetto (Descri) VALUES ('no key')"_s);
        const bool found = pattern != u"X_2";
        QCOMPARE(EsisteVoceLike(archive.values(), pattern), found);
        QCOMPARE(EliminaVociLike(archive.values(), pattern), found);
        QCOMPARE(itemsOf(archive), left);
        QVERIFY(!EliminaVociLike(archive.values(), pattern));
    }
}

void TestLookups::textOfAnItem()
{
    TestArchive archive;
    archive.build().addSheetItem({{u"Voce"_s, u"X_2"_s}, {u"Stringa"_s, u"second"_s}});
    archive.build().addSheetItem({{u"Voce"_s, u"X_1"_s}, {u"Stringa"_s, u"Mandato nr.1"_s}});
    archive.build().addSheetItem({{u"Voce"_s, u"X_3"_s}});
    QCOMPARE(StringaVoceLike(archive.values(), u"x_1"_s), u"Mandato nr.1"_s);
    QCOMPARE(StringaVoceLike(archive.values(), u"X*"_s), u"Mandato nr.1"_s);
    QCOMPARE(StringaVoceLike(archive.values(), u"X_3"_s), QString());
    QCOMPARE(FaultOf([&] { StringaVoceLike(archive.values(), u"X_4"_s); }),
             Fault(DatabaseFault::NoCurrentRecord, u"SchedaProgetto"_s, u"Stringa"_s));
}

void TestLookups::aMissingFieldStopsTheWholeItem()
{
    const TestArchive archive;
    const ProgramValues &values = archive.values();
    const auto write = [&] { ScriviVoceFile(values, u"A"_s, 0, u"d"_s, u"f"_s); };
    archive.execute(ContractPath(values), u"ALTER TABLE SchedaProgetto DROP COLUMN NomeFile"_s);
    QCOMPARE(FaultOf(write),
             Fault(DatabaseFault::FieldMissing, u"SchedaProgetto"_s, u"NomeFile"_s));
    QCOMPARE(archive.contractRows(u"SELECT count(*) FROM SchedaProgetto"_s), u"0"_s);
}

QTEST_GUILESS_MAIN(TestLookups)
#include "test_lookups.moc"
