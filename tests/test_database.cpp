#include "database/engine_error.h"
#include "database/table_appender.h"
#include "database_probe.h"
#include "platform/machine_path.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QOperatingSystemVersion>

#include <future>
#include <sqlite3.h>
#include <thread>

using namespace saldoro;
using namespace Qt::StringLiterals;
using enum saldoro::DatabaseFault;

namespace {

TableDef allTypes(const QString &name = u"Tipi"_s)
{
    TableDef table(name);
    table.appendField(u"Codice"_s, FieldType::Text, 5);
    table.appendField(u"Libero"_s, FieldType::Text, 5);
    table.appendField(u"Note"_s, FieldType::Memo);
    table.appendField(u"Breve"_s, FieldType::Integer);
    table.appendField(u"Lungo"_s, FieldType::Long);
    table.appendField(u"Soldi"_s, FieldType::Currency);
    table.appendField(u"Tasso"_s, FieldType::Double);
    table.appendField(u"Del"_s, FieldType::Date);
    table.field(u"LIBERO"_s).allowZeroLength = true;
    return table;
}

QString shown(const TableDef &table)
{
    QStringList fields;
    for (const FieldDef &field : table.fields())
        fields += u"%1/%2/%3/%4"_s.arg(field.name)
                      .arg(static_cast<int>(field.type))
                      .arg(field.size)
                      .arg(static_cast<int>(field.allowZeroLength));
    return fields.join(u' ');
}

QString writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("no room for a test file");
    return path;
}

void addNumber(RecordSet &set, int number)
{
    set.addNew();
    set.set(u"Lungo"_s, number);
    set.update();
}

} // namespace

class DatabaseTest : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    int m_files = 0;

    QString newPath() { return m_folder.filePath(u"prova%1.mdb"_s.arg(++m_files)); }

    static Database created(const QString &path)
    {
        Database database = Database::create(path, u";LANGID=0x0409;CP=1252;COUNTRY=0"_s);
        database.appendTableDef(allTypes());
        return database;
    }

