#include "common/errors.h"
#include "file_content.h"
#include "platform/ini_file.h"
#include "platform/process.h"
#include "platform/registry.h"
#include "platform/whole_file.h"

#include <QTemporaryDir>
#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

class TestRegistryIni : public QObject
{
    Q_OBJECT

private slots:
    void iniValue()
    {
        const QString path = m_folder.filePath(u"a.ini"_s);
        const QByteArray head = "[Configuration]\r\n";
        for (const auto &[content, value] : QList<std::pair<QByteArray, QString>>{
                 {head + "Build = 10168\r\n", u"10168"_s},
                 {"[Configuration]\rBuild=12\rData=3\r", u"12"_s},
                 {head + "Build=1\n[Configuration]\nBuild=2\n", u"1"_s},
                 {head + "Data=1\n[FILE]\n[Configuration]\nBuild=2\n", {}},
                 {"Build=0\n[FILE]\nBuild=2\n", {}},
                 {head + ";Build=1\n ; Build=2\nBuild=3 ;x\n", u"3 ;x"_s},
                 {head + "Builds=1\n", {}},
                 {head + "Build=\"  a b  \"\n", u"  a b"_s},
                 {head + "Build='\"a\"'\n", u"\"a\""_s},
                 {head + "Build=\"a\n", u"\"a"_s},
                 {head + "Build=\"\n", u"\""_s},
                 {head + "Build= \"a\"b\"\t\n", u"a\"b"_s},
                 {head + "Build=a" + QByteArray(20'000, ' ') + "b\n", u"a"_s},
                 {head + QByteArray("Build=ab \0c\n", 12), u"ab"_s},
                 {head + "Build=" + QByteArray(254, 'x') + "y\n", QString(254, u'x')},
                 {head + "Build=" + QByteArray("à").repeated(300), QString(254, u'à')},
                 {head + "Build=" + QByteArray(253, 'x') + " y\n", QString(253, u'x')},
                 {"\xEF\xBB\xBF" + head + "Build=perché €\n", u"perché €"_s},
                 {head + "Build=perch\xE9 \x80 \x93q\x94\n", u"perché € “q”"_s}}) {
            WriteFile(path, content);
            QCOMPARE(ReadIniString(path, u"Configuration"_s, u"Build"_s), value);
        }
        QCOMPARE(ReadIniString(path + u'x', u"Configuration"_s, u"Build"_s), QString());
    }

    void registryValue()
    {
        if (RegistryFilePath().isEmpty())
            QSKIP("the system has a registry");
        qputenv("XDG_CONFIG_HOME", m_folder.path().toUtf8());
        const QByteArray key = "[software\\dornvale\\zelt]\n";
        for (const auto &[content, value] : QList<std::pair<QByteArray, std::optional<QString>>>{
                 {key + "Drivers=D:\n", u"D:"_s},
                 {key + "drivers=/" + QByteArray(400, 'x'), u'/' + QString(400, u'x')},
                 {key + "drivers=\"/a \"\n", u"/a "_s},
                 {key + QByteArray("drivers=D:\0E\n", 13), u"D:"_s},
                 {key + "drivers=\n", QString()},
                 {"[Software\\Dornvale]\ndrivers=D:\n", {}}}) {
            WriteFile(RegistryFilePath(), content);
            QVERIFY2(ReadRegistryValue(u"Software\\Dornvale\\ZELT"_s, u"drivers"_s) == value,
                     content.constData());
        }
    }

    void registryFileFollowsTheEnvironment()
    {
        if (RegistryFilePath().isEmpty())
            QSKIP("the system has a registry");
        qputenv("HOME", "/casa/rossi");
        for (const auto &[folder, file] :
             {std::pair{"/altrove", u"/altrove/saldoro/registro.ini"_s},
              {"", u"/casa/rossi/.config/saldoro/registro.ini"_s},
              {"qui", u"/casa/rossi/.config/saldoro/registro.ini"_s}}) {
            qputenv("XDG_CONFIG_HOME", folder);
            QCOMPARE(RegistryFilePath(), file);
        }
        QVERIFY(!ReadRegistryValue(u"a"_s, QString()));
    }

    void filesAreWrittenWhole()
    {
        const auto problemOf = [](const auto &action) {
            try {
                action();
            } catch (const FileError &error) {
                return error.problem();
            }
            return u"none"_s;
        };
        const QString path = WriteFile(m_folder.filePath(u"intero/a.ini"_s), "; mia\n[B]\nc=1");
        SetIniValue(path, u"a"_s, u"x"_s, u" 1 "_s);
        SetIniValue(path, u"b"_s, u"d"_s, u"2"_s);
        SetIniValue(path, u"B"_s, u"C"_s, u"/è \"x\""_s);
        QCOMPARE(ContentOf(path), "; mia\n[B]\nd=\"2\"\nC=\"/è \"x\"\"\n[a]\nx=\" 1 \"\n");
        for (const QString &value : {u"a\nb"_s, u"a\r[B]"_s, u"a"_s + QChar::Null})
            QCOMPARE(problemOf([&] { SetIniValue(path, u"B"_s, u"C"_s, value); }),
                     u"«%1» non verrebbe riletto com'è."_s.arg(value));
        {
            WholeFile other(path, "b");
            WholeFile replaced(path, "a");
            QVERIFY(ContentOf(path).startsWith("; mia"));
            replaced.replace();
        }
        QDir(m_folder.path()).mkpath(u"intero/cartella/x"_s);
        QCOMPARE(problemOf([&] { PutInPlace(m_folder.filePath(u"intero/cartella"_s), path); }),
                 u"Il file c'è già."_s);
        for (const auto &[name, content, problem] :
             {std::tuple(u"cartella"_s, "", u"Al posto del file c'è una cartella."_s),
              {u"manca/a"_s, "", u"La cartella del file non esiste."_s},
              {u"a.ini"_s, nullptr, u"La scrittura del file non è riuscita."_s}})
            QCOMPARE(problemOf([&, name = name, content = content] {
                         WholeFile(m_folder.filePath(u"intero/"_s + name), [&](QIODevice &file) {
                             return file.write("x") == 1 && content != nullptr;
                         });
                     }),
                     problem);
        QCOMPARE(problemOf([&] {
                     SetIniValue(m_folder.filePath(u"intero/cartella"_s), u"a"_s, u"b"_s, u"c"_s);
                 }),
                 u"Il file non può essere letto."_s);
        QCOMPARE(ContentsOf(m_folder.filePath(u"intero"_s)),
                 (QMap<QString, QByteArray>{{u"a.ini"_s, "a"}}));
    }

    void commandLineTail()
    {
        for (const auto &[line, tail] : {std::pair{QString(), QString()},
                                         {u"Saldoro.exe /INI"_s, u"/INI"_s},
                                         {u"\"C:\\Pro grammi\\S.exe\"  /INI"_s, u"/INI"_s},
                                         {u"S.exe TUSMQDE7W00 112 "_s, u"TUSMQDE7W00 112 "_s},
                                         {u"S \"/INI\""_s, u"\"/INI\""_s}})
            QCOMPARE(TailOfCommandLine(line), tail);
    }

private:
    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(TestRegistryIni)
#include "test_registry_ini.moc"
