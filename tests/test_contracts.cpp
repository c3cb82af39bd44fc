#include "common/errors.h"
#include "database_probe.h"
#include "office/contract_list.h"
#include "platform/progress.h"
#include "sound_project.h"
#include "store/contract_folders.h"
#include "store/listed_contract.h"
#include "store/project_copy.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

/** Codes of contracts, and copies of them. */
class TestContracts : public QObject
{
    Q_OBJECT

private slots:
    void codes_data()
    {
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("part"); // of the problem; empty for none
        for (const auto &[code, part] :
             std::initializer_list<std::pair<const char *, const char *>>{
                 {"00040", ""},
                 {"Ponte sull'Adige (2° lotto)", ""},
                 {"CONTE", ""},
                 {"COM10", ""},
                 {"", "Scrivere"},
                 {"LOTTO a", "c'è già"}, // one folder to Windows
                 {"a/b", "/"},
                 {"a\\b", "\\"},
                 {"a:b", ":"},
                 {"a?", "?"},
                 {"a\tb", "controllo"},
                 {"a\u200Bb", "controllo"},
                 {"a\u2028", "controllo"},
                 {" 00040", "spazio"},
                 {"00040 ", "spazio"},
                 {".2026-5", "punto"},
                 {"..", "punto"},
                 {"lotto 1.", "punto"},
                 {"lotto.Nuovo", "nuovo"},
                 {"con", "riservato"},
                 {"Com1.bis", "riservato"},
                 {"NUL .x", "riservato"},
                 {"1234567890123456789012345678901234567890123456789012345678901", "60"}})
            QTest::addRow("%s", code) << QString::fromUtf8(code) << QString::fromUtf8(part);
    }
    void codes()
    {
        QFETCH(const QString, code);
        QFETCH(const QString, part);
        const QString problem = ContractCodeProblem(code, {u"Lotto A"_s});
        QCOMPARE(problem.isEmpty(), part.isEmpty());
        QVERIFY2(problem.contains(part), qPrintable(problem));
    }
    void firstFreeCode()
    {
        QCOMPARE(FirstFreeContractCode({}), u"00001"_s);
        QCOMPARE(FirstFreeContractCode({u"00003"_s, u"00001"_s, u"2"_s}), u"00002"_s);
    }

    /** What a link that leads nowhere stands for is neither free nor new. */
    void deadLinks()
    {
        if (QSysInfo::kernelType() == "winnt"_L1)
            QSKIP("no links without rights of one's own");
        const SoundProject project;
        QFile::link(u"nowhere"_s, QFileInfo(project.folder()).path() + u"/00001"_s);
        QCOMPARE(ContractCodes(project.archive.values().ArchiveRoot),
                 QStringList({u"00001"_s, u"00112"_s}));
        QFile::remove(MachinePath(project.path(u'L')));
        QCOMPARE(ReadListedContract(project.folder(), 0).payments, 0);
        QFile::link(u"nowhere"_s, project.folder() + u"/Saldoro.mdb"_s);
        QVERIFY_THROWS_EXCEPTION(DatabaseError, ReadListedContract(project.folder(), 0));
        const QTemporaryDir target;
        QVERIFY_THROWS_EXCEPTION(DatabaseError, CopyProject(project.folder(), target.path()));
        QVERIFY(QDir(target.path()).isEmpty());
    }

    /** Figures stand until they are read again, but not those of another archive. */
    void figuresOfAnotherArchive()
    {
        const SoundProject projects[2];
        TextTable table;
        ContractList list(table);
        list.read(projects[0].archive.values().ArchiveRoot);
        QTRY_COMPARE(table.text(1, 1), u"2"_s);
        list.read(projects[0].archive.values().ArchiveRoot);
        QCOMPARE(table.text(1, 1), u"2"_s);
        list.read(projects[1].archive.values().ArchiveRoot);
        QCOMPARE(table.text(1, 1), QString());
        QCOMPARE(list.currentCode(), u"00112"_s);
    }

    /** The databases are copied as they stand at one moment; a copy that is broken off goes. */
    void copyOfOneMoment()
    {
        const SoundProject project;
        const QTemporaryDir target;
        QString refusals;
        Progress::setWatcher([&](const QString &state) {
            if (state == "Copia di Saldoro.mdb"_L1)
                throw SaldoroError(u"annullata"_s);
            for (const QChar each : u"LCAK"_s)
                refusals += DirectConnection(project.path(each)).run(u"CREATE TABLE Altra (x)"_s);
        });
        QVERIFY_THROWS_EXCEPTION(SaldoroError, CopyProject(project.folder(), target.path()));
        Progress::setWatcher({});
        QCOMPARE(refusals.count(u"database is locked"_s), 12);
        QVERIFY(QDir(target.path()).isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestContracts)
#include "test_contracts.moc"
