#include "database_probe.h"

#include <QRandomGenerator>

#include <cmath>
#include <limits>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

constexpr qint64 LeastScaled = std::numeric_limits<qint64>::min();
constexpr qint64 MostScaled = std::numeric_limits<qint64>::max();

void add(RecordSet &set, int number, const QString &code, const NewValue &amount = {})
{
    set.addNew();
    set.set(u"Npag"_s, number);
    set.set(u"Cod"_s, code);
    set.set(u"Importo"_s, amount);
    set.update();
}

} // namespace

class RecordSetTest : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    int m_files = 0;
    QString m_path;

    /** A new file with the table Voci. */
    Database database()
    {
        m_path = m_folder.filePath(u"voci%1.mdb"_s.arg(++m_files));
        Database database = Database::create(m_path, {});
        TableDef table(u"Voci"_s);
        table.appendField(u"Npag"_s, FieldType::Long);
        table.appendField(u"Cod"_s, FieldType::Text, 10);
        table.appendField(u"Importo"_s, FieldType::Currency);
        table.appendField(u"Breve"_s, FieldType::Integer);
        table.appendField(u"Tasso"_s, FieldType::Double);
        table.appendField(u"Del"_s, FieldType::Date);
        table.appendField(u"Note"_s, FieldType::Memo);
        table.field(u"Del"_s).allowZeroLength = true;
        database.appendTableDef(table);
        return database;
    }

    QString stored(const QString &sql) { return DirectConnection(m_path).run(sql); }
    QString numbers() { return stored(u"SELECT Npag FROM Voci"_s).replace(u'\n', u' '); }

    /** The same with the payments 1 to 5, whose codes are A, b, a, NULL, B. */
    Database filled()
    {
        Database result = database();
        stored(u"INSERT INTO Voci(Npag, Cod) VALUES(1,'A'),(2,'b'),(3,'a'),(4,NULL),(5,'B')"_s);
        return result;
    }