private slots:
    void aNewFileHoldsWhatWasDefined()
    {
        const QString path = newPath();
        const Database database = created(path);
        DirectConnection direct(path);
        QCOMPARE(direct.run(u"SELECT name, type, [notnull], dflt_value, pk "
                            "FROM pragma_table_info('Tipi')"_s),
                 u"Codice|TEXT(5)|0|-|0\nLibero|TEXT(5)|0|-|0\nNote|MEMO TEXT|0|-|0\n"
                 "Breve|INTEGER16|0|-|0\nLungo|LONG|0|-|0\nSoldi|CURRENCY|0|-|0\n"
                 "Tasso|DOUBLE|0|-|0\nDel|DATETIME|0|-|0"_s);
        QCOMPARE(direct.run(u"SELECT count(*) FROM sqlite_master"_s), u"1"_s);
        // The file itself refuses what another program would write past this layer.
        QCOMPARE(direct.run(u"INSERT INTO Tipi(Libero) VALUES('')"_s), QString());
        QVERIFY(direct.run(u"INSERT INTO Tipi(Codice) VALUES('')"_s).startsWith(u"error"));
        QVERIFY(direct.run(u"INSERT INTO Tipi(Del) VALUES('')"_s).startsWith(u"error"));
        QCOMPARE(shown(*database.tableDef(u"TIPI"_s)),
                 u"Codice/10/5/0 Libero/10/5/1 Note/12/0/0 Breve/3/0/1 Lungo/4/0/1 Soldi/5/0/1 "
                 "Tasso/7/0/1 Del/8/0/0"_s);
        direct.run(u"CREATE VIEW Vista AS SELECT Lungo, Lungo + 1 AS n FROM Tipi"_s);
        QVERIFY(database.isStoredQuery(u"VISTA"_s) && !database.isStoredQuery(u"Tipi"_s));
        QVERIFY(!database.tableDef(u"Vista"_s));
        QCOMPARE(FaultOf([&] { created(path); }), Fault(FileExists));
        const QString copy = database.backUpBeside();
        QVERIFY(copy.startsWith(path.chopped(4) + u" copia "_s) && copy.endsWith(u".mdb"));
        QVERIFY(database.backUpBeside() != copy);
        QCOMPARE(DirectConnection(copy).run(u"SELECT count(*) FROM Tipi"_s), u"1"_s);
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
        const QList<QPair<QString, DatabaseFault>> files{
            {m_folder.filePath(u"manca.mdb"_s), FileMissing},
            {QString(), FileMissing},
            {writeFile(m_folder.filePath(u"testo.mdb"_s), QByteArray(4096, 'x')), NotADatabase},
            {writeFile(m_folder.filePath(u"vuoto.mdb"_s), {}), NotADatabase},
            {m_folder.path(), NotADatabase},
            {damaged, NotADatabase}};
        for (const auto &[path, fault] : files) {
            const bool existed = QFile::exists(path);
            QCOMPARE(FaultOf([&] { Database::open(path); }), Fault(fault));
            QCOMPARE(FaultOf([&] { Database::openReadOnly(path); }), Fault(fault));
            QCOMPARE(QFile::exists(path), existed);
        }
    }

    void queriesThatCannotBeRead()
    {
        const Database database = created(newPath());
        const QList<QPair<QString, QString>> queries{
            {u"SELECT * FROM Manca ORDER BY x"_s, Fault(TableMissing, u"Manca"_s)},
            {u"SELECT * FROM Tipi ORDER BY Manca "_s, Fault(FieldMissing, u"Tipi"_s, u"Manca"_s)},
            {u"SELECT a.Lungo FROM Tipi a INNER JOIN Tipi b ON a.Lungo = b.No"_s,
             Fault(FieldMissing, {}, u"No"_s)},
            {u"SELECT * FROM Tipi WHERE Codice = 'x"_s, Fault(SyntaxError, u"Tipi"_s)},
            {u" "_s, Fault(SyntaxError)},
            {u"SELECT 1; SELECT 2"_s, Fault(SyntaxError)},
            {u"DELETE FROM Tipi"_s, Fault(SyntaxError)}};
        for (const auto &[sql, fault] : queries)
            QCOMPARE(FaultOf([&] { (void)database.openRecordSet(sql); }), fault);
    }

    void whatTheEngineReports()
    {
        const QList<QPair<int, DatabaseFault>> reports{{SQLITE_IOERR_READ, ReadFailed},
                                                       {SQLITE_IOERR_WRITE, DiskFull},
                                                       {SQLITE_FULL, DiskFull},
                                                       {SQLITE_READONLY_DBMOVED, FileMissing},
                                                       {SQLITE_AUTH, Other},
                                                       {SQLITE_BUSY_SNAPSHOT, Locked}};
        for (const auto &[code, fault] : reports)
            QCOMPARE(FaultOf([&] { ThrowEngineError(code, {}, u"x.mdb"_s, u"Voci"_s); }),
                     Fault(fault, u"Voci"_s));
        QVERIFY_THROWS_EXCEPTION(std::bad_alloc, ThrowEngineError(SQLITE_NOMEM, {}, {}, {}));
    }

    /** The disk can't be asked whether it was told to keep a write; the engine can. */
    void everyWriteIsFlushed()
    {
        const auto flushing = [](const Database &database) {
            constexpr int Full = 2;
            return database.openRecordSet(u"SELECT * FROM pragma_synchronous"_s)
                           .field(0)
                           .integer() == Full &&
                   database.openRecordSet(u"SELECT * FROM pragma_journal_mode"_s).field(0).text() ==
                       u"delete";
        };
        const QString path = newPath();
        QVERIFY(flushing(created(path)));
        QVERIFY(flushing(Database::open(path)));
    }

    void aWriteWaitsForAnotherProgram()
    {
        const QString path = newPath();
        const Database database = created(path);
        RecordSet set = database.openRecordSet(u"SELECT * FROM Tipi"_s);
        QVERIFY(set.isEmpty());
        DirectConnection other(path);
        QCOMPARE(other.run(u"BEGIN EXCLUSIVE; INSERT INTO Tipi(Lungo) VALUES(1)"_s), QString());
        QElapsedTimer timer;
        timer.start();
        {
            const std::jthread releasing([&] {
                std::this_thread::sleep_for(std::chrono::milliseconds(300));
                other.run(u"COMMIT"_s);
            });
            QCOMPARE(FaultOf([&] { addNumber(set, 2); }), QString());
        }
        QVERIFY(timer.elapsed() >= 250);
        QCOMPARE(other.run(u"SELECT Lungo FROM Tipi ORDER BY Lungo"_s), u"1\n2"_s);
    }

    void aLockThatStaysIsReported()
    {
        using Action = void (*)(RecordSet &);
        const Action add = [](RecordSet &set) { addNumber(set, 2); };
        const Action remove = [](RecordSet &set) { set.deleteRecord(); };
        const auto attempt = [](const QString &path, const QString &lock, Action action) {
            const Database database = created(path);
            DirectConnection other(path);
            other.run(u"INSERT INTO Tipi(Lungo) VALUES(1)"_s);
            RecordSet set = database.openRecordSet(u"SELECT * FROM Tipi"_s);
            if (Walk(set, u"Lungo"_s) != u"1" || other.run(lock).startsWith(u"error"))
                return u"not set up"_s;
            set.moveFirst();
            const QString fault = FaultOf([&] { action(set); });
            const QString seen = Walk(set, u"Lungo"_s);
            other.run(u"COMMIT"_s);
            return fault + u", "_s + seen + u", "_s + other.run(u"SELECT Lungo FROM Tipi"_s);
        };
        // All at once, since each of them waits to the end. Of a file that is only read the change
        // is made, and its arrival in the file is refused.
        std::vector<std::future<QString>> outcomes;
        for (const auto &[lock, action] : {std::pair(u"BEGIN EXCLUSIVE"_s, add),
                                           {u"BEGIN IMMEDIATE"_s, remove},
                                           {u"BEGIN; SELECT count(*) FROM Tipi"_s, add},
                                           {u"BEGIN; SELECT count(*) FROM Tipi"_s, remove}})
            outcomes.push_back(std::async(std::launch::async, attempt, newPath(), lock, action));
        for (auto &outcome : outcomes)
            QCOMPARE(outcome.get(), Fault(Locked, u"Tipi"_s) + u", 1, 1"_s);
    }

    void aTransactionReachesTheFileWhole()
    {
        const QString path = newPath();
        Database database = created(path);
        DirectConnection other(path);
        other.run(u"INSERT INTO Tipi(Lungo) VALUES(7)"_s);
        const auto replace = [&](bool isCommitted) {
            Transaction transaction(database);
            database.deleteAll(u"tipi"_s);
            TableAppender records(database, u"TIPI"_s, {u"soldi"_s, u"Codice"_s, u"Libero"_s});
            for (int row = 0; row < 3; ++row)
                records.append({Currency::fromWhole(row), NewValue(), QString()});
            const QString inCode = u"Codice"_s;
            QCOMPARE(FaultOf([&] {
                         records.append({NewValue(), u"sei+++"_s, NewValue()});
                     }),
                     Fault(FieldTooSmall, u"TIPI"_s, inCode));
            QCOMPARE(FaultOf([&] {
                         records.append({NewValue(), QString(), NewValue()});
                     }),
                     Fault(ZeroLengthRefused, u"TIPI"_s, inCode));
            records.append({NewValue(), u"x"_s, NewValue()});
            database.appendTableDef(allTypes(u"Altra"_s));
            QCOMPARE(other.run(u"SELECT Lungo FROM Tipi"_s), u"7"_s);
            QVERIFY(other.run(u"UPDATE Tipi SET Lungo = 8"_s).startsWith(u"error"));
            if (isCommitted)
                transaction.commit();
        };
        replace(false);
        QCOMPARE(other.run(u"SELECT Lungo FROM Tipi"_s), u"7"_s);
        QVERIFY(!database.tableDef(u"Altra"_s));
        replace(true);
        QCOMPARE(other.run(u"SELECT Lungo, Soldi, Codice, Libero FROM Tipi"_s),
                 u"-|0|-|\n-|10000|-|\n-|20000|-|\n-|-|x|-"_s);
        TableDef table = *database.tableDef(u"Altra"_s);
        QCOMPARE(RefusalOf(table.field(u"Codice"_s), QString()), ZeroLengthRefused);
        QCOMPARE(RefusalOf(table.field(u"Breve"_s), 32768), FieldTooSmall);
        QVERIFY(!RefusalOf(table.field(u"Libero"_s), QString()));
    }

    void pathsAreFoundInAnyLetterCase()
    {
        if (QOperatingSystemVersion::currentType() == QOperatingSystemVersion::Windows)
            QSKIP("the disk itself ignores letter case");
        const QDir root(m_folder.path());
        for (const QString &folder : {u"Archivi.QX/Zelt"_s, u"doppio/AB"_s, u"doppio/Ab"_s})
            QVERIFY(root.mkpath(folder));
        writeFile(root.filePath(u"Archivi.QX/Zelt/Lista.ini"_s), "x");
        const QString base = QString(m_folder.path()).replace(u'/', u'\\');
        for (const auto &[path, found] :
             {std::pair(u"\\ARCHIVI.QX\\ZELT\\LISTA.INI"_s, u"/Archivi.QX/Zelt/Lista.ini"_s),
              {u"\\\\archivi.qx\\\\zelt"_s, u"/Archivi.QX/Zelt"_s},
              {u"\\ARCHIVI.QX\\NUOVO\\File.mdb"_s, u"/Archivi.QX/NUOVO/File.mdb"_s},
              {u"\\doppio\\Ab"_s, u"/doppio/Ab"_s},
              {u"\\DOPPIO\\aB"_s, u"/doppio/AB"_s}})
            QCOMPARE(MachinePath(base + path), m_folder.path() + found);
        QVERIFY(QFile::exists(MachinePath(base + u"\\archivi.QX\\zelt\\lista.INI"_s)));
        created(base + u"\\ARCHIVI.qx\\ZELT\\Nuovo.mdb"_s);
        QCOMPARE(Database::open(base + u"\\archivi.qx\\zelt\\NUOVO.MDB"_s).path(),
                 root.filePath(u"Archivi.QX/Zelt/Nuovo.mdb"_s));
        QCOMPARE(FaultOf([&] { created(base + u"\\ARCHIVI.qx\\ZELT\\NUOVO.mdb"_s); }),
                 Fault(FileExists));
    }
};

QTEST_GUILESS_MAIN(DatabaseTest)
#include "test_database.moc"
