#include "platform/registry.h"

#include <QTest>

#include <windows.h>

using namespace saldoro;

namespace {
const char *const testKey = "Software\\Saldoro\\Prova";
} // namespace

/** The real registry: values of every type, written past the reader. */
class TestWindowsRegistry : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { RegDeleteTreeA(HKEY_CURRENT_USER, testKey); }
    void values_data();
    void values();
    void nothingThere();
};

void TestWindowsRegistry::values_data()
{
    QTest::addColumn<unsigned>("type");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("value"); // null: no value at all
    const QByteArray text("D:\\Archivi", 11);
    QTest::newRow("text") << unsigned{REG_SZ} << text << "D:\\Archivi";
    QTest::newRow("without its NUL") << unsigned{REG_SZ} << text.chopped(1) << "D:\\Archivi";
    QTest::newRow("NUL within") << unsigned{REG_SZ} << QByteArray("D:\0E:", 6) << "D:";
    QTest::newRow("blanks at the ends") << unsigned{REG_SZ} << QByteArray(" D: ", 5) << " D: ";
    QTest::newRow("empty") << unsigned{REG_SZ} << QByteArray("", 1) << "";
    QTest::newRow("long") << unsigned{REG_SZ} << QByteArray(900, 'x') << QString(900, 'x');
    QTest::newRow("expandable") << unsigned{REG_EXPAND_SZ} << text << QString();
    QTest::newRow("list") << unsigned{REG_MULTI_SZ} << text + '\0' << QString();
    QTest::newRow("binary") << unsigned{REG_BINARY} << text << QString();
    QTest::newRow("number") << unsigned{REG_DWORD} << QByteArray("D:\0", 4) << QString();
}

void TestWindowsRegistry::values()
{
    QFETCH(const unsigned, type);
    QFETCH(const QByteArray, data);
    QFETCH(const QString, value);
    QCOMPARE(RegSetKeyValueA(HKEY_CURRENT_USER, testKey, "drivers", type, data.constData(),
                             static_cast<DWORD>(data.size())),
             LSTATUS{ERROR_SUCCESS});
    const auto read =
        ReadRegistryValue(QStringLiteral("software\\SALDORO\\Prova"), QStringLiteral("Drivers"));
    QCOMPARE(read.has_value(), !value.isNull());
    QCOMPARE(read.value_or(QString()), value);
}

void TestWindowsRegistry::nothingThere()
{
    const auto read = [](const char *name) {
        return ReadRegistryValue(QString::fromLatin1(testKey), QString::fromLatin1(name));
    };
    QVERIFY(!read("drivers")); // no key
    RegSetKeyValueA(HKEY_CURRENT_USER, testKey, "drivers", REG_SZ, "D:", 3);
    QVERIFY(read("drivers").has_value());
    QVERIFY(!read("driver")); // no value
}

QTEST_GUILESS_MAIN(TestWindowsRegistry)
#include "test_windows_registry.moc"
