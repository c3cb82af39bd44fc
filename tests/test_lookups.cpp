#include "common/errors.h"
#include "platform/database.h"
#include "platform/machine_path.h"
#include "store/code_lookups.h"
#include "store/ledger.h"
#include "test_archive.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <functional>
#include <limits>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

/** What an action ran into: "<fault number> <file> <table> <field>", or "none". */
QString failureOf(const std::function<void()> &action)
{
    try {
        action();
    } catch (const DatabaseError &error) {
        return u"%1 %2 %3 %4"_s.arg(static_cast<int>(error.fault()))
            .arg(QFileInfo(error.detail(u"File"_s)).fileName(), error.detail(u"Tabella"_s),
                 error.detail(u"Campo"_s))
            .trimmed();
    }
    return u"none"_s;
}

QString failure(DatabaseFault fault, const QString &place)
{
    return (QString::number(static_cast<int>(fault)) + u' ' + place).trimmed();
}

/** Whether an action ends with an error of that kind. */
bool failsWith(DatabaseFault fault, const std::function<void()> &action)
{
    return failureOf(action).section(u' ', 0, 0) == QString::number(static_cast<int>(fault));
}

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
    void ledgerFieldTakesWhatItsDefinitionSays_data();
    void ledgerFieldTakesWhatItsDefinitionSays();
    void ledgerAcceptsAUsedNumber();
    void ledgerIsNotCreatedOverAnother();
    void codesAreMapped();
    void unknownAndNullCodes();
    void amountItem_data();
    void amountItem();
    void amountItemOfAnUnknownCodeWritesNothing();
    void writersUpdateTheFirstMatch();
    void descriptionIsCutAt60_data();
    void descriptionIsCutAt60();
    void patterns_data();
    void patterns();
    void textOfAnItem();
    void missingFilesTablesAndFieldsAreNamed();
    void theFileNamesMayBeInOtherLetterCase();
};

void TestLookups::ledgerHoldsTwoEmptyTables()
{
    const TestArchive archive;
    QCOMPARE(archive.ledgerRows(u"SELECT type, name FROM sqlite_master"_s),
             u"table|Fatture\ntable|Spese"_s);
    QCOMPARE(archive.ledgerRows(u"SELECT group_concat(name, ' ') FROM pragma_table_info('Fatture')"
                                " UNION ALL SELECT group_concat(name, ' ') FROM"
                                " pragma_table_info('Spese')"_s),
             u"AziProf Npag Creditore NFat Del Memo Descrizione Aliquota Importo ImportoIVA"
             " AliquotaRA ImportoPrest Contributo CassaPrev ImportoRA AltriImporti01\n"
             "RelNpag Cod Descrizione Importo"_s);
    QCOMPARE(archive.ledgerRows(u"SELECT count(*) FROM pragma_table_info('Fatture') WHERE pk"
                                " OR \"notnull\" OR dflt_value IS NOT NULL"_s),
             u"0"_s);
    QCOMPARE(archive.ledgerRows(u"SELECT count(*) FROM pragma_table_info('Fatture') WHERE"
                                " type = 'CURRENCY' UNION ALL SELECT count(*) FROM"
                                " pragma_table_info('Spese') WHERE type = 'CURRENCY'"_s),
             u"9\n1"_s);
    QCOMPARE(archive.ledgerRows(u"SELECT (SELECT count(*) FROM Fatture)"
                                " + (SELECT count(*) FROM Spese)"_s),
             u"0"_s);
}

void TestLookups::ledgerFieldTakesWhatItsDefinitionSays_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("field");
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("zeroLength");
    QTest::newRow("kind") << u"Fatture"_s << u"AziProf"_s << 1 << false;
    QTest::newRow("creditor") << u"Fatture"_s << u"Creditore"_s << 60 << false;
    QTest::newRow("number") << u"Fatture"_s << u"NFat"_s << 10 << true;
    QTest::newRow("note") << u"Fatture"_s << u"Memo"_s << 0 << true;
    QTest::newRow("description") << u"Fatture"_s << u"Descrizione"_s << 50 << true;
    QTest::newRow("code") << u"Spese"_s << u"Cod"_s << 10 << false;
    QTest::newRow("item") << u"Spese"_s << u"Descrizione"_s << 50 << false;
    QTest::newRow("day") << u"Fatture"_s << u"Del"_s << -1 << true;
}

