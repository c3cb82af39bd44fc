#include "controls/rtf_writer.h"

#include "platform/legacy_text.h"

#include <QByteArray>
#include <QIODevice>

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>

namespace saldoro {

namespace {

constexpr char16_t ReplacementCharacter = 0xFFFD;

bool standsForItself(QChar character)
{
    const char16_t unit = character.unicode();
    return unit >= u' ' && unit < 0x7f && unit != u'\\' && unit != u'{' && unit != u'}';
}

/** Collects bytes and hands them to the device in large pieces. */
class PieceWriter
{
public:
    explicit PieceWriter(QIODevice &device)
        : m_device(device)
    {
    }

    void put(char byte)
    {
        if (m_used == m_piece.size())
            flush();
        m_piece[m_used++] = byte;
    }
    void put(QByteArrayView bytes)
    {
        for (const char byte : bytes)
            put(byte);
    }
    /** Writes characters up to the first that does not stand for itself; returns where that is. */
    const QChar *putPlain(const QChar *from, const QChar *end)
    {
        while (from != end && standsForItself(*from)) {
            if (m_used == m_piece.size())
                flush();
            const QChar *const full =
                from + std::min(end - from, static_cast<std::ptrdiff_t>(m_piece.size() - m_used));
            for (; from != full && standsForItself(*from); ++from)
                m_piece[m_used++] = static_cast<char>(from->unicode());
        }
        return from;
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
        const auto size = static_cast<qint64>(m_used);
        for (qint64 written = 0; m_good && written < size;) {
            const qint64 taken = m_device.write(m_piece.data() + written, size - written);
            m_good = taken > 0;
            written += taken;
        }
        m_used = 0;
    }

    QIODevice &m_device;
    std::array<char, 65536> m_piece;
    std::size_t m_used = 0;
    bool m_good = true;
};

void putByteEscape(PieceWriter &out, unsigned char byte)
{
    constexpr QByteArrayView digits = "0123456789abcdef";
    out.put("\\'");
    out.put(digits[byte >> 4U]);
    out.put(digits[byte & 15U]);
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

void putAscii(PieceWriter &out, char character)
{
    if (character == '\\' || character == '{' || character == '}') {
        out.put('\\');
        out.put(character);
    } else if (character == '\t') {
        out.put("\\tab ");
    } else if (character != '\0') {
        putByteEscape(out, static_cast<unsigned char>(character));
    }
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
    bool endsInBreak = false;
    const QChar *const begin = text.constBegin();
    const QChar *const end = text.constEnd();
    for (const QChar *at = begin; at != end;) {
        const QChar *const special = out.putPlain(at, end);
        endsInBreak = endsInBreak && special == at;
        at = special;
        if (at == end)
            break;
        const char16_t unit = at->unicode();
        endsInBreak = unit == u'\n' || unit == u'\r' || (unit == 0 && endsInBreak);
        if (unit == u'\n' || unit == u'\r') {
            if (unit == u'\r' && at + 1 != end && at[1] == u'\n')
                ++at;
            out.put("\\par\r\n");
        } else if (unit < 0x80) {
            putAscii(out, static_cast<char>(unit));
        } else {
            putUnicode(out, isHalfAlone(begin, at, end) ? ReplacementCharacter : unit);
        }
        ++at;
    }
    return endsInBreak;
}

void putHeader(PieceWriter &out, const RtfFont &font)
{
    out.put("{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0");
    out.put(font.fixedPitch ? "\\fmodern\\fprq1" : "\\fswiss\\fprq2");
    out.put("\\fcharset0 ");
    putText(out, font.name);
    out.put(";}}\r\n\\pard\\lang1040\\f0\\fs");
    out.put(QByteArray::number(font.halfPoints));
    // The blank belongs to the control word, so that one at the start of the text is kept.
    out.put(' ');
}

} // namespace

bool WriteRtf(QIODevice &device, const QString &text, const RtfFont &font)
{
    PieceWriter out(device);
    putHeader(out, font);
    // Readers take a last \par as the end of the paragraph before it, not as the start of one
    // more: an empty last line needs its own.
    if (putText(out, text))
        out.put("\\par\r\n");
    out.put("}\r\n");
    return out.finish();
}

} // namespace saldoro
