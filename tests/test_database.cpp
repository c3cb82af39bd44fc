#include "database/engine_error.h"
#include "database_probe.h"
#include "file_content.h"
#include "platform/machine_path.h"

#include <QDir>
#include <QFile>
#include <QOperatingSystemVersion>

#include <sqlite3.h>
#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace saldoro;
using namespace Qt::StringLiterals;
using enum saldoro::DatabaseFault;

class DatabaseTest : public FilesTest
{
    Q_OBJECT

private slots:
    void aNewFileHoldsWhatWasDefined()
    {
        const QString path = newPath();
        const Database database = Created(path);
        DirectConnection direct(path);
        QCOMPARE(direct.run(u"SELECT sql FROM sqlite_master"_s),
                 u"CREATE TABLE \"Tipi\" ("
                 "\"Codice\" TEXT(5) CONSTRAINT \"ZeroLength Codice\" CHECK (\"Codice\" <> ''), "
                 "\"Libero\" TEXT(5), "
                 "\"Note\" MEMO TEXT CONSTRAINT \"ZeroLength Note\" CHECK (\"Note\" <> ''), "
                 "\"Breve\" INTEGER16, \"Lungo\" LONG, \"Soldi\" CURRENCY, \"Tasso\" DOUBLE, "
                 "\"Del\" DATETIME CONSTRAINT \"ZeroLength Del\" CHECK (\"Del\" <> ''))"_s);
        const TableDef table = *database.tableDef(u"TIPI"_s);
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
        QCOMPARE(FaultOf([&] { Created(path); }), Fault(FileExists));
        QCOMPARE(FaultOf([&] { Created(path + u"/x.mdb"_s); }), Fault(FileMissing));
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
        Created(damaged);
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
        const Database database = Created(newPath());
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

    void hiddenDamageIsFound()
    {
        const QString path = newPath();
        const Database database = Created(path);
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
#ifdef Q_OS_UNIX
        const QString pipe = m_folder.filePath(u"pipe"_s);
        QCOMPARE(mkfifo(pipe.toUtf8().constData(), 0600), 0);
        QVERIFY(Database::hasPlainJournal(pipe)); // and does not wait for its other end
#endif
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
        Created(base + u"\\ARCHIVI.qx\\ZELT\\Nuovo.mdb"_s);
        const QString written = base + u"\\archivi.qx\\zelt\\NUOVO.MDB"_s;
        QVERIFY(QFile::exists(MachinePath(written)));
        QCOMPARE(Database::open(written).path(), root.filePath(u"Archivi.QX/Zelt/Nuovo.mdb"_s));
        QCOMPARE(FaultOf([&] { Created(written); }), Fault(FileExists));
    }
};

QTEST_GUILESS_MAIN(DatabaseTest)
#include "test_database.moc"