void TestLookups::ledgerFieldTakesWhatItsDefinitionSays()
{
    QFETCH(QString, table);
    QFETCH(QString, field);
    QFETCH(int, size);
    QFETCH(bool, zeroLength);
    const TestArchive archive;
    const auto write = [&](const QString &text) {
        return failureOf([&] {
            RowAppender(LedgerPath(archive.values()), table).add({{field, text}});
        });
    };
    const QString place = u"Saldoro.mdb "_s + table + u' ' + field;
    QCOMPARE(write({}), zeroLength ? u"none"_s : failure(DatabaseFault::ZeroLengthRefused, place));
    const QString longText = size == 0 ? QString(100000, u'è') : QString(qMax(size, 0), u'è');
    if (size >= 0) {
        QCOMPARE(write(longText), u"none"_s);
        QCOMPARE(archive.ledgerRows(u"SELECT max(length(%1)) FROM %2"_s.arg(field, table)),
                 QString::number(longText.size()));
    }
    if (size > 0) {
        QCOMPARE(write(longText + u'x'), failure(DatabaseFault::FieldTooSmall, place));
    }
    RowAppender(LedgerPath(archive.values()), table).add({{field, NewValue()}});
    QCOMPARE(archive.ledgerRows(u"SELECT count(*) FROM %2 WHERE %1 IS NULL"_s.arg(field, table)),
             u"1"_s);
}

void TestLookups::ledgerAcceptsAUsedNumber()
{
    TestArchive archive;
    const qint32 number = std::numeric_limits<qint32>::max();
    archive.build().addPayment({{u"Npag"_s, number}, {u"Importo"_s, Currency::fromScaled(-1)}});
    archive.build().addPayment({{u"Npag"_s, number}, {u"Del"_s, QDate(2025, 2, 28)}});
    archive.build().addAllocation(number, u"A01"_s, u"Lavori"_s, std::nullopt);
    QCOMPARE(archive.ledgerRows(u"SELECT Npag, Importo, Del, AziProf FROM Fatture"_s),
             u"2147483647|-1|-|-\n2147483647|-|2025-02-28|-"_s);
    QCOMPARE(archive.ledgerRows(u"SELECT RelNpag, Cod, Importo FROM Spese"_s),
             u"2147483647|A01|-"_s);
}

void TestLookups::ledgerIsNotCreatedOverAnother()
{
    TestArchive archive;
    archive.build().addPayment({{u"Npag"_s, 1}});
    QVERIFY(failsWith(DatabaseFault::FileExists,
                      [&] { CreateLedgerDatabase(ProjectFolder(archive.values())); }));
    QCOMPARE(archive.ledgerRows(u"SELECT Npag FROM Fatture"_s), u"1"_s);
    QVERIFY(failsWith(DatabaseFault::FileMissing,
                      [&] { CreateLedgerDatabase(ProjectFolder(archive.values()) + u"9"_s); }));
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
    QVERIFY(failsWith(DatabaseFault::NoCurrentRecord,
                      [&] { DescrizioneFunzione(archive.values(), u"DA1"_s); }));
    archive.execute(CodesPath(archive.values()), u"INSERT INTO Funzioni (CodInt) VALUES ('N')"_s);
    const QString table = u"chiavi.mdb Funzioni "_s;
    QCOMPARE(failureOf([&] { CodiceEsterno(archive.values(), u"N"_s); }),
             failure(DatabaseFault::NullValue, table + u"CodExt"_s));
    QCOMPARE(failureOf([&] { DescrizioneFunzione(archive.values(), u"N"_s); }),
             failure(DatabaseFault::NullValue, table + u"Desc"_s));
}

void TestLookups::amountItem_data()
{
    QTest::addColumn<qint64>("scaled");
    QTest::addColumn<QString>("text");
    QTest::newRow("thousands") << qint64{12345000} << u"€ 1.234,50"_s;
    QTest::newRow("zero") << qint64{0} << u"€ 0,00"_s;
    QTest::newRow("half a cent down") << qint64{-50} << u"€ -0,01"_s;
    QTest::newRow("largest") << std::numeric_limits<qint64>::max() << u"€ 922.337.203.685.477,58"_s;
}

