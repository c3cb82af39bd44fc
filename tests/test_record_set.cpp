#include "voci_file.h"

using namespace saldoro;
using namespace Qt::StringLiterals;
using enum saldoro::DatabaseFault;

namespace {
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

/** Moving, finding, and which records there are. */
class RecordSetTest : public QObject, private VociFile
{
    Q_OBJECT

private slots:
    void init() { create(); }

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
        const RecordSet halves = open(u"SELECT 2147483646.5 AS a, -2147483648.5 AS b, "
                                      "2147483647.5 AS c, -2147483649.0 AS d, 2147483648 AS e"_s);
        QCOMPARE(halves.field(u"a"_s).integer(), 2147483646);
        QCOMPARE(halves.field(u"b"_s).integer(), std::numeric_limits<qint32>::min());
        for (const QString &field : {u"c"_s, u"d"_s, u"e"_s})
            QCOMPARE(FaultOf([&] { (void)halves.field(field).integer(); }),
                     Fault(FieldTooSmall, {}, field));
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
