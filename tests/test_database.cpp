#include "database/engine_error.h"
#include "database_probe.h"
#include "file_content.h"
#include "platform/machine_path.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QOperatingSystemVersion>

#include <future>
#include <sqlite3.h>

using namespace saldoro;
using namespace Qt::StringLiterals;
using enum saldoro::DatabaseFault;

namespace {

/** A table with a field of each type; texts of five characters. */
TableDef allTypes(const QString &name = u"Tipi"_s)
{
    TableDef table(name);
    for (const auto &[field, type] : {std::pair(u"Codice"_s, FieldType::Text),
                                      {u"Libero"_s, FieldType::Text},
                                      {u"Note"_s, FieldType::Memo},
                                      {u"Breve"_s, FieldType::Integer},
                                      {u"Lungo"_s, FieldType::Long},
                                      {u"Soldi"_s, FieldType::Currency},
                                      {u"Tasso"_s, FieldType::Double},
                                      {u"Del"_s, FieldType::Date}})
        table.appendField(field, type, 5);
    table.field(u"LIBERO"_s).allowZeroLength = true;
    return table;
}

Database created(const QString &path)
{
    Database database = Database::create(path, u";LANGID=0x0409;CP=1252;COUNTRY=0"_s);
    database.appendTableDef(allTypes());
    return database;
}

} // namespace

class DatabaseTest : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    int m_files = 0;

    QString newPath() { return m_folder.filePath(u"prova%1.mdb"_s.arg(++m_files)); }

