#include "platform/ini_file.h"
#include "platform/process.h"
#include "platform/registry.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace saldoro;

namespace {

void writeFile(const QString &path, const QByteArray &content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

} // namespace

class TestRegistryIni : public QObject
{
    Q_OBJECT

private slots:
    void iniValue_data();
    void iniValue();
    void iniFileIsFoundInAnyLetterCase();
    void registryValue_data();
    void registryValue();
    void registryFileFollowsTheEnvironment();
    void commandLineTail();

private:
    QTemporaryDir m_folder;
};

void TestRegistryIni::iniValue_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("value");
    const QByteArray head = "[Configuration]\r\n";
    const auto row = [](const char *name, const QByteArray &content, const QString &value) {
        QTest::newRow(name) << content << value;
    };
    row("blanks around =", head + "Build = 10168\r\n", "10168");
    row("letter case", "[CONFIGURATION]\nbUILD=1\n", "1");
    row("blanks in names", " [ Configuration ] \n\t Build\t=\t1\t\n", "1");
    row("old line ends", "[Configuration]\rBuild=12\rData=3\r", "12");
    row("first key wins", head + "Build=1\nBuild=2\n", "1");
    row("first section wins", head + "Build=1\n[Configuration]\nBuild=2\n", "1");
    row("only the first section", head + "Data=1\n[FILE]\n[Configuration]\nBuild=2\n", "");
    row("other section", "Build=0\n[FILE]\nBuild=2\n", "");
    row("comment", head + ";Build=1\n ; Build=2\nBuild=3 ;x\n", "3 ;x");
    row("no =", head + "Build\nBuild=4\n", "4");
    row("second =", head + "Build=a=b\n", "a=b");
    row("empty", head + "Build=\nBuild=1\n", "");
    row("key missing", head + "Builds=1\n", "");
    row("quotes", head + "Build=\"  a b  \"\n", "  a b");
    row("single quotes", head + "Build='\"a\"'\n", "\"a\"");
    row("half a quote", head + "Build=\"\n", "\"");
    row("NUL", head + QByteArray("Build=ab \0c\n", 12), "ab");
    row("255 characters", head + "Build=" + QByteArray(254, 'x') + "y\n", QString(254, 'x'));
    row("characters, not bytes", head + "Build=" + QByteArray("à").repeated(300),
        QString(254, QChar(u'à')));
    row("cut at a blank", head + "Build=" + QByteArray(253, 'x') + " y\n", QString(253, 'x'));
    row("mark", "\xEF\xBB\xBF" + head + "Build=perché €\n", QStringLiteral("perché €"));
    row("Windows-1252", head + "Build=perch\xE9 \x80 \x93q\x94\n", QStringLiteral("perché € “q”"));
    row("Windows-1252 at the end", head + "Build=citt\xE0", QStringLiteral("città"));
}

void TestRegistryIni::iniValue()
{
    QFETCH(const QByteArray, content);
    const QString path = m_folder.filePath(QStringLiteral("a.ini"));
    writeFile(path, content);
    QTEST(ReadIniString(path, QStringLiteral("Configuration"), QStringLiteral("Build")), "value");
}

void TestRegistryIni::iniFileIsFoundInAnyLetterCase()
{
    writeFile(m_folder.filePath(QStringLiteral("UpDate/saldoro.ini")), "[A]\nb=c\n");
    const QString path = m_folder.path() + QStringLiteral("\\UPDATE\\Saldoro.INI");
    QCOMPARE(ReadIniString(path, QStringLiteral("a"), QStringLiteral("B")), QStringLiteral("c"));
    QCOMPARE(ReadIniString(path + u'x', QStringLiteral("a"), QStringLiteral("B")), QString());
    QCOMPARE(ReadIniString(m_folder.path(), QStringLiteral("a"), QStringLiteral("B")), QString());
}

void TestRegistryIni::registryValue_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("value"); // null: no value at all
    const QByteArray key = "[software\\dornvale\\zelt]\n";
    const auto row = [](const char *name, const QByteArray &content, const QString &value) {
        QTest::newRow(name) << content << value;
    };
    row("text", key + "Drivers=D:\n", "D:");
    row("long text", key + "drivers=/" + QByteArray(400, 'x'), u'/' + QString(400, 'x'));
    row("blanks kept by quotes", key + "drivers=\"/a \"\n", "/a ");
    row("typed text", key + "drivers=REG_SZ:REG_SZ:\n", "REG_SZ:");
    row("NUL", key + QByteArray("drivers=D:\0E\n", 13), "D:");
    row("empty text", key + "drivers=\n", "");
    row("expandable", key + "drivers=REG_EXPAND_SZ:%SystemDrive%\n", QString());
    row("number", key + "drivers=REG_DWORD:5\n", QString());
    row("binary", key + "drivers=reg_binary:00\n", QString());
    row("value missing", key + "driver=D:\n", QString());
    row("key missing", "[Software\\Dornvale]\ndrivers=D:\n", QString());
}

void TestRegistryIni::registryValue()
{
    if (RegistryFilePath().isEmpty())
        QSKIP("the system has a registry");
    QFETCH(const QByteArray, content);
    QFETCH(const QString, value);
    qputenv("XDG_CONFIG_HOME", m_folder.path().toUtf8());
    writeFile(RegistryFilePath(), content);
    const auto found =
        ReadRegistryValue(RegistryRoot::CurrentUser, QStringLiteral("Software\\Dornvale\\ZELT"),
                          QStringLiteral("drivers"));
    QCOMPARE(found.has_value(), !value.isNull());
    QCOMPARE(found.value_or(QString()), value);
}

void TestRegistryIni::registryFileFollowsTheEnvironment()
{
    if (RegistryFilePath().isEmpty())
        QSKIP("the system has a registry");
    qputenv("HOME", "/casa/rossi");
    qputenv("XDG_CONFIG_HOME", "/altrove");
    QCOMPARE(RegistryFilePath(), QStringLiteral("/altrove/saldoro/registro.ini"));
    for (const char *unusable : {"", "qui"}) {
        qputenv("XDG_CONFIG_HOME", unusable);
        QCOMPARE(RegistryFilePath(), QStringLiteral("/casa/rossi/.config/saldoro/registro.ini"));
    }
    QVERIFY(!ReadRegistryValue(RegistryRoot::CurrentUser, QStringLiteral("a"), QString()));
}

void TestRegistryIni::commandLineTail()
{
    const auto tail = [](const char *line) { return TailOfCommandLine(QString::fromUtf8(line)); };
    QCOMPARE(tail(""), QString());
    QCOMPARE(tail("Saldoro.exe"), QString());
    QCOMPARE(tail("Saldoro.exe /INI"), QStringLiteral("/INI"));
    QCOMPARE(tail("\"C:\\Pro grammi\\S.exe\"  /INI"), QStringLiteral("/INI"));
    QCOMPARE(tail("S.exe TUSMQDE7W00 112 "), QStringLiteral("TUSMQDE7W00 112 "));
    QCOMPARE(tail("S \"/INI\""), QStringLiteral("\"/INI\""));
}

QTEST_GUILESS_MAIN(TestRegistryIni)
#include "test_registry_ini.moc"
