#include "database/engine_error.h"
#include "database/table_appender.h"
#include "database_probe.h"
#include "platform/machine_path.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QOperatingSystemVersion>

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

void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

} // namespace

class DatabaseTest : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    int m_files = 0;

    QString newPath() { return m_folder.filePath(u"prova%1.mdb"_s.arg(++m_files)); }

    Database created(const QString &path)
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
        QCOMPARE(database.tableNames(), QStringList{u"Tipi"_s});
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
        QCOMPARE(FaultOf([&] { created(path); }), Fault(FileExists));
    }

    void filesThatCannotBeOpened_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<DatabaseFault>("fault");
        const QString text = m_folder.filePath(u"testo.mdb"_s);
        writeFile(text, QByteArray(4096, 'x'));
        const QString empty = m_folder.filePath(u"vuoto.mdb"_s);
        writeFile(empty, {});
        const QString damaged = newPath();
        created(damaged);
        QFile file(damaged);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.seek(100)); // the list of tables, behind the intact header
        file.write(QByteArray(2000, '\x7f'));
        file.close();
        QTest::newRow("missing") << m_folder.filePath(u"manca.mdb"_s) << FileMissing;
        QTest::newRow("no name") << QString() << FileMissing;
        QTest::newRow("a text") << text << NotADatabase;
        QTest::newRow("empty") << empty << NotADatabase;
        QTest::newRow("a folder") << m_folder.path() << NotADatabase;
        QTest::newRow("damaged") << damaged << NotADatabase;
    }

    void filesThatCannotBeOpened()
    {
        QFETCH(QString, path);
        QFETCH(DatabaseFault, fault);
        const bool existed = QFile::exists(path);
        QCOMPARE(FaultOf([&] { Database::open(path); }), Fault(fault));
        QCOMPARE(FaultOf([&] { Database::openReadOnly(path); }), Fault(fault));
        QCOMPARE(QFile::exists(path), existed);
    }

    void queriesThatCannotBeRead()
    {
        const Database database = created(newPath());
        const QString none = Fault(SyntaxError);
        const QString inTable = Fault(SyntaxError, u"Tipi"_s);
        const QList<QPair<QString, QString>> queries{
            {u"SELECT * FROM Manca ORDER BY x"_s, Fault(TableMissing, u"Manca"_s)},
            {u"SELECT * FROM Tipi ORDER BY Manca "_s, Fault(FieldMissing, u"Tipi"_s, u"Manca"_s)},
            {u"SELECT * FROM Tipi WHERE manca = 1"_s, Fault(FieldMissing, u"Tipi"_s, u"manca"_s)},
            {u"SELECT a.Lungo FROM Tipi a INNER JOIN Tipi b ON a.Lungo = b.No"_s,
             Fault(FieldMissing, {}, u"No"_s)},
            {u"SELECT * FROM Tipi WHERE Lungo = "_s, inTable},
            {u"SELECT * FROM Tipi WHERE Codice = 'x"_s, inTable},
            {u" "_s, none},
            {u"SELECT 1; SELECT 2"_s, none},
            {u"DELETE FROM Tipi"_s, none}};
        for (const auto &[sql, fault] : queries)
            QCOMPARE(FaultOf([&] { (void)database.openRecordSet(sql); }), fault);
    }

    void whatTheEngineReports()
    {
        const QString table = u"Voci"_s;
        const QList<std::tuple<int, QString, QString>> reports{
            {SQLITE_IOERR_READ, {}, Fault(ReadFailed, table)},
            {SQLITE_IOERR_WRITE, {}, Fault(DiskFull, table)},
            {SQLITE_FULL, {}, Fault(DiskFull, table)},
            {SQLITE_PROTOCOL, {}, Fault(Locked, table)},
            {SQLITE_READONLY_DBMOVED, {}, Fault(FileMissing, table)},
            {SQLITE_TOOBIG, {}, Fault(FieldTooSmall, table)},
            {SQLITE_MISMATCH, {}, Fault(TypeMismatch, table)},
            {SQLITE_AUTH, {}, Fault(Other, table)},
            {SQLITE_ERROR, u"no such column: v.Cod"_s, Fault(FieldMissing, table, u"Cod"_s)},
            {SQLITE_ERROR, u"table B has no column named C"_s,
             Fault(FieldMissing, u"B"_s, u"C"_s)}};
        for (const auto &[code, message, fault] : reports)
            QCOMPARE(FaultOf([&] { ThrowEngineError(code, message, u"x.mdb"_s, table); }), fault);
        QVERIFY_THROWS_EXCEPTION(std::bad_alloc, ThrowEngineError(SQLITE_NOMEM, {}, {}, {}));
    }

    void aWriteWaitsForAnotherProgram()
    {
        const QString path = newPath();
        const Database database = created(path);
        RecordSet set = database.openRecordSet(u"SELECT * FROM Tipi"_s);
        QVERIFY(set.isEmpty());
        DirectConnection other(path);
        QCOMPARE(other.run(u"BEGIN EXCLUSIVE; INSERT INTO Tipi(Lungo) VALUES(1)"_s), QString());
        std::thread releasing([&] {
            std::this_thread::sleep_for(std::chrono::milliseconds(300));
            other.run(u"COMMIT"_s);
        });
        QElapsedTimer timer;
        timer.start();
        set.addNew();
        set.set(u"Lungo"_s, 2);
        const QString fault = FaultOf([&] { set.update(); });
        releasing.join();
        QCOMPARE(fault, QString());
        QVERIFY(timer.elapsed() >= 250);
        QCOMPARE(other.run(u"SELECT Lungo FROM Tipi ORDER BY Lungo"_s), u"1\n2"_s);
    }

    void aLockThatStaysIsReported_data()
    {
        QTest::addColumn<QString>("lock");
        QTest::addColumn<bool>("stopsReading");
        QTest::newRow("written by another") << u"BEGIN EXCLUSIVE"_s << true;
        QTest::newRow("to be written") << u"BEGIN IMMEDIATE"_s << false;
        // The change is made, and only its arrival in the file is refused.
        QTest::newRow("read") << u"BEGIN; SELECT count(*) FROM Tipi"_s << false;
    }

    void aLockThatStaysIsReported()
    {
        QFETCH(QString, lock);
        QFETCH(bool, stopsReading);
        const QString path = newPath();
        Database database = created(path);
        DirectConnection other(path);
        other.run(u"INSERT INTO Tipi(Lungo) VALUES(1)"_s);
        database.setLockWait(50);
        RecordSet set = database.openRecordSet(u"SELECT * FROM Tipi"_s);
        QCOMPARE(Walk(set, u"Lungo"_s), u"1"_s);
        RecordSet later = database.openRecordSet(u"SELECT * FROM Tipi"_s);
        QVERIFY(!other.run(lock).startsWith(u"error"));
        const QString locked = Fault(Locked, u"Tipi"_s);
        const auto write = [&](void (RecordSet::*begin)(), int value) {
            (set.*begin)();
            set.set(u"Lungo"_s, value);
            set.update();
        };
        QCOMPARE(FaultOf([&] { write(&RecordSet::addNew, 2); }), locked);
        set.moveFirst();
        QCOMPARE(FaultOf([&] { set.deleteRecord(); }), locked);
        QCOMPARE(FaultOf([&] { write(&RecordSet::edit, 3); }), locked);
        QCOMPARE(FaultOf([&] { (void)later.eof(); }), stopsReading ? locked : QString());
        QCOMPARE(Walk(set, u"Lungo"_s), u"1"_s);
        other.run(u"COMMIT"_s);
        QCOMPARE(other.run(u"SELECT Lungo FROM Tipi"_s), u"1"_s);
        QCOMPARE(Walk(later, u"Lungo"_s), u"1"_s);
    }

    void aTransactionReachesTheFileWhole()
    {
        const QString path = newPath();
        Database database = created(path);
        DirectConnection other(path);
        other.run(u"CREATE VIEW Vista AS SELECT * FROM Tipi; INSERT INTO Tipi(Lungo) VALUES(7)"_s);
        const auto replace = [&](bool isCommitted) {
            Transaction transaction(database);
            database.deleteAll(u"tipi"_s);
            TableAppender records(database, u"TIPI"_s, {u"soldi"_s, u"Codice"_s, u"Libero"_s});
            for (int row = 0; row < 3; ++row)
                records.append({Currency::fromWhole(row), NewValue(), QString()});
            QCOMPARE(FaultOf([&] {
                         records.append({NewValue(), u"sei+++"_s, NewValue()});
                     }),
                     Fault(FieldTooSmall, u"TIPI"_s, u"Codice"_s));
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
        const std::optional<TableDef> table = database.tableDef(u"altra"_s);
        QVERIFY(table && database.isStoredQuery(u"VISTA"_s) && !database.tableDef(u"Vista"_s));
        QStringList fields;
        for (const FieldDef &field : table->fields())
            fields += u"%1/%2/%3/%4"_s.arg(field.name)
                          .arg(static_cast<int>(field.type))
                          .arg(field.size)
                          .arg(field.allowZeroLength ? 1 : 0);
        QCOMPARE(fields.join(u' '), u"Codice/10/5/0 Libero/10/5/1 Note/12/0/0 Breve/3/0/1 "
                                    "Lungo/4/0/1 Soldi/5/0/1 Tasso/0/0/1 Del/8/0/0"_s);
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
        const auto found = [&](const QString &path) {
            return MachinePath(base + path).sliced(m_folder.path().size());
        };
        QCOMPARE(found(u"\\ARCHIVI.QX\\ZELT\\LISTA.INI"_s), u"/Archivi.QX/Zelt/Lista.ini"_s);
        QCOMPARE(found(u"\\\\archivi.qx\\\\zelt"_s), u"/Archivi.QX/Zelt"_s);
        QCOMPARE(found(u"\\ARCHIVI.QX\\NUOVO\\File.mdb"_s), u"/Archivi.QX/NUOVO/File.mdb"_s);
        QCOMPARE(found(u"\\doppio\\Ab"_s), u"/doppio/Ab"_s);
        QCOMPARE(found(u"\\DOPPIO\\aB"_s), u"/doppio/AB"_s);
        QVERIFY(ArchivePathExists(base + u"\\archivi.QX\\zelt\\lista.INI"_s));
        const QString path = base + u"\\ARCHIVI.qx\\ZELT\\Nuovo.mdb"_s;
        created(path);
        QCOMPARE(Database::open(base + u"\\archivi.qx\\zelt\\NUOVO.MDB"_s).path(),
                 root.filePath(u"Archivi.QX/Zelt/Nuovo.mdb"_s));
        QCOMPARE(FaultOf([&] { created(base + u"\\ARCHIVI.qx\\ZELT\\NUOVO.mdb"_s); }),
                 Fault(FileExists));
    }
};

QTEST_GUILESS_MAIN(DatabaseTest)
#include "test_database.moc"
