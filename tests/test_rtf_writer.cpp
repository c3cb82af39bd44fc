#include "controls/rtf_writer.h"
#include "rtf_text.h"

#include <QBuffer>
#include <QTest>

#include <random>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

/** Takes so many bytes, then refuses; remembers the largest piece it was handed. */
class ScantDevice : public QIODevice
{
public:
    explicit ScantDevice(qint64 room)
        : m_room(room)
    {
        open(WriteOnly | Unbuffered);
    }
    qint64 largestPiece = 0;

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *, qint64 size) override
    {
        largestPiece = qMax(largestPiece, size);
        const qint64 taken = qMin(size, m_room);
        m_room -= taken;
        return taken;
    }

private:
    qint64 m_room;
};

QByteArray documentOf(const QString &text, const RtfFont &font = {u"Courier New"_s, 17, true})
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return WriteRtf(buffer, text, font) ? buffer.data() : QByteArray("refused");
}

const QByteArray Header = "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0\\fmodern\\fprq1"
                          "\\fcharset0 Courier New;}}\r\n\\pard\\lang1040\\f0\\fs17 ";

} // namespace

class TestRtfWriter : public QObject
{
    Q_OBJECT

private slots:
    void bytes_data();
    void bytes();
    void otherFont();
    void longTextsGoInPieces();
    void aRefusedWriteIsReported_data();
    void aRefusedWriteIsReported();
};

void TestRtfWriter::bytes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("body");
    QTest::newRow("empty") << QString() << QByteArray();
    QTest::newRow("blanks stay") << u"  a  b "_s << QByteArray("  a  b ");
    QTest::newRow("escapes") << u"{a}\\b"_s << QByteArray("\\{a\\}\\\\b");
    QTest::newRow("blank after a tab") << u"\t\t x"_s << QByteArray("\\tab \\tab  x");
    QTest::newRow("line breaks") << u"a\r\nb\rc\n\r d"_s
                                 << QByteArray("a\\par\r\nb\\par\r\nc\\par\r\n\\par\r\n d");
    QTest::newRow("break at the end") << u"a\r\n"_s << QByteArray("a\\par\r\n\\par\r\n");
    QTest::newRow("break alone") << u"\r"_s << QByteArray("\\par\r\n\\par\r\n");
    QTest::newRow("code page") << u"è 1€ÿŽ"_s
                               << QByteArray("\\u232\\'e8 1\\u8364\\'80\\u255\\'ff\\u381\\'8e");
    QTest::newRow("no byte in the code page")
        << u"ł9\u0081\u0080"_s << QByteArray("\\u322\\'3f9\\u129\\'3f\\u128\\'3f");
    QTest::newRow("negative number") << u"\u8000\uffff"_s << QByteArray("\\u-32768\\'3f\\u-1\\'3f");
    QTest::newRow("pair") << u"😀1"_s << QByteArray("\\u-10179\\'3f\\u-8704\\'3f1");
    QTest::newRow("halves of pairs")
        << QString(QChar(0xDE00)) + QChar(0xD83D) + u'x' + QChar(0xD83D)
        << QByteArray("\\u-3\\'3f\\u-3\\'3fx\\u-3\\'3f");
    QTest::newRow("controls") << u"a\u0001\v\f\u001f\u007fb"_s + QChar(u'\0') + u'c'
                              << QByteArray("a\\'01\\'0b\\'0c\\'1f\\'7fbc");
}

void TestRtfWriter::bytes()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, body);
    QCOMPARE(documentOf(text), Header + body + "}\r\n");
}

void TestRtfWriter::otherFont()
{
    const RtfContent content = ReadRtf(documentOf(u"x"_s, {u"Lettera {1} é"_s, 20, false}));
    QCOMPARE(content.font, u"Lettera {1} é"_s);
    QVERIFY(!content.fixedPitch);
    QCOMPARE(content.text, u"x"_s);
    QVERIFY(documentOf(QString(), {u"F"_s, 20, false}).contains("\\fs20 }"));
}

void TestRtfWriter::longTextsGoInPieces()
{
    std::mt19937 random(7);
    const QString text = HostileText(random, 200'000) + QString(60'000, u'{') + u"end"_s;
    QCOMPARE(ReadRtf(documentOf(text)).text, MeantText(text));
    ScantDevice device(1LL << 40);
    QVERIFY(WriteRtf(device, text, {}));
    QCOMPARE(device.largestPiece, 65536);
}

void TestRtfWriter::aRefusedWriteIsReported_data()
{
    QTest::addColumn<int>("missing");
    QTest::newRow("enough room") << 0;
    QTest::newRow("the last byte") << 1;
    QTest::newRow("the first piece only") << 100'000;
}

void TestRtfWriter::aRefusedWriteIsReported()
{
    QFETCH(int, missing);
    const QString text(150'000, u'x');
    ScantDevice device(documentOf(text).size() - missing);
    QCOMPARE(WriteRtf(device, text, {u"Courier New"_s, 17, true}), missing == 0);
}

QTEST_GUILESS_MAIN(TestRtfWriter)
#include "test_rtf_writer.moc"