void TestLookups::amountItem()
{
    QFETCH(qint64, scaled);
    QFETCH(QString, text);
    TestArchive archive;
    archive.build().addCode(u"QS1A"_s, u"T1"_s, u"Totale"_s);
    archive.execute(CodesPath(archive.values()),
                    u"INSERT INTO Funzioni (CodInt, CodExt) VALUES ('QS1P', 'T2')"_s);
    archive.build().addSheetItem({{u"Voce"_s, u"t1"_s}, {u"NomeFile"_s, u"f"_s}, {u"Link"_s, 3}});
    const Currency amount = Currency::fromScaled(scaled);
    AggiornaVoceImporto(archive.values(), u"QS1A"_s, 17, amount);
    AggiornaVoceImporto(archive.values(), u"QS1P"_s, -32768, amount);
    // The item that was there keeps its key as written; a null description gives an empty one.
    QCOMPARE(archive.contractRows(SheetSql),
             u"t1|17|Totale|%1|%2|f|3\nT2|-32768||%1|%2|-|-"_s.arg(text, QString::number(scaled)));
}

void TestLookups::amountItemOfAnUnknownCodeWritesNothing()
{
    const TestArchive archive;
    QVERIFY(failsWith(DatabaseFault::NoCurrentRecord,
                      [&] { AggiornaVoceImporto(archive.values(), u"QS1A"_s, 0, Currency()); }));
    QCOMPARE(archive.contractRows(SheetSql), QString());
}

void TestLookups::writersUpdateTheFirstMatch()
{
    TestArchive archive;
    for (const QString &item : {u"B"_s, u"b1"_s, u"A"_s, u"b1"_s}) {
        archive.build().addSheetItem({{u"Voce"_s, item}, {u"Stringa"_s, u"old"_s}});
    }
    ScriviVoceFile(archive.values(), u"B1"_s, 5, u"D'Ù"_s, u"x.rtf"_s);
    ScriviVoceStringa(archive.values(), u"a"_s, 6, u"d"_s, u"line 1\r\nl'ì"_s);
    ScriviVoceStringa(archive.values(), u"C_1"_s, 0, QString(), QString());
    QCOMPARE(archive.contractRows(SheetSql), u"B|-|-|old|-|-|-\n"
                                             "B1|5|D'Ù|old|-|x.rtf|-\n"
                                             "a|6|d|line 1\r\nl'ì|-|-|-\n"
                                             "b1|-|-|old|-|-|-\n"
                                             "C_1|0|||-|-|-"_s);
    // An apostrophe in a key can't be searched for; nothing is written then.
    QVERIFY(failsWith(DatabaseFault::SyntaxError,
                      [&] { ScriviVoceFile(archive.values(), u"D'1"_s, 0, u"d"_s, u"f"_s); }));
    QCOMPARE(itemsOf(archive), u"B B1 a b1 C_1"_s);
}

void TestLookups::descriptionIsCutAt60_data()
{
    QTest::addColumn<QString>("description");
    QTest::addColumn<int>("kept");
    QTest::newRow("exactly 60") << QString(60, u'à') << 60;
    QTest::newRow("61") << QString(61, u'à') << 60;
    QTest::newRow("60 beyond the basic plane") << u"😀"_s.repeated(60) << 60;
    QTest::newRow("61 beyond the basic plane") << u"😀"_s.repeated(61) << 60;
    QTest::newRow("empty") << QString() << 0;
}

void TestLookups::descriptionIsCutAt60()
{
    QFETCH(QString, description);
    QFETCH(int, kept);
    const TestArchive archive;
    ScriviVoceStringa(archive.values(), u"X_1"_s, 0, description, u"v"_s);
    QCOMPARE(archive.contractRows(u"SELECT length(Descri) FROM SchedaProgetto"_s),
             QString::number(kept));
}

