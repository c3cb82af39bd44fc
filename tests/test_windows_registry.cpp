#include "platform/registry.h"

#include <QTest>

#include <optional>
#include <windows.h>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {
const char *const testKey = "Software\\Saldoro\\Prova";
} // namespace

/** The real registry: values of every type, written past the reader. */
class TestWindowsRegistry : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { RegDeleteTreeA(HKEY_CURRENT_USER, testKey); }

    void values()
    {
        const auto read = [](const QString &name) {
            return ReadRegistryValue(u"software\\SALDORO\\Prova"_s, name);
        };
        QVERIFY(!read(u"drivers"_s)); // no key
        const QByteArray text("D:\\Archivi", 11);
        for (const auto &[type, data, value] :
             QList<std::tuple<DWORD, QByteArray, std::optional<QString>>>{
                 {REG_SZ, text, u"D:\\Archivi"_s},
                 {REG_SZ, text.chopped(1), u"D:\\Archivi"_s},
                 {REG_SZ, QByteArray("D:\0E:", 6), u"D:"_s},
                 {REG_SZ, QByteArray(" D: ", 5), u" D: "_s},
                 {REG_SZ, QByteArray("", 1), QString()},
                 {REG_SZ, QByteArray(900, 'x'), QString(900, u'x')},
                 {REG_EXPAND_SZ, text, {}},
                 {REG_MULTI_SZ, text + '\0', {}},
                 {REG_BINARY, text, {}},
                 {REG_DWORD, QByteArray("D:\0", 4), {}}}) {
            QCOMPARE(RegSetKeyValueA(HKEY_CURRENT_USER, testKey, "drivers", type, data.constData(),
                                     static_cast<DWORD>(data.size())),
                     LSTATUS{ERROR_SUCCESS});
            QVERIFY2(read(u"Drivers"_s) == value, qPrintable(value.value_or(u"none"_s)));
        }
        QVERIFY(!read(u"driver"_s)); // no value
    }
};

QTEST_GUILESS_MAIN(TestWindowsRegistry)
#include "test_windows_registry.moc"