private slots:
    void emptySets()
    {
        const Database file = database();
        RecordSet set = file.openRecordSet(u"SELECT * FROM Voci ORDER BY Npag "_s);
        QVERIFY(set.eof() && set.isEmpty());
        const QString none = Fault(DatabaseFault::NoCurrentRecord, u"Voci"_s);
        QCOMPARE(FaultOf([&] { set.moveNext(); }), none);
        QCOMPARE(FaultOf([&] { set.edit(); }), none);
        QCOMPARE(FaultOf([&] { set.deleteRecord(); }), none);
        QCOMPARE(FaultOf([&] { (void)set.field(u"Npag"_s); }),
                 Fault(DatabaseFault::NoCurrentRecord, u"Voci"_s, u"Npag"_s));
        QCOMPARE(FaultOf([&] { (void)set.field(u"Manca"_s); }),
                 Fault(DatabaseFault::FieldMissing, u"Voci"_s, u"Manca"_s));
        set.findNext(u"Npag = 1"_s);
        QVERIFY(set.noMatch() && set.eof());
        set.moveFirst();
        set.moveLast();
        add(set, 1, u"x"_s);
        QVERIFY(!set.isEmpty() && set.eof()); // there was no current record, so there is none now
        set.moveLast();
        QCOMPARE(set.field(u"cod"_s).text(), u"x"_s);
        set.close();
        QCOMPARE(FaultOf([&] { (void)set.eof(); }), Fault(DatabaseFault::NoCurrentRecord));
    }

    void recordsAreThoseOfTheFirstUse()
    {
        const Database file = filled();
        RecordSet set = file.openRecordSet(u"SELECT * FROM Voci ORDER BY Npag"_s);
        stored(u"DELETE FROM Voci WHERE Npag > 3"_s);
        QCOMPARE(set.recordCount(), 3);
        stored(u"DELETE FROM Voci WHERE Npag = 2"_s);
        QCOMPARE(Walk(set, u"Npag"_s), u"1 2 3"_s);
        set.findFirst(u"Npag = 2"_s);
        set.edit();
        set.set(u"Cod"_s, u"z"_s);
        QCOMPARE(FaultOf([&] { set.update(); }), Fault(DatabaseFault::RecordGone, u"Voci"_s));
        set.deleteRecord(); // gone is what it should be
        QCOMPARE(Walk(set, u"Npag"_s), u"1 3"_s);
        QCOMPARE(numbers(), u"1 3"_s);
    }

    void finds_data()
    {
        QTest::addColumn<QString>("criterion");
        QTest::addColumn<QString>("found");
        const auto row = [](const QString &criterion, const QString &found) {
            QTest::newRow(qPrintable(criterion)) << criterion << found;
        };
        row(u"Npag =3"_s, u"3"_s);
        row(u"npag = 9"_s, {});
        row(u"Cod = 'A'"_s, u"1 3"_s);
        row(u"Cod = 'b'"_s, u"2 5"_s);
        row(u"Cod = ''"_s, {});
        row(u"Cod Like '*'"_s, u"1 2 3 5"_s);
        row(u"Cod Like '[b-z]'"_s, u"2 5"_s);
        row(u"Npag Like '[45]'"_s, u"4 5"_s);
        row(u"Importo = 922337203685478"_s, {}); // beyond any amount
    }

    void finds()
    {
        QFETCH(QString, criterion);
        QFETCH(QString, found);
        const Database file = filled();
        RecordSet set = file.openRecordSet(u"SELECT * FROM Voci"_s);
        QCOMPARE(FindAll(set, criterion, u"Npag"_s), found);
        QVERIFY(set.noMatch());
        QCOMPARE(FaultOf([&] { (void)set.field(0); }),
                 Fault(DatabaseFault::NoCurrentRecord, u"Voci"_s, u"Npag"_s));
        QCOMPARE(FindAll(set, criterion, u"Npag"_s), found); // a second time, from the start
    }

    void criteriaThatDoNotFit()
    {
        const Database file = filled();
        RecordSet set = file.openRecordSet(u"SELECT * FROM Voci"_s);
        const auto fault = [&](const QString &criterion) {
            return FaultOf([&] { set.findFirst(criterion); });
        };
        QCOMPARE(fault(u"Cod = 1"_s), Fault(DatabaseFault::TypeMismatch, u"Voci"_s, u"Cod"_s));
        QCOMPARE(fault(u"Npag = '1'"_s), Fault(DatabaseFault::TypeMismatch, u"Voci"_s, u"Npag"_s));
        QCOMPARE(fault(u"No = 1"_s), Fault(DatabaseFault::FieldMissing, u"Voci"_s, u"No"_s));
        QCOMPARE(fault(u"Cod = 'l'a'"_s), Fault(DatabaseFault::SyntaxError, u"Voci"_s));
        QCOMPARE(fault(u"Cod Like '[a'"_s), Fault(DatabaseFault::SyntaxError, u"Voci"_s, u"Cod"_s));
    }

    void deletedRecordsArePassedOver()
    {
        const Database file = filled();
        RecordSet set = file.openRecordSet(u"SELECT * FROM Voci ORDER BY Npag DESC"_s);
        set.moveNext();
        set.deleteRecord();
        QCOMPARE(set.recordCount(), 4);
        QCOMPARE(FaultOf([&] { (void)set.field(u"Npag"_s); }),
                 Fault(DatabaseFault::NoCurrentRecord, u"Voci"_s, u"Npag"_s));
        QCOMPARE(FaultOf([&] { set.deleteRecord(); }),
                 Fault(DatabaseFault::NoCurrentRecord, u"Voci"_s));
        set.moveNext();
        QCOMPARE(set.field(u"Npag"_s).integer(), 3);
        set.moveLast();
        set.deleteRecord();
        set.moveNext();
        QVERIFY(set.eof());
        QCOMPARE(Walk(set, u"Npag"_s), u"5 3 2"_s);
        while (!set.isEmpty()) {
            set.moveFirst();
            set.deleteRecord();
        }
        QVERIFY(set.eof());
        QCOMPARE(numbers(), QString());
    }

    /** Random changes, after each of which finding and walking agree with the file. */
    void changesInAnyOrder()
    {
        const Database file = database();
        RecordSet set = file.openRecordSet(u"SELECT * FROM Voci"_s);
        QRandomGenerator random(20020303);
        for (int step = 0; step < 120; ++step) {
            const QString code = QString(QChar(u'a' + random.bounded(4)));
            set.findFirst(u"Cod = '%1'"_s.arg(code));
            for (int skipped = random.bounded(3); skipped > 0 && !set.noMatch(); --skipped)
                set.findNext(u"Cod = '%1'"_s.arg(code));
            const int action = random.bounded(4);
            if (set.noMatch() || action < 2) {
                add(set, step, code);
            } else if (action == 2) {
                set.deleteRecord();
            } else {
                set.edit();
                set.set(u"Cod"_s, QString(QChar(u'A' + random.bounded(4))));
                set.update();
            }
            const QString rows = stored(u"SELECT Npag FROM Voci WHERE Cod = '%1' "
                                        "COLLATE NOCASE ORDER BY Npag"_s.arg(code));
            QCOMPARE(FindAll(set, u"Cod = '%1'"_s.arg(code), u"Npag"_s),
                     QString(rows).replace(u'\n', u' '));
        }
        QCOMPARE(Walk(set, u"Npag"_s), numbers());
    }

    void unsetFieldsAreNullAndOnlySetOnesAreWritten()
    {
        const Database file = database();
        RecordSet set = file.openRecordSet(u"SELECT * FROM Voci"_s);
        add(set, 1, u"x"_s, Currency::fromScaled(5));
        set.moveFirst();
        QVERIFY(set.field(u"Note"_s).isNull() && !set.field(u"Importo"_s).isNull());
        QCOMPARE(set.field(u"Note"_s).textOrEmpty(), QString());
        QVERIFY(!set.field(u"Tasso"_s).currencyOrNone() &&
                !set.field(u"Del"_s).dateOrNone().isValid());
        const FieldValue null = set.field(u"Breve"_s);
        const QString fault = Fault(DatabaseFault::NullValue, u"Voci"_s, u"Breve"_s);
        QCOMPARE(FaultOf([&] { (void)null.text(); }), fault);
        QCOMPARE(FaultOf([&] { (void)null.integer(); }), fault);
        QCOMPARE(FaultOf([&] { (void)null.currency(); }), fault);
        QCOMPARE(FaultOf([&] { (void)null.date(); }), fault);
        stored(u"UPDATE Voci SET Note = 'di altri'"_s);
        set.edit();
        set.set(u"Cod"_s, std::monostate());
        set.update();
        QCOMPARE(stored(u"SELECT Npag, Cod, Importo, Note FROM Voci"_s), u"1|-|5|di altri"_s);
        QCOMPARE(set.field(u"Note"_s).text(), u"di altri"_s); // as the file holds it now
        const QString outside = Fault(DatabaseFault::Other, u"Voci"_s, u"Cod"_s);
        QCOMPARE(FaultOf([&] { set.set(u"Cod"_s, u"y"_s); }), outside);
        set.edit();
        set.set(u"Cod"_s, u"y"_s);
        set.moveFirst(); // leaves the change
        QVERIFY(!FaultOf([&] { set.update(); }).isEmpty());
        QVERIFY(set.field(u"Cod"_s).isNull());
    }

    void valuesComeBackAsWritten_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<NewValue>("value");
        QTest::addColumn<QString>("kept"); // type and value in the file
        QTest::addColumn<QString>("text");
        const auto row = [](const char *name, const QString &field, const NewValue &value,
                            const QString &kept, const QString &text) {
            QTest::newRow(name) << field << value << kept << text;
        };
        const auto amount = [](qint64 scaled) { return Currency::fromScaled(scaled); };
        row("most", u"Importo"_s, amount(MostScaled), u"integer 9223372036854775807"_s,
            u"922337203685477.5807"_s);
        row("least", u"Importo"_s, amount(LeastScaled), u"integer -9223372036854775808"_s,
            u"-922337203685477.5808"_s);
        row("beyond doubles", u"Importo"_s, amount((qint64{1} << 53) + 1),
            u"integer 9007199254740993"_s, u"900719925474.0993"_s);
        row("whole to amount", u"Importo"_s, 12, u"integer 120000"_s, u"12"_s);
        row("half down", u"Importo"_s, 0.00025, u"integer 2"_s, u"0.0002"_s);
        row("half up", u"Importo"_s, 0.00075, u"integer 8"_s, u"0.0008"_s);
        row("amount to whole", u"Npag"_s, amount(25000), u"integer 2"_s, u"2"_s);
        row("least long", u"Npag"_s, std::numeric_limits<qint32>::min(), u"integer -2147483648"_s,
            u"-2147483648"_s);
        row("rate", u"Tasso"_s, 0.1, u"real 0.1"_s, u"0.1"_s);
        row("day", u"Del"_s, QDate(2002, 3, 9), u"text 2002-03-09"_s, u"09/03/2002"_s);
        row("day as text", u"Del"_s, u"09/03/2002"_s, u"text 2002-03-09"_s, u"09/03/2002"_s);
        row("no day", u"Del"_s, QString(), u"text "_s, {});
        row("digits stay text", u"Note"_s, u"007"_s, u"text 007"_s, u"007"_s);
        row("exponent stays text", u"Cod"_s, u"1e5"_s, u"text 1e5"_s, u"1e5"_s);
        row("mark at the front", u"Cod"_s, u"\uFEFFa"_s, u"text \uFEFFa"_s, u"\uFEFFa"_s);
        row("ten characters", u"Cod"_s, u"€àèìòù😀😀😀😀"_s, u"text €àèìòù😀😀😀😀"_s, u"€àèìòù😀😀😀😀"_s);
    }

    void valuesComeBackAsWritten()
    {
        QFETCH(QString, field);
        QFETCH(NewValue, value);
        QFETCH(QString, kept);
        const Database file = database();
        RecordSet set = file.openRecordSet(u"SELECT * FROM Voci"_s);
        set.addNew();
        set.set(field, value);
        set.update();
        set.moveFirst();
        QTEST(set.field(field).text(), "text");
        QCOMPARE(stored(u"SELECT typeof(%1) || ' ' || %1 FROM Voci"_s.arg(field)), kept);
        RecordSet again = file.openRecordSet(u"SELECT * FROM Voci"_s);
        QTEST(again.field(field).text(), "text");
        if (const auto *amount = std::get_if<Currency>(&value); amount && field == u"Importo")
            QCOMPARE(again.field(field).currency().scaled(), amount->scaled());
    }

    void valuesThatAreRefused_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<NewValue>("value");
        QTest::addColumn<DatabaseFault>("fault");
        const auto row = [](const char *name, const QString &field, const NewValue &value,
                            DatabaseFault fault) {
            QTest::newRow(name) << field << value << fault;
        };
        row("long text", u"Cod"_s, u"12345678901"_s, DatabaseFault::FieldTooSmall);
        row("empty text", u"Cod"_s, QString(), DatabaseFault::ZeroLengthRefused);
        row("text for a number", u"Npag"_s, u"3"_s, DatabaseFault::TypeMismatch);
        row("impossible day", u"Del"_s, u"31/02/2002"_s, DatabaseFault::TypeMismatch);
        row("number for a day", u"Del"_s, 3, DatabaseFault::TypeMismatch);
        row("beyond short", u"Breve"_s, -32769, DatabaseFault::FieldTooSmall);
        row("beyond long", u"Npag"_s, 2147483647.5, DatabaseFault::FieldTooSmall);
        row("no number", u"Npag"_s, std::nan(""), DatabaseFault::FieldTooSmall);
        row("beyond amounts", u"Importo"_s, 1e15, DatabaseFault::FieldTooSmall);
        row("no field", u"Manca"_s, 1, DatabaseFault::FieldMissing);
    }

    void valuesThatAreRefused()
    {
        QFETCH(QString, field);
        QFETCH(NewValue, value);
        QFETCH(DatabaseFault, fault);
        const Database file = database();
        RecordSet set = file.openRecordSet(u"SELECT * FROM Voci"_s);
        set.addNew();
        QCOMPARE(FaultOf([&] { set.set(field, value); }), Fault(fault, u"Voci"_s, field));
    }

    void storedValuesOfTheWrongKind()
    {
        const Database file = database();
        stored(u"INSERT INTO Voci(Npag, Importo, Del, Cod, Breve) VALUES"
               "('x', 'y', 'ieri', CAST(x'61FF62' AS TEXT), 3000000000),"
               "(NULL, NULL, '2002-03-09 10:20:30', x'6162', NULL)"_s);
        RecordSet set = file.openRecordSet(u"SELECT * FROM Voci"_s);
        const auto mismatch = [](const QString &field) {
            return Fault(DatabaseFault::TypeMismatch, u"Voci"_s, field);
        };
        QCOMPARE(FaultOf([&] { (void)set.field(u"Npag"_s).integer(); }), mismatch(u"Npag"_s));
        QCOMPARE(FaultOf([&] { (void)set.field(u"Importo"_s).currency(); }),
                 mismatch(u"Importo"_s));
        QCOMPARE(FaultOf([&] { (void)set.field(u"Del"_s).date(); }), mismatch(u"Del"_s));
        QVERIFY(!set.field(u"Del"_s).dateOrNone().isValid());
        QCOMPARE(set.field(u"Cod"_s).text(), u"a\u00FFb"_s);
        QCOMPARE(FaultOf([&] { (void)set.field(u"Breve"_s).integer(); }),
                 Fault(DatabaseFault::FieldTooSmall, u"Voci"_s, u"Breve"_s));
        set.moveNext();
        QCOMPARE(set.field(u"Del"_s).date(), QDate(2002, 3, 9));
        QCOMPARE(set.field(u"Cod"_s).text(), u"ab"_s);
    }

    /** Tables as other programs make them: keys, other words for the types, rules of their own. */
    void tablesOfOtherPrograms()
    {
        const Database file = database();
        stored(u"CREATE TABLE Anag(ID INTEGER PRIMARY KEY, Nome VARCHAR(5) NOT NULL UNIQUE, "
               "Quota NUMERIC(10,2), Tipo TEXT NOT NULL DEFAULT 'ATI', Doppia AS (Quota * 2));"
               "CREATE TABLE Chiave(k TEXT PRIMARY KEY, v INTEGER) WITHOUT ROWID;"
               "INSERT INTO Chiave VALUES('B', 2), ('a', 1)"_s);
        RecordSet set = file.openRecordSet(u"select * from anag where nome <> 'x' order by NOME"_s);
        QVERIFY(set.eof());
        for (const QString &name : {u"Verdi"_s, u"bossi"_s, u"Àlba"_s}) {
            set.addNew();
            set.set(u"Nome"_s, name);
            set.set(u"Quota"_s, Currency::fromScaled(15000));
            set.update();
        }
        set.moveLast();
        QCOMPARE(set.field(u"id"_s).integer(), 3); // given by the file
        QCOMPARE(set.field(u"Tipo"_s).text(), u"ATI"_s);
        QCOMPARE(set.field(u"Doppia"_s).text(), u"3"_s);
        QCOMPARE(set.field(u"Quota"_s).currency().scaled(), 15000);
        set.edit();
        set.set(u"ID"_s, 9);
        set.update();
        set.edit();
        set.set(u"Tipo"_s, u"X"_s);
        set.update(); // follows the record under its new key
        QCOMPARE(FindAll(set, u"ID = 9"_s, u"Tipo"_s), u"X"_s);
        set.addNew();
        QCOMPARE(FaultOf([&] { set.set(u"Nome"_s, u"sei+++"_s); }),
                 Fault(DatabaseFault::FieldTooSmall, u"anag"_s, u"Nome"_s));
        QCOMPARE(FaultOf([&] { set.update(); }),
                 Fault(DatabaseFault::NullValue, u"anag"_s, u"Nome"_s));
        set.set(u"Nome"_s, u"Verdi"_s);
        QCOMPARE(FaultOf([&] { set.update(); }), Fault(DatabaseFault::Other, u"anag"_s));
        RecordSet sorted = file.openRecordSet(u"SELECT * FROM Anag ORDER BY Nome"_s);
        QCOMPARE(Walk(sorted, u"Nome"_s), u"Àlba bossi Verdi"_s);
        RecordSet equal = file.openRecordSet(u"SELECT * FROM Anag WHERE Nome = 'àLBA'"_s);
        QCOMPARE(Walk(equal, u"ID"_s), u"9"_s);
        RecordSet keyed = file.openRecordSet(u"SELECT * FROM Chiave ORDER BY k"_s);
        QCOMPARE(Walk(keyed, u"k"_s), u"a B"_s);
        QCOMPARE(FaultOf([&] { keyed.addNew(); }), Fault(DatabaseFault::ReadOnly, u"Chiave"_s));
    }

    void joinsAndStoredQueriesAreReadOnly()
    {
        const Database file = filled();
        stored(u"CREATE TABLE Nomi(ID LONG, nome TEXT(20));"
               "INSERT INTO Nomi VALUES(1,'Zeta'),(2,'alfa'),(3,'D''Arco');"
               "UPDATE Voci SET Importo = 15000;"
               "CREATE VIEW Totali AS SELECT Cod, Importo, sum(Importo) AS Somma FROM Voci "
               "WHERE Cod IS NOT NULL GROUP BY Cod COLLATE NOCASE"_s);
        QCOMPARE(file.tableNames(), (QStringList{u"Nomi"_s, u"Totali"_s, u"Voci"_s}));
        RecordSet join = file.openRecordSet(u"SELECT Voci.Npag, Nomi.ID , Nomi.nome  FROM Nomi "
                                            "INNER JOIN Voci ON Nomi.ID = Voci.Npag "
                                            "ORDER BY Nomi.nome"_s);
        QCOMPARE(Walk(join, u"Nome"_s), u"alfa D'Arco Zeta"_s);
        QCOMPARE(FindAll(join, u"nome Like 'd''a*'"_s, u"Npag"_s), u"3"_s);
        join.moveFirst();
        for (const auto change : {&RecordSet::addNew, &RecordSet::edit, &RecordSet::deleteRecord})
            QCOMPARE(FaultOf([&] { (join.*change)(); }), Fault(DatabaseFault::ReadOnly));
        RecordSet view = file.openRecordSet(u"SELECT * FROM Totali ORDER BY Cod"_s);
        QCOMPARE(FaultOf([&] { view.edit(); }), Fault(DatabaseFault::ReadOnly, u"Totali"_s));
        QCOMPARE(view.field(u"Importo"_s).text(), u"1.5"_s);
        QCOMPARE(view.field(u"Somma"_s).currency().scaled(), 30000);
        QCOMPARE(view.recordCount(), 2);
    }

    void aRefusalOfTheFileLeavesNothingBehind()
    {
        const Database file = filled();
        stored(u"CREATE TRIGGER t BEFORE UPDATE ON Voci BEGIN SELECT RAISE(ABORT, 'no'); END"_s);
        RecordSet set = file.openRecordSet(u"SELECT * FROM Voci"_s);
        set.edit();
        set.set(u"Npag"_s, 77);
        QCOMPARE(FaultOf([&] { set.update(); }), Fault(DatabaseFault::Other, u"Voci"_s));
        QCOMPARE(set.field(u"Npag"_s).integer(), 1);
        QCOMPARE(FindAll(set, u"Npag = 77"_s, u"Npag"_s), QString());
        QCOMPARE(numbers(), u"1 2 3 4 5"_s);
    }
};

QTEST_GUILESS_MAIN(RecordSetTest)
#include "test_record_set.moc"