void TestLookups::patterns_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("left");
    const QString all = u"X_1 X_10 x_1 XA1 Y_2 X%1 Z*"_s;
    QTest::newRow("exact, every letter case") << u"X_1"_s << u"X_10 XA1 Y_2 X%1 Z*"_s;
    QTest::newRow("no match") << u"X_2"_s << all;
    QTest::newRow("a part is no match") << u"X"_s << all;
    QTest::newRow("three items") << u"x_1*"_s << u"XA1 Y_2 X%1 Z*"_s;
    QTest::newRow("one character") << u"X?1"_s << u"X_10 Y_2 Z*"_s;
    QTest::newRow("percent is plain") << u"X%1"_s << u"X_1 X_10 x_1 XA1 Y_2 Z*"_s;
    QTest::newRow("listed") << u"[YZ]*"_s << u"X_1 X_10 x_1 XA1 X%1"_s;
    QTest::newRow("empty") << QString() << all;
    QTest::newRow("all") << u"*"_s << QString();
}

void TestLookups::patterns()
{
    QFETCH(QString, pattern);
    QFETCH(QString, left);
    TestArchive archive;
    const QStringList items{u"X_1"_s, u"X_10"_s, u"x_1"_s, u"XA1"_s, u"Y_2"_s, u"X%1"_s, u"Z*"_s};
    for (const QString &item : items) {
        archive.build().addSheetItem({{u"Voce"_s, item}});
    }
    archive.execute(ContractPath(archive.values()),
                    u"INSERT INTO SchedaProgetto (Descri) VALUES ('no key')"_s);
    const bool found = left != items.join(u' ');
    QCOMPARE(EsisteVoceLike(archive.values(), pattern), found);
    QCOMPARE(EliminaVociLike(archive.values(), pattern), found);
    QCOMPARE(itemsOf(archive), (left + u" -"_s).trimmed());
    QVERIFY(!EliminaVociLike(archive.values(), pattern));
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
    QVERIFY(failsWith(DatabaseFault::NoCurrentRecord,
                      [&] { StringaVoceLike(archive.values(), u"X_4"_s); }));
}

void TestLookups::missingFilesTablesAndFieldsAreNamed()
{
    const TestArchive archive;
    const ProgramValues &values = archive.values();
    const auto write = [&] { ScriviVoceFile(values, u"A"_s, 0, u"d"_s, u"f"_s); };
    archive.execute(ContractPath(values), u"ALTER TABLE SchedaProgetto DROP COLUMN NomeFile"_s);
    QCOMPARE(failureOf(write),
             failure(DatabaseFault::FieldMissing, u"Appalto.mdb SchedaProgetto NomeFile"_s));
    QCOMPARE(archive.contractRows(u"SELECT count(*) FROM SchedaProgetto"_s), u"0"_s);
    archive.execute(ContractPath(values), u"DROP TABLE SchedaProgetto"_s);
    QCOMPARE(failureOf(write),
             failure(DatabaseFault::TableMissing, u"Appalto.mdb SchedaProgetto"_s));
    for (const QString &path : {ContractPath(values), CodesPath(values)}) {
        QVERIFY(QFile::remove(MachinePath(path)));
    }
    QCOMPARE(failureOf(write), failure(DatabaseFault::FileMissing, u"Appalto.mdb"_s));
    QCOMPARE(failureOf([&] { EsisteVoceLike(values, u"A"_s); }),
             failure(DatabaseFault::FileMissing, u"Appalto.mdb"_s));
    QCOMPARE(failureOf([&] { CodiceEsterno(values, u"DA1"_s); }),
             failure(DatabaseFault::FileMissing, u"chiavi.mdb"_s));
    QVERIFY(!QFile::exists(MachinePath(ContractPath(values))));
}

void TestLookups::theFileNamesMayBeInOtherLetterCase()
{
    if (QSysInfo::kernelType() == u"winnt"_s) {
        QSKIP("The disk takes every letter case here");
    }
    TestArchive archive;
    archive.build().addStandardCodes();
    const QFileInfo codes(MachinePath(CodesPath(archive.values())));
    QVERIFY(QFile::rename(codes.filePath(), codes.path() + u"/Chiavi.MDB"_s));
    QVERIFY(QDir(codes.path()).rename(codes.path(), codes.path() + u"/../Tabelle"_s));
    QCOMPARE(CodiceEsterno(archive.values(), u"DA1"_s), StandardCodes().first().externalCode);
}

QTEST_GUILESS_MAIN(TestLookups)
#include "test_lookups.moc"
