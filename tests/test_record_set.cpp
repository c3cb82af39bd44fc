#include "database_probe.h"

#include <limits>
#include <optional>

using namespace saldoro;
using namespace Qt::StringLiterals;
using enum saldoro::DatabaseFault;

namespace {

/** What FaultOf() gives for a fault in the table Voci. */
QString InVoci(DatabaseFault fault, const QString &field = {})
{
    return Fault(fault, u"Voci"_s, field);
}

/** Takes one step after the other; gives where each leads: the payment, "end" behind the last one,
 *  "none" where there is no record, or the number of the fault. */
QString Played(RecordSet &set, const QString &steps)
{
    static const QHash<QString, void (RecordSet::*)()> moves{
        {u"first"_s, &RecordSet::moveFirst}, {u"last"_s, &RecordSet::moveLast},
        {u"next"_s, &RecordSet::moveNext},   {u"delete"_s, &RecordSet::deleteRecord},
        {u"edit"_s, &RecordSet::edit},       {u"add"_s, &RecordSet::addNew}};
    QStringList places;
    for (const QString &step : steps.split(u", "_s)) {
        const QString fault = FaultOf([&] {
            if (step.startsWith(u"find "))
                set.findFirst(step.sliced(5));
            else if (step.startsWith(u"then "))
                set.findNext(step.sliced(5));
            else
                (set.*moves.value(step))();
        });
        QString place = set.eof() ? u"end"_s : u"none"_s;
        FaultOf([&] { place = set.field(u"Npag"_s).text(); });
        places += fault.isEmpty() ? place : fault.section(u' ', 0, 0);
    }
    return places.join(u", "_s);
}

} // namespace

class RecordSetTest : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    int m_files = 0;
    QString m_path;
    std::optional<Database> m_file;

    RecordSet open(const QString &sql = u"SELECT * FROM Voci"_s)
    {
        return m_file->openRecordSet(sql);
    }

    QString stored(const QString &sql) { return DirectConnection(m_path).run(sql); }
    QString numbers() { return stored(u"SELECT Npag FROM Voci"_s).replace(u'\n', u' '); }

    /** The payments 1 to 5, whose codes are A, b, a, NULL, B. */
    RecordSet filled(const QString &order = {})
    {
        stored(u"INSERT INTO Voci(Npag, Cod) VALUES(1,'A'),(2,'b'),(3,'a'),(4,NULL),(5,'B')"_s);
        return open(u"SELECT * FROM Voci "_s + order);
    }

