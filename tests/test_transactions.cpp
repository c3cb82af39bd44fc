#include "database_probe.h"

#include <QElapsedTimer>

#include <future>

using namespace saldoro;
using namespace Qt::StringLiterals;
using enum saldoro::DatabaseFault;

/** What several programs, and several changes, do to the same files. */
class TestTransactions : public FilesTest
{
    Q_OBJECT

private slots:
    void lockedFilesAreWaitedFor()
    {
        using Action = QString (*)(RecordSet &);
        const Action add = [](RecordSet &set) { return Add(set, u"Lungo"_s, 2); };
        const Action remove = [](RecordSet &set) { return FaultOf([&] { set.deleteRecord(); }); };
        const auto attempt = [](const QString &path, const char *lock, Action action, int held) {
            const Database database = Created(path);
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
        Database database = Created(path);
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
            database.appendTableDef(AllTypes(u"Altra"_s));
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
        Database first = Created(paths[0]);
        Created(paths[1]);
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
        RecordSet copied = second.copyInMemory().openRecordSet(u"SELECT * FROM Sua"_s);
        QCOMPARE(Walk(copied, u"n"_s), u"1"_s);
        const Transaction reading(second, TransactionKind::Reading);
        RecordSet set = second.openRecordSet(u"SELECT * FROM Tipi"_s);
        QVERIFY(set.isEmpty());
        QVERIFY(others[1].run(u"INSERT INTO Tipi DEFAULT VALUES"_s).startsWith(u"error"));
        QCOMPARE(others[0].run(u"INSERT INTO Tipi DEFAULT VALUES"_s), QString());
    }
};

QTEST_GUILESS_MAIN(TestTransactions)
#include "test_transactions.moc"