private slots:
    void aNewFileHoldsWhatWasDefined()
    {
        const QString path = newPath();
        const Database database = created(path);
        DirectConnection direct(path);
        QCOMPARE(direct.run(u"SELECT sql FROM sqlite_master"_s),
                 u"CREATE TABLE \"Tipi\" ("
                 "\"Codice\" TEXT(5) CONSTRAINT \"ZeroLength Codice\" CHECK (\"Codice\" <> ''), "
                 "\"Libero\" TEXT(5), "
                 "\"Note\" MEMO TEXT CONSTRAINT \"ZeroLength Note\" CHECK (\"Note\" <> ''), "
                 "\"Breve\" INTEGER16, \"Lungo\" LONG, \"Soldi\" CURRENCY, \"Tasso\" DOUBLE, "
                 "\"Del\" DATETIME CONSTRAINT \"ZeroLength Del\" CHECK (\"Del\" <> ''))"_s);
        TableDef table = *database.tableDef(u"TIPI"_s);
        const QList<std::tuple<QString, NewValue, std::optional<DatabaseFault>>> values{
            {u"Codice"_s, QString(), ZeroLengthRefused},
            {u"Codice"_s, u"sei+++"_s, FieldTooSmall},
            {u"Codice"_s, 3, TypeMismatch},
            {u"Libero"_s, QString(), std::nullopt},
            {u"Note"_s, u"sei+++"_s, std::nullopt},
            {u"Note"_s, QDate(2002, 3, 9), TypeMismatch},
            {u"Breve"_s, 32768, FieldTooSmall},
            {u"Breve"_s, -32769, FieldTooSmall},
            {u"Lungo"_s, 32768, std::nullopt},
            {u"Lungo"_s, u"3"_s, TypeMismatch},
            {u"Lungo"_s, Currency(), TypeMismatch},
            {u"Soldi"_s, Currency(), std::nullopt},
            {u"Tasso"_s, Currency(), std::nullopt},
            {u"Del"_s, QString(), ZeroLengthRefused},
            {u"Del"_s, u"31/02/2002"_s, TypeMismatch},
            {u"Del"_s, 3, TypeMismatch}};
        for (const auto &[field, value, refusal] : values)
            QCOMPARE(RefusalOf(table.field(field), value), refusal);
        direct.run(u"CREATE VIEW Vista AS SELECT Lungo, Lungo + 1 AS n FROM Tipi"_s);
        QVERIFY(database.isStoredQuery(u"VISTA"_s) && !database.isStoredQuery(u"Tipi"_s));
        QVERIFY(!database.tableDef(u"Vista"_s));
        QCOMPARE(FaultOf([&] { created(path); }), Fault(FileExists));
        QCOMPARE(FaultOf([&] { created(path + u"/x.mdb"_s); }), Fault(FileMissing));
        QCOMPARE(direct.run(u"INSERT INTO Tipi(Libero) VALUES('')"_s), QString());
        const QString copy = database.backUpBeside();
        QVERIFY(copy.startsWith(path.chopped(4) + u" copia "_s) && copy.endsWith(u".mdb"));
        QVERIFY(database.backUpBeside() != copy);
        QCOMPARE(DirectConnection(copy).run(u"SELECT count(*) FROM Tipi"_s), u"1"_s);
        // The disk can't be asked whether it was told to keep a write; the engine can.
        RecordSet flushing =
            Database::open(path).openRecordSet(u"SELECT * FROM pragma_synchronous"_s);
        QCOMPARE(flushing.field(0).integer(), 3);
    }

    void filesThatCannotBeOpened()
    {
        const QString damaged = newPath();
        created(damaged);
        QFile file(damaged);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.seek(100)); // the list of tables, behind the intact header
        file.write(QByteArray(2000, '\x7f'));
        file.close();
        for (const auto &[path, fault] :
             {std::pair(m_folder.filePath(u"manca.mdb"_s), FileMissing),
              {QString(), FileMissing},
              {WriteFile(m_folder.filePath(u"testo.mdb"_s), QByteArray(4096, 'x')), NotADatabase},
              {WriteFile(m_folder.filePath(u"vuoto.mdb"_s), {}), NotADatabase},
              {m_folder.path(), NotADatabase},
              {damaged, NotADatabase}}) {
            const bool existed = QFile::exists(path);
            QCOMPARE(FaultOf([&path = path] { Database::open(path); }), Fault(fault));
            QCOMPARE(FaultOf([&path = path] { Database::openReadOnly(path); }), Fault(fault));
            QCOMPARE(QFile::exists(path), existed);
        }
    }

    void queriesThatCannotBeRead()
    {
        const Database database = created(newPath());
        for (const auto &[sql, fault] :
             {std::pair(u"SELECT * FROM Manca ORDER BY x"_s, Fault(TableMissing, u"Manca"_s)),
              {u"SELECT * FROM Tipi ORDER BY Manca "_s, Fault(FieldMissing, u"Tipi"_s, u"Manca"_s)},
              {u"SELECT a.Lungo FROM Tipi a INNER JOIN Tipi b ON a.Lungo = b.No"_s,
               Fault(FieldMissing, {}, u"No"_s)},
              {u"SELECT * FROM Tipi WHERE Codice = 'x"_s, Fault(SyntaxError, u"Tipi"_s)},
              {u" "_s, Fault(SyntaxError)},
              {u"SELECT 1; SELECT 2"_s, Fault(SyntaxError)},
              {u"DELETE FROM Tipi"_s, Fault(SyntaxError)}})
            QCOMPARE(FaultOf([&, &sql = sql] { (void)database.openRecordSet(sql); }), fault);
    }

    void whatTheEngineReports()
    {
        for (const auto &[code, fault] : {std::pair(SQLITE_IOERR_READ, ReadFailed),
                                          {SQLITE_IOERR_WRITE, DiskFull},
                                          {SQLITE_FULL, DiskFull},
                                          {SQLITE_READONLY_DBMOVED, FileMissing},
                                          {SQLITE_AUTH, Other},
                                          {SQLITE_BUSY_SNAPSHOT, Locked}})
            QCOMPARE(FaultOf([code = code] { ThrowEngineError(code, {}, u"x.mdb"_s, u"Voci"_s); }),
                     Fault(fault, u"Voci"_s));
        QVERIFY_THROWS_EXCEPTION(std::bad_alloc, ThrowEngineError(SQLITE_NOMEM, {}, {}, {}));
    }

    void lockedFilesAreWaitedFor()
    {
        using Action = QString (*)(RecordSet &);
        const Action add = [](RecordSet &set) { return Add(set, u"Lungo"_s, 2); };
        const Action remove = [](RecordSet &set) { return FaultOf([&] { set.deleteRecord(); }); };
        const auto attempt = [](const QString &path, const char *lock, Action action, int held) {
            const Database database = created(path);
            DirectConnection other(path);
            other.run(u"INSERT INTO Tipi(Lungo) VALUES(1)"_s);
            RecordSet set = database.openRecordSet(u"SELECT * FROM Tipi"_s);
            if (set.isEmpty() || other.run(QString::fromLatin1(lock)).startsWith(u"error"))
                return u"not set up"_s;
            QElapsedTimer timer;
            timer.start();
            std::promise<void> ended;
            const auto released = std::async(std::launch::async, [&] {
                ended.get_future().wait_for(std::chrono::milliseconds(held));
                other.run(u"COMMIT"_s);
            });
            const QString fault = action(set);
            ended.set_value();
            const bool hasWaited = timer.elapsed() > std::min(held, 4500) * 4 / 5;
            released.wait();
            return fault + (hasWaited ? u", "_s : u" at once, "_s) + Walk(set, u"Lungo"_s) +
                   u", "_s + other.run(u"SELECT Lungo FROM Tipi ORDER BY Lungo"_s);
        };
        // All at once, since most of them wait to the end. Of a file that is only read the change
        // is made, and its arrival in the file is refused.
        constexpr int forGood = 60000;
        const QString refused = Fault(Locked, u"Tipi"_s) + u", 1, 1"_s;
        std::vector<std::pair<std::future<QString>, QString>> outcomes;
#ifdef Q_OS_WIN
        // One after the other: there the toolkit's patterns do not outlive a second thread.
        constexpr auto launch = std::launch::deferred;
#else
        constexpr auto launch = std::launch::async;
#endif
        for (const auto &[lock, action, held, outcome] :
             {std::tuple("BEGIN EXCLUSIVE", add, 300, u", 1 2, 1\n2"_s),
              {"BEGIN EXCLUSIVE", add, forGood, refused},
              {"BEGIN IMMEDIATE", remove, forGood, refused},
              {"BEGIN; SELECT count(*) FROM Tipi", add, forGood, refused},
              {"BEGIN; SELECT count(*) FROM Tipi", remove, forGood, refused}})
            outcomes.emplace_back(std::async(launch, attempt, newPath(), lock, action, held),
                                  outcome);
        for (auto &[found, expected] : outcomes)
            QCOMPARE(found.get(), expected);
    }

    void aTransactionReachesTheFileWhole()
    {
        const QString path = newPath();
        Database database = created(path);
        DirectConnection other(path);
        other.run(u"INSERT INTO Tipi(Lungo) VALUES(7)"_s);
        const auto replace = [&](bool isCommitted) {
            Transaction transaction(database);
            QVERIFY(other.run(u"UPDATE Tipi SET Lungo = 8"_s).startsWith(u"error"));
            database.deleteAll(u"tipi"_s);
            RecordSet records = database.openRecordSet(u"SELECT * FROM TIPI"_s);
            for (int row = 0; row < 3; ++row)
                QCOMPARE(Add(records, u"soldi"_s, Currency::fromWhole(row)), QString());
            QCOMPARE(Add(records, u"Codice"_s, QString()),
                     Fault(ZeroLengthRefused, u"TIPI"_s, u"Codice"_s));
            database.appendTableDef(allTypes(u"Altra"_s));
            QCOMPARE(other.run(u"SELECT Lungo FROM Tipi"_s), u"7"_s);
            if (isCommitted)
                transaction.commit();
        };
        replace(false);
        QCOMPARE(other.run(u"SELECT Lungo FROM Tipi"_s), u"7"_s);
        QVERIFY(!database.tableDef(u"Altra"_s));
        replace(true);
        QCOMPARE(other.run(u"SELECT Lungo, Soldi FROM Tipi"_s), u"-|0\n-|10000\n-|20000"_s);
        QVERIFY(database.tableDef(u"Altra"_s));
    }

    void filesChangeTogether()
    {
        const QList<QString> paths{newPath(), newPath()};
        Database first = created(paths[0]);
        created(paths[1]);
        Database second = first.attach(paths[1]);
        QCOMPARE(FaultOf([&] { (void)first.attach(m_folder.path()); }), Fault(NotADatabase));
        DirectConnection others[]{DirectConnection(paths[0]), DirectConnection(paths[1])};
        others[1].run(u"CREATE TABLE Sua(n LONG); INSERT INTO Sua VALUES(1)"_s);
        const auto seen = [&](const QString &column) {
            const QString sql = u"SELECT %1 FROM Tipi"_s.arg(column);
            return others[0].run(sql) + u" / "_s + others[1].run(sql);
        };
        for (const bool isCommitted : {false, true}) {
            Transaction transaction(first);
            for (const Database *file : {&first, &second}) {
                RecordSet set = file->openRecordSet(u"SELECT * FROM Tipi"_s);
                QCOMPARE(Add(set, u"Codice"_s, file == &first ? u"uno"_s : u"due"_s), QString());
                QCOMPARE(Add(set, u"Codice"_s, QString()),
                         Fault(ZeroLengthRefused, u"Tipi"_s, u"Codice"_s));
            }
            QCOMPARE(FaultOf([&] { (void)first.openRecordSet(u"SELECT * FROM Sua"_s); }),
                     Fault(TableMissing, u"Sua"_s));
            RecordSet joined = second.openRecordSet(
                u"SELECT Sua.n FROM Sua INNER JOIN Tipi ON n = n WHERE Codice <> 'FROM x'"_s);
            QCOMPARE(Walk(joined, u"n"_s), u"1"_s);
            QCOMPARE(seen(u"count(*)"_s), u"0 / 0"_s);
            if (isCommitted)
                transaction.commit();
        }
        QCOMPARE(seen(u"Codice"_s), u"uno / due"_s);
        second.deleteAll(u"Tipi"_s);
        QCOMPARE(seen(u"count(*)"_s), u"1 / 0"_s);
        const Transaction reading(second, TransactionKind::Reading);
        RecordSet set = second.openRecordSet(u"SELECT * FROM Tipi"_s);
        QVERIFY(set.isEmpty());
        QVERIFY(others[1].run(u"INSERT INTO Tipi DEFAULT VALUES"_s).startsWith(u"error"));
        QCOMPARE(others[0].run(u"INSERT INTO Tipi DEFAULT VALUES"_s), QString());
    }

    void hiddenDamageIsFound()
    {
        const QString path = newPath();
        const Database database = created(path);
        DirectConnection other(path);
        other.run(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n LIMIT 2000) "
                  "INSERT INTO Tipi(Note) SELECT 'testo' FROM n"_s);
        QCOMPARE(database.damage(), QString());
        QVERIFY(Database::hasPlainJournal(path));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite) && file.seek(5 * 4096));
        file.write(QByteArray(4096, '\x0d'));
        file.close();
        other.run(u"PRAGMA journal_mode = WAL"_s);
        const Database again = Database::open(path);
        QVERIFY(!again.damage().isEmpty());
        QVERIFY(!Database::hasPlainJournal(path));
    }

    void pathsAreFoundInAnyLetterCase()
    {
        if (QOperatingSystemVersion::currentType() == QOperatingSystemVersion::Windows)
            QSKIP("the disk itself ignores letter case");
        const QDir root(m_folder.path());
        for (const QString &folder : {u"Archivi.QX/Zelt"_s, u"doppio/AB"_s, u"doppio/Ab"_s})
            QVERIFY(root.mkpath(folder));
        const QString base = QString(m_folder.path()).replace(u'/', u'\\');
        for (const auto &[path, found] :
             {std::pair(u"\\\\archivi.qx\\\\zelt"_s, u"/Archivi.QX/Zelt"_s),
              {u"\\ARCHIVI.QX\\NUOVO\\File.mdb"_s, u"/Archivi.QX/NUOVO/File.mdb"_s},
              {u"\\doppio\\Ab"_s, u"/doppio/Ab"_s},
              {u"\\DOPPIO\\aB"_s, u"/doppio/AB"_s}})
            QCOMPARE(MachinePath(base + path), m_folder.path() + found);
        created(base + u"\\ARCHIVI.qx\\ZELT\\Nuovo.mdb"_s);
        const QString written = base + u"\\archivi.qx\\zelt\\NUOVO.MDB"_s;
        QVERIFY(QFile::exists(MachinePath(written)));
        QCOMPARE(Database::open(written).path(), root.filePath(u"Archivi.QX/Zelt/Nuovo.mdb"_s));
        QCOMPARE(FaultOf([&] { created(written); }), Fault(FileExists));
    }
};

QTEST_GUILESS_MAIN(DatabaseTest)
#include "test_database.moc"