private slots:
    /** A new file with the table Voci. */
    void init()
    {
        m_path = m_folder.filePath(u"voci%1.mdb"_s.arg(++m_files));
        m_file = Database::create(m_path, {});
        stored(u"CREATE TABLE Voci(Npag LONG, Cod TEXT(10) CONSTRAINT \"ZeroLength Cod\" CHECK("
               "Cod <> ''), Importo CURRENCY, Breve INTEGER16, Tasso DOUBLE, Del DATETIME, "
               "Note MEMO TEXT)"_s);
    }

    /** Here 4 is a set without writing, 10 no current record, 15 a deleted record. */
    void moves()
    {
        RecordSet empty = open(u"SELECT * FROM Voci ORDER BY Npag "_s);
        QCOMPARE(Played(empty, u"first, last, next, edit, delete, then Npag = 1, first"_s),
                 u"end, end, 10, 10, 10, end, end"_s);
        QCOMPARE(FaultOf([&] { (void)empty.field(u"Npag"_s); }),
                 InVoci(NoCurrentRecord, u"Npag"_s));
        QCOMPARE(FaultOf([&] { (void)empty.field(u"Manca"_s); }), InVoci(FieldMissing, u"Manca"_s));
        RecordSet set = filled(u"ORDER BY Npag DESC"_s);
        QCOMPARE(
            Played(set, u"next, delete, delete, next, last, delete, next, next, then Npag = 5"_s),
            u"4, none, 10, 3, 1, none, end, 10, none"_s);
        QCOMPARE(set.recordCount(), 3);
        QCOMPARE(Walk(set, u"Npag"_s), u"5 3 2"_s);
        QCOMPARE(Played(set,
                        u"find Cod = 'B', delete, then Cod = 'B', find Cod = 'B', then Cod = 'B', "
                        "then Cod = 'B', next, first, last, delete, first, delete"_s),
                 u"5, none, 2, 2, none, 10, 10, 3, 2, none, 3, end"_s);
        QVERIFY(set.isEmpty());
        QCOMPARE(numbers(), QString());
    }

    void recordsAreThoseOfTheFirstUse()
    {
        RecordSet set = filled(u"ORDER BY Npag"_s);
        stored(u"DELETE FROM Voci WHERE Npag > 3"_s);
        QCOMPARE(set.recordCount(), 3);
        stored(u"DELETE FROM Voci WHERE Npag = 2"_s);
        QCOMPARE(Played(set, u"next"_s), u"2"_s);
        QCOMPARE(Change(set, u"Cod"_s, u"z"_s), InVoci(RecordGone));
        set.deleteRecord(); // gone is what it should be
        QCOMPARE(Add(set, u"Cod"_s, u"x"_s), QString());
        set.moveLast();
        QCOMPARE(Change(set, u"Npag"_s, 7), QString());
        QCOMPARE(Walk(set, u"nPAG"_s), u"1 3 7"_s);
        QCOMPARE(stored(u"SELECT Npag, Cod FROM Voci"_s), u"1|A\n3|a\n7|x"_s);
    }

    void finds()
    {
        RecordSet set = filled();
        stored(u"UPDATE Voci SET Importo = 70000, Tasso = 7 WHERE Npag = 2"_s);
        const auto requireAll = [&] {
            for (const auto &[criterion, found] : {std::pair(u"npag = 9"_s, QString()),
                                                   {u"Cod = 'A'"_s, u"1 3"_s},
                                                   {u"Cod = ''"_s, {}},
                                                   {u"Cod = 'b'"_s, u"2 5"_s},
                                                   {u"Cod Like '*'"_s, u"1 2 3 5"_s},
                                                   {u"Npag Like '[45]'"_s, u"4 5"_s},
                                                   {u"Importo = 7"_s, u"2"_s},
                                                   {u"Importo = 922337203685478"_s, {}},
                                                   {u"Tasso = 7"_s, u"2"_s}})
                QCOMPARE(FindAll(set, criterion, u"Npag"_s), found);
        };
        requireAll();
        set.moveFirst();
        QCOMPARE(Change(set, u"Note"_s, u"x"_s), QString());
        requireAll(); // a set that was written to finds the same
        set.moveFirst();
        QCOMPARE(Change(set, u"Cod"_s, u"c"_s), QString());
        QCOMPARE(FindAll(set, u"Cod = 'a'"_s, u"Npag"_s), u"3"_s);
        QVERIFY(set.noMatch());
        for (const auto &[criterion, fault] :
             {std::pair(u"Cod = 1"_s, InVoci(TypeMismatch, u"Cod"_s)),
              {u"Npag = '1'"_s, InVoci(TypeMismatch, u"Npag"_s)},
              {u"No = 1"_s, InVoci(FieldMissing, u"No"_s)},
              {u"Cod = 'l'a'"_s, InVoci(SyntaxError)}})
            QCOMPARE(FaultOf([&, &criterion = criterion] { set.findFirst(criterion); }), fault);
    }

    void onlySetFieldsAreWritten()
    {
        RecordSet set = filled(u"WHERE Npag = 1"_s);
        const FieldValue null = set.field(u"Breve"_s);
        QVERIFY(null.isNull() && !null.currencyOrNone() && !null.dateOrNone().isValid());
        for (const auto &fault :
             {FaultOf([&] { (void)null.text(); }), FaultOf([&] { (void)null.integer(); }),
              FaultOf([&] { (void)null.currency(); }), FaultOf([&] { (void)null.date(); })})
            QCOMPARE(fault, InVoci(NullValue, u"Breve"_s));
        stored(u"UPDATE Voci SET Note = 'di altri'"_s);
        QCOMPARE(Change(set, u"Cod"_s, std::monostate()), QString());
        QCOMPARE(stored(u"SELECT Cod, Note FROM Voci WHERE Npag = 1"_s), u"-|di altri"_s);
        QCOMPARE(FaultOf([&] { set.set(u"Cod"_s, u"y"_s); }), InVoci(Other, u"Cod"_s));
        set.edit();
        set.set(u"Cod"_s, u"y"_s);
        set.moveFirst(); // leaves the change
        QCOMPARE(FaultOf([&] { set.update(); }), InVoci(Other));
        QVERIFY(set.field(u"Cod"_s).isNull());
    }

    void valuesComeBackAsWritten()
    {
        const auto amount = &Currency::fromScaled;
        using Scaled = std::numeric_limits<qint64>;
        // field, value, type and value in the file, text
        const QList<std::tuple<QString, NewValue, QString, QString>> values{
            {u"Importo"_s, amount(Scaled::max()), u"integer 9223372036854775807"_s,
             u"922337203685477.5807"_s},
            {u"Importo"_s, amount(Scaled::min()), u"integer -9223372036854775808"_s,
             u"-922337203685477.5808"_s},
            {u"Importo"_s, amount((qint64{1} << 53) + 1), u"integer 9007199254740993"_s,
             u"900719925474.0993"_s},
            {u"Importo"_s, amount(-5), u"integer -5"_s, u"-0.0005"_s},
            {u"Importo"_s, 120, u"integer 1200000"_s, u"120"_s},
            {u"Tasso"_s, amount(-15000), u"real -1.5"_s, u"-1.5"_s},
            {u"Breve"_s, -32768, u"integer -32768"_s, u"-32768"_s},
            {u"Del"_s, QDate(2002, 3, 9), u"text 2002-03-09"_s, u"09/03/2002"_s},
            {u"Del"_s, u"09/03/2002"_s, u"text 2002-03-09"_s, u"09/03/2002"_s},
            {u"Del"_s, QString(), u"text "_s, {}},
            {u"Cod"_s, u"1e5"_s, u"text 1e5"_s, u"1e5"_s},
            {u"Cod"_s, u"\uFEFFa"_s, u"text \uFEFFa"_s, u"\uFEFFa"_s},
            {u"Cod"_s, u"€àèìòù😀😀😀😀"_s, u"text €àèìòù😀😀😀😀"_s, u"€àèìòù😀😀😀😀"_s}};
        for (const auto &[field, value, kept, text] : values) {
            stored(u"DELETE FROM Voci"_s);
            RecordSet set = open();
            QCOMPARE(Add(set, field, value), QString());
            QCOMPARE(stored(u"SELECT typeof(%1) || ' ' || %1 FROM Voci"_s.arg(field)), kept);
            RecordSet again = open();
            QCOMPARE(Walk(set, field), text);
            QCOMPARE(Walk(again, field), text);
            again.moveFirst();
            if (const auto *written = std::get_if<Currency>(&value))
                QCOMPARE(again.field(field).currency(), *written);
        }
    }

    void valuesThatAreRefused()
    {
        RecordSet set = filled();
        for (const auto &[field, value, fault] :
             {std::tuple(u"Cod"_s, NewValue(u"12345678901"_s), FieldTooSmall),
              {u"Cod"_s, NewValue(QString()), ZeroLengthRefused},
              {u"Manca"_s, NewValue(1), FieldMissing}})
            QCOMPARE(Add(set, field, value), InVoci(fault, field));
        // What the file itself refuses leaves nothing behind.
        stored(u"CREATE TRIGGER t BEFORE UPDATE ON Voci WHEN NEW.Npag = 77 "
               "BEGIN SELECT RAISE(ABORT, 'no'); END"_s);
        set.moveFirst();
        QCOMPARE(Change(set, u"Npag"_s, 77), InVoci(Other));
        QCOMPARE(Walk(set, u"Npag"_s), u"1 2 3 4 5"_s);
        QCOMPARE(numbers(), u"1 2 3 4 5"_s);
    }

    void storedValuesOfTheWrongKind()
    {
        stored(u"INSERT INTO Voci(Npag, Importo, Del, Cod, Breve) VALUES"
               "('x', 'y', '2002-03-09x', CAST(x'61FF62' AS TEXT), 3000000000),"
               "(7, 1.5, '2002-03-09 10:20:30', x'6162', NULL)"_s);
        RecordSet set = open();
        const auto faultIn = [&](const QString &field, const auto &read) {
            return FaultOf([&] { (void)(set.field(field).*read)(); });
        };
        for (const QString &field : {u"Importo"_s, u"Npag"_s})
            QCOMPARE(faultIn(field, &FieldValue::currency), InVoci(TypeMismatch, field));
        QCOMPARE(faultIn(u"Npag"_s, &FieldValue::integer), InVoci(TypeMismatch, u"Npag"_s));
        QCOMPARE(faultIn(u"Breve"_s, &FieldValue::integer), InVoci(FieldTooSmall, u"Breve"_s));
        QCOMPARE(faultIn(u"Del"_s, &FieldValue::date), InVoci(TypeMismatch, u"Del"_s));
        QVERIFY(!set.field(u"Del"_s).dateOrNone().isValid());
        QCOMPARE(set.field(u"Cod"_s).text(), u"a\u00FFb"_s);
        QVERIFY(!set.field(u"Cod"_s).storedBytes());
        set.moveNext();
        QCOMPARE(set.field(u"Importo"_s).currency().scaled(), 2); // ties to even
        QCOMPARE(set.field(u"Npag"_s).currency().scaled(), 70000);
        QCOMPARE(set.field(u"Del"_s).date(), QDate(2002, 3, 9));
        QCOMPARE(set.field(u"Cod"_s).text(), u"ab"_s);
        QCOMPARE(set.field(u"Del"_s).storedBytes(), QByteArrayView("2002-03-09 10:20:30"));
    }

    /** Tables as other programs make them: keys, other words for the types, rules of their own. */
    void tablesOfOtherPrograms()
    {
        stored(u"CREATE TABLE Anag(ID INTEGER PRIMARY KEY, Nome VARCHAR(5) NOT NULL, "
               "Quota NUMERIC(10,2), Tipo TEXT NOT NULL DEFAULT 'ATI', Doppia AS (Quota * 2));"
               "INSERT INTO Anag(Nome, Quota) VALUES('Verdi', 1.5), ('bossi', 1.5), ('Àlba', 1.5);"
               "CREATE TABLE Chiave(k TEXT PRIMARY KEY, v INTEGER) WITHOUT ROWID;"
               "INSERT INTO Chiave VALUES('B', 2), ('a', 1)"_s);
        RecordSet set = open(u"select * from anag where nome <> 'x' order by NOME"_s);
        QCOMPARE(Walk(set, u"Nome"_s), u"Àlba bossi Verdi"_s);
        set.moveFirst();
        QCOMPARE(set.field(u"Quota"_s).currency().scaled(), 15000);
        QCOMPARE(set.field(u"Doppia"_s).text(), u"3"_s);
        QCOMPARE(Add(set, u"Nome"_s, u"sei+++"_s), Fault(FieldTooSmall, u"anag"_s, u"Nome"_s));
        QCOMPARE(Add(set, u"ID"_s, 7), Fault(NullValue, u"anag"_s, u"Nome"_s));
        QCOMPARE(Add(set, u"Nome"_s, u"Neri"_s), QString());
        QCOMPARE(stored(u"SELECT * FROM Anag WHERE Nome = 'Neri'"_s), u"4|Neri|-|ATI|-"_s);
        RecordSet equal = open(u"SELECT * FROM Anag WHERE Nome = 'àLBA'"_s);
        QCOMPARE(Walk(equal, u"ID"_s), u"3"_s);
        RecordSet keyed = open(u"SELECT * FROM Chiave ORDER BY k"_s);
        QCOMPARE(Walk(keyed, u"k"_s), u"a B"_s);
        QCOMPARE(FaultOf([&] { keyed.addNew(); }), Fault(ReadOnly, u"Chiave"_s));
    }

    /** What the file's own rules do to a write, beside it or in its place. */
    void everyWriteChangesOneRecord()
    {
        const QString ignore = u" ON Voci BEGIN SELECT RAISE(IGNORE); END"_s;
        const QString refused = InVoci(NotStored);
        const QList<std::tuple<QString, QString, QString>> rules{
            {u"BEFORE INSERT"_s + ignore, refused, u"1 2 3 4 5"_s},
            {u"AFTER INSERT ON Voci BEGIN DELETE FROM Voci WHERE rowid = NEW.rowid; END"_s, refused,
             u"1 2 3 4 5"_s},
            {u"AFTER INSERT ON Voci BEGIN UPDATE Voci SET Cod = 'z' WHERE Npag = 4; END"_s,
             {},
             u"1 2 3 4 5 9"_s},
            {u"BEFORE UPDATE"_s + ignore, refused, u"1 2 3 4 5"_s},
            {u"BEFORE DELETE"_s + ignore, refused, u"1 2 3 4 5"_s}};
        for (const auto &[rule, fault, left] : rules) {
            stored(u"DELETE FROM Voci"_s);
            RecordSet set = filled();
            stored(u"CREATE TRIGGER t "_s + rule);
            if (rule.contains(u" INSERT "))
                QCOMPARE(Add(set, u"Npag"_s, 9), fault);
            else if (rule.contains(u" UPDATE "))
                QCOMPARE(Change(set, u"Npag"_s, 9), fault);
            else
                QCOMPARE(FaultOf([&] { set.deleteRecord(); }), fault);
            if (rule.contains(u" DELETE ON"))
                QCOMPARE(FaultOf([&] { m_file->deleteAll(u"Voci"_s); }), fault);
            QCOMPARE(numbers(), left);
            stored(u"DROP TRIGGER t"_s);
        }
        stored(u"CREATE TABLE Una(_RowID_ LONG, rowid LONG, n LONG UNIQUE ON CONFLICT REPLACE);"
               "INSERT INTO Una VALUES(1, 1, 1), (1, 1, 2);"
               "CREATE TABLE Senza(_rowid_ LONG, rowid LONG, oid LONG)"_s);
        RecordSet odd = open(u"SELECT * FROM Una"_s);
        QCOMPARE(Change(odd, u"n"_s, 2), Fault(Other, u"Una"_s));
        QCOMPARE(Change(odd, u"n"_s, 3), QString());
        QCOMPARE(Add(odd, u"n"_s, 2), Fault(Other, u"Una"_s));
        odd.deleteRecord();
        QCOMPARE(stored(u"SELECT * FROM Una"_s), u"1|1|2"_s);
        RecordSet without = open(u"SELECT * FROM Senza"_s);
        QCOMPARE(FaultOf([&] { without.addNew(); }), Fault(ReadOnly, u"Senza"_s));
    }

    void joinsAndStoredQueriesAreReadOnly()
    {
        filled();
        stored(u"CREATE TABLE Nomi(ID LONG, nome TEXT(20));"
               "INSERT INTO Nomi VALUES(1,'Zeta'),(2,'alfa'),(3,'D''Arco');"
               "UPDATE Voci SET Importo = 15000;"
               "CREATE VIEW Totali AS SELECT Cod || '' AS Cod, Importo, sum(Importo) AS Somma "
               "FROM Voci WHERE Cod IS NOT NULL GROUP BY Cod COLLATE NOCASE"_s);
        RecordSet join = open(u"SELECT Voci.Npag, Nomi.ID , Nomi.nome  FROM Nomi "
                              "INNER JOIN Voci ON Nomi.ID = Voci.Npag "
                              "ORDER BY Nomi.nome"_s);
        QCOMPARE(Walk(join, u"Nome"_s), u"alfa D'Arco Zeta"_s);
        QCOMPARE(FindAll(join, u"nome Like 'd''a*'"_s, u"Npag"_s), u"3"_s);
        QCOMPARE(Played(join, u"first, add, edit, delete"_s), u"2, 4, 4, 4"_s);
        RecordSet view = open(u"SELECT * FROM Totali ORDER BY Cod"_s);
        QCOMPARE(FaultOf([&] { view.edit(); }), Fault(ReadOnly, u"Totali"_s));
        QCOMPARE(view.field(u"Importo"_s).text(), u"1.5"_s);
        QCOMPARE(view.field(u"Somma"_s).currency().scaled(), 30000);
        QCOMPARE(FindAll(view, u"Cod = 'a'"_s, u"Somma"_s), u"30000"_s);
        QCOMPARE(FindAll(view, u"Somma = 30000"_s, u"Importo"_s), u"1.5 1.5"_s);
        QCOMPARE(view.recordCount(), 2);
    }
};

QTEST_GUILESS_MAIN(RecordSetTest)
#include "test_record_set.moc"
