#include "overview/rtf_writer.h"
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

QByteArray documentOf(const QString &text, const QString &font = u"Courier New"_s)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return WriteRtf(buffer, text, font) ? buffer.data() : QByteArray("refused");
}

} // namespace

class TestRtfWriter : public QObject
{
    Q_OBJECT

private slots:
    void bytes()
    {
        const QByteArray header =
            "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0\\fmodern\\fprq1\\fcharset0 "
            "Courier New;}}\r\n"
            "\\paperw11906\\paperh16838\\margl1134\\margr1134\\margt1134\\margb1134\r\n"
            "\\pard\\lang1040\\f0\\fs17 ";
        for (const auto &[text, body] : QList<std::pair<QString, QByteArray>>{
                 {{}, ""},
                 {u"  a  b "_s, "  a  b "},
                 {u"{a}\\b"_s, "\\{a\\}\\\\b"},
                 {u"\t\t x"_s, "\\tab \\tab  x"},
                 {u"a\r\nb\rc\n\r d\ve\f\nf"_s,
                  "a\\par\r\nb\\par\r\nc\\par\r\n\\par\r\n d\\par\r\ne\\par\r\n\\par\r\nf"},
                 {u"a\r\n"_s, "a\\par\r\n\\par\r\n"},
                 {u"a\f"_s, "a\\par\r\n\\par\r\n"},
                 {u"a\n"_s + QChar(u'\0'), "a\\par\r\n\\par\r\n"},
                 {u"è 1€ÿŽ"_s, "\\u232\\'e8 1\\u8364\\'80\\u255\\'ff\\u381\\'8e"},
                 {u"ł9\u0081\u0080"_s, "\\u322\\'3f9\\u129\\'3f\\u128\\'3f"},
                 {u"\u8000\uffff"_s, "\\u-32768\\'3f\\u-1\\'3f"},
                 {u"😀1"_s, "\\u-10179\\'3f\\u-8704\\'3f1"},
                 {QString(QChar(0xDE00)) + QChar(0xD83D) + u'x' + QChar(0xD83D),
                  "\\u-3\\'3f\\u-3\\'3fx\\u-3\\'3f"},
                 {u"a\u0001\b\u000e\u001f\u007fb"_s + QChar(u'\0') + u'c',
                  "a\\'01\\'08\\'0e\\'1f\\'7fbc"}})
            QCOMPARE(documentOf(text), header + body + "}\r\n");
    }

    void otherFont()
    {
        const RtfContent content = ReadRtf(documentOf(u"x"_s, u"Lettera {1} é"_s));
        QCOMPARE(content.font, u"Lettera {1} é"_s);
        QVERIFY(!content.fixedPitch);
    }

    /** Written in pieces, with room for all, for all but a byte, and for the first piece only. */
    void aRefusedWriteIsReported()
    {
        std::mt19937 random(7);
        const QString text = HostileText(random, 200'000) + QString(60'000, u'{') + u"end"_s;
        const QByteArray whole = documentOf(text);
        QCOMPARE(ReadRtf(whole).text, MeantText(text));
        for (const qint64 missing : {0LL, 1LL, whole.size() - 100'000LL}) {
            ScantDevice device(whole.size() - missing);
            QCOMPARE(WriteRtf(device, text, u"Courier New"_s), missing == 0);
            QVERIFY(device.largestPiece > 10'000 && device.largestPiece < 400'000);
        }
    }
};

QTEST_GUILESS_MAIN(TestRtfWriter)
#include "test_rtf_writer.moc"
