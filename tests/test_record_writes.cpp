#include "voci_file.h"

#include <limits>

using namespace saldoro;
using namespace Qt::StringLiterals;
using enum saldoro::DatabaseFault;

/** What is written into records, what is refused, and how values come back. */
class TestRecordWrites : public QObject, private VociFile
{
    Q_OBJECT

private slots:
    void init() { create(); }

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
        QCOMPARE(Change(set, u"Npag"_s, 77), InVoci(NotStored));
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
        QCOMPARE(Change(odd, u"n"_s, 2), Fault(NotStored, u"Una"_s));
        QCOMPARE(Change(odd, u"n"_s, 3), QString());
        QCOMPARE(Add(odd, u"n"_s, 2), Fault(NotStored, u"Una"_s));
        odd.deleteRecord();
        QCOMPARE(stored(u"SELECT * FROM Una"_s), u"1|1|2"_s);
        RecordSet without = open(u"SELECT * FROM Senza"_s);
        QCOMPARE(FaultOf([&] { without.addNew(); }), Fault(ReadOnly, u"Senza"_s));
    }
};

QTEST_GUILESS_MAIN(TestRecordWrites)
#include "test_record_writes.moc"
