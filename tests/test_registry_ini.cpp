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
    void iniValue()
    {
        const QString path = m_folder.filePath(QStringLiteral("a.ini"));
        const QByteArray head = "[Configuration]\r\n";
        const QList<QPair<QByteArray, QString>> files{
            {head + "Build = 10168\r\n", "10168"},
            {"[Configuration]\rBuild=12\rData=3\r", "12"},
            {head + "Build=1\n[Configuration]\nBuild=2\n", "1"},
            {head + "Data=1\n[FILE]\n[Configuration]\nBuild=2\n", ""},
            {"Build=0\n[FILE]\nBuild=2\n", ""},
            {head + ";Build=1\n ; Build=2\nBuild=3 ;x\n", "3 ;x"},
            {head + "Builds=1\n", ""},
            {head + "Build=\"  a b  \"\n", "  a b"},
            {head + "Build='\"a\"'\n", "\"a\""},
            {head + QByteArray("Build=ab \0c\n", 12), "ab"},
            {head + "Build=" + QByteArray(254, 'x') + "y\n", QString(254, 'x')},
            {head + "Build=" + QByteArray("à").repeated(300), QString(254, QChar(u'à'))},
            {head + "Build=" + QByteArray(253, 'x') + " y\n", QString(253, 'x')},
            {"\xEF\xBB\xBF" + head + "Build=perché €\n", QStringLiteral("perché €")},
            {head + "Build=perch\xE9 \x80 \x93q\x94\n", QStringLiteral("perché € “q”")}};
        for (const auto &[content, value] : files) {
            writeFile(path, content);
            QCOMPARE(ReadIniString(path, QStringLiteral("Configuration"), QStringLiteral("Build")),
                     value);
        }
    }

    void registryValue()
    {
        if (RegistryFilePath().isEmpty())
            QSKIP("the system has a registry");
        qputenv("XDG_CONFIG_HOME", m_folder.path().toUtf8());
        const QByteArray key = "[software\\dornvale\\zelt]\n";
        const QList<QPair<QByteArray, QString>> files{
            // a null text: no value at all
            {key + "Drivers=D:\n", "D:"},
            {key + "drivers=/" + QByteArray(400, 'x'), u'/' + QString(400, 'x')},
            {key + "drivers=\"/a \"\n", "/a "},
            {key + "drivers=REG_SZ:REG_SZ:\n", "REG_SZ:"},
            {key + QByteArray("drivers=D:\0E\n", 13), "D:"},
            {key + "drivers=\n", ""},
            {key + "drivers=REG_EXPAND_SZ:%SystemDrive%\n", QString()},
            {"[Software\\Dornvale]\ndrivers=D:\n", QString()}};
        for (const auto &[content, value] : files) {
            writeFile(RegistryFilePath(), content);
            const auto found = ReadRegistryValue(QStringLiteral("Software\\Dornvale\\ZELT"),
                                                 QStringLiteral("drivers"));
            QVERIFY2(found.has_value() == !value.isNull(), content.constData());
            QCOMPARE(found.value_or(QString()), value);
        }
    }

    void registryFileFollowsTheEnvironment()
    {
        if (RegistryFilePath().isEmpty())
            QSKIP("the system has a registry");
        qputenv("HOME", "/casa/rossi");
        qputenv("XDG_CONFIG_HOME", "/altrove");
        QCOMPARE(RegistryFilePath(), QStringLiteral("/altrove/saldoro/registro.ini"));
        for (const char *unusable : {"", "qui"}) {
            qputenv("XDG_CONFIG_HOME", unusable);
            QCOMPARE(RegistryFilePath(),
                     QStringLiteral("/casa/rossi/.config/saldoro/registro.ini"));
        }
        QVERIFY(!ReadRegistryValue(QStringLiteral("a"), QString()));
    }

    void commandLineTail()
    {
        const auto tail = [](const char *line) {
            return TailOfCommandLine(QString::fromUtf8(line));
        };
        QCOMPARE(tail(""), QString());
        QCOMPARE(tail("Saldoro.exe /INI"), QStringLiteral("/INI"));
        QCOMPARE(tail("\"C:\\Pro grammi\\S.exe\"  /INI"), QStringLiteral("/INI"));
        QCOMPARE(tail("S.exe TUSMQDE7W00 112 "), QStringLiteral("TUSMQDE7W00 112 "));
        QCOMPARE(tail("S \"/INI\""), QStringLiteral("\"/INI\""));
    }

private:
    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(TestRegistryIni)
#include "test_registry_ini.moc"
