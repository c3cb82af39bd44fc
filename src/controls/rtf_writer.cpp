#include "controls/rtf_writer.h"

#include "platform/legacy_text.h"

#include <QByteArray>
#include <QIODevice>

#include <algorithm>
#include <string>

namespace saldoro {

namespace {

/** Collects bytes and hands them to the device in large pieces. */
class PieceWriter
{
public:
    explicit PieceWriter(QIODevice &device)
        : m_device(device)
    {
    }

    void put(QByteArrayView bytes)
    {
        m_piece.append(bytes.data(), static_cast<std::size_t>(bytes.size()));
        if (m_piece.size() >= 65536)
            flush();
    }
    /** Writes what is left; false when any write was refused. */
    bool finish()
    {
        flush();
        return m_good;
    }

private:
    void flush()
    {
        // A device that runs full takes part of a piece first and says why only when asked again.
        const auto size = static_cast<qint64>(m_piece.size());
        for (qint64 written = 0; m_good && written < size;) {
            const qint64 taken = m_device.write(m_piece.data() + written, size - written);
            m_good = taken > 0;
            written += taken;
        }
        m_piece.clear();
    }

    QIODevice &m_device;
    std::string m_piece;
    bool m_good = true;
};

void putByteEscape(PieceWriter &out, unsigned char byte)
{
    out.put("\\'");
    out.put(QByteArray(1, static_cast<char>(byte)).toHex());
}

/** A character beyond ASCII, or one half of one beyond the basic plane. The number is signed and
 *  of 16 bits; the fallback is always a byte escape, since some readers drop all plain text that
 *  follows the number up to the next control word. */
void putUnicode(PieceWriter &out, char16_t unit)
{
    out.put("\\u");
    out.put(QByteArray::number(static_cast<qint16>(unit)));
    putByteEscape(out, CodePageByte(unit).value_or('?'));
}

bool standsForItself(QChar character)
{
    const char16_t unit = character.unicode();
    return unit >= u' ' && unit < 0x7f && unit != u'\\' && unit != u'{' && unit != u'}';
}

/** ASCII that does not stand for itself. */
void putEscaped(PieceWriter &out, char character)
{
    if (character == '\t')
        out.put("\\tab ");
    else if (character >= ' ' && character < 0x7f)
        out.put(QByteArray("\\") + character);
    else if (character != '\0')
        putByteEscape(out, static_cast<unsigned char>(character));
}

bool isHalfAlone(const QChar *begin, const QChar *at, const QChar *end)
{
    if (at->isHighSurrogate())
        return at + 1 == end || !at[1].isLowSurrogate();
    return at->isLowSurrogate() && (at == begin || !at[-1].isHighSurrogate());
}

/** Writes the text; true when it ends in a line break. */
bool putText(PieceWriter &out, const QString &text)
{
    constexpr char16_t replacement = 0xFFFD;
    bool endsInBreak = false;
    const QChar *const begin = text.constBegin();
    const QChar *const end = text.constEnd();
    for (const QChar *at = begin; at != end; ++at) {
        const QChar *const special = std::find_if_not(at, end, standsForItself);
        if (special != at) {
            out.put(QStringView(at, special).toLatin1());
            endsInBreak = false;
        }
        at = special;
        if (at == end)
            break;
        const char16_t unit = at->unicode();
        if (unit == u'\r' && at + 1 != end && at[1] == u'\n')
            continue;
        const bool isBreak = unit >= u'\n' && unit <= u'\r'; // vertical tab and form feed too
        if (isBreak)
            out.put("\\par\r\n");
        else if (unit < 0x80)
            putEscaped(out, static_cast<char>(unit));
        else
            putUnicode(out, isHalfAlone(begin, at, end) ? replacement : unit);
        endsInBreak = isBreak || (unit == 0 && endsInBreak);
    }
    return endsInBreak;
}

/** Sheets of A4 with margins of 20 mm leave 482 points for a line; 93 characters take 474. */
void putHeader(PieceWriter &out, const QString &fontName)
{
    // Readers that lack the font pick one like it.
    const bool isFixedPitch = fontName.startsWith(u"Courier", Qt::CaseInsensitive);
    out.put("{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0");
    out.put(isFixedPitch ? "\\fmodern\\fprq1" : "\\fswiss\\fprq2");
    out.put("\\fcharset0 ");
    putText(out, fontName);
    out.put(";}}\r\n\\paperw11906\\paperh16838\\margl1134\\margr1134\\margt1134\\margb1134"
            "\r\n\\pard\\lang1040\\f0\\fs17 ");
}

} // namespace

bool WriteRtf(QIODevice &device, const QString &text, const QString &fontName)
{
    PieceWriter out(device);
    putHeader(out, fontName);
    // Readers take a last \par as the end of the paragraph before it, not as the start of one
    // more: an empty last line needs its own.
    if (putText(out, text))
        out.put("\\par\r\n");
    out.put("}\r\n");
    return out.finish();
}

} // namespace saldoro
