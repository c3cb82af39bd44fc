#include "overview/rtf_writer.h"

#include "common/legacy_text.h"

#include <QByteArray>
#include <QIODevice>

#include <algorithm>
#include <string>

namespace saldoro {

namespace {

/** Characters of a text that are turned into bytes at a time, at most twelve each. */
constexpr qsizetype pieceSize = 32'000;

/** Hands bytes to the device and empties them; false when the device refuses. */
bool flush(std::string &out, QIODevice &device)
{
    // A full device takes a part of the bytes; only the next write fails and says why.
    const auto size = static_cast<qint64>(out.size());
    for (qint64 written = 0; written < size;) {
        const qint64 taken = device.write(out.data() + written, size - written);
        if (taken <= 0)
            return false;
        written += taken;
    }
    out.clear();
    return true;
}

bool standsForItself(QChar character)
{
    const char16_t unit = character.unicode();
    return unit >= u' ' && unit < 0x7f && unit != u'\\' && unit != u'{' && unit != u'}';
}

/** Vertical tab and form feed count, too. */
bool isLineBreak(QChar character)
{
    return character >= u'\n' && character <= u'\r';
}

bool isHalfAlone(QStringView text, qsizetype index)
{
    if (text[index].isHighSurrogate())
        return index + 1 == text.size() || !text[index + 1].isLowSurrogate();
    return text[index].isLowSurrogate() && (index == 0 || !text[index - 1].isHighSurrogate());
}

void appendByteEscape(std::string &out, unsigned char byte)
{
    out += "\\'" + QByteArray(1, static_cast<char>(byte)).toHex().toStdString();
}

/** Appends a character beyond ASCII, or one half of one beyond the basic plane. The number is
 *  signed and of 16 bits; the fallback is always a byte escape, since some readers drop all plain
 *  text that follows the number up to the next control word. */
void appendUnicode(std::string &out, char16_t unit)
{
    out += "\\u" + std::to_string(static_cast<qint16>(unit));
    appendByteEscape(out, CodePageByte(unit).value_or('?'));
}

/** Appends a character that does not stand for itself. */
void appendSpecial(std::string &out, QStringView text, qsizetype index)
{
    constexpr char16_t replacement = QChar::ReplacementCharacter;
    const char16_t unit = text[index].unicode();
    if (unit == u'\r' && text.sliced(index + 1).startsWith(u'\n'))
        return;
    if (isLineBreak(unit))
        out += "\\par\r\n";
    else if (unit == u'\t')
        out += "\\tab ";
    else if (unit >= 0x80)
        appendUnicode(out, isHalfAlone(text, index) ? replacement : unit);
    else if (unit >= u' ' && unit < 0x7f)
        out += {'\\', static_cast<char>(unit)};
    else if (unit != 0)
        appendByteEscape(out, static_cast<unsigned char>(unit));
}

/** Appends the characters of @p text from @p first up to @p last. */
void appendText(std::string &out, QStringView text, qsizetype first, qsizetype last)
{
    for (qsizetype index = first; index < last; ++index) {
        const QChar *const start = text.begin() + index;
        const QChar *const special = std::find_if_not(start, text.begin() + last, standsForItself);
        if (special != start)
            out += QStringView(start, special).toLatin1();
        index += special - start;
        if (index < last)
            appendSpecial(out, text, index);
    }
}

/** Sheets of A4 with margins of 20 mm leave 482 points for a line; 93 characters take 474. */
std::string header(const QString &fontName)
{
    // Readers that lack the font pick one like it.
    const bool isFixedPitch = fontName.startsWith(u"Courier", Qt::CaseInsensitive);
    std::string out = "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0";
    out += isFixedPitch ? "\\fmodern\\fprq1" : "\\fswiss\\fprq2";
    out += "\\fcharset0 ";
    appendText(out, fontName, 0, fontName.size());
    return out + ";}}\r\n\\paperw11906\\paperh16838\\margl1134\\margr1134\\margt1134\\margb1134"
                 "\r\n\\pard\\lang1040\\f0\\fs17 ";
}

bool endsInLineBreak(const QString &text)
{
    const auto last = std::find_if(text.rbegin(), text.rend(), [](QChar c) { return c != u'\0'; });
    return last != text.rend() && isLineBreak(*last);
}

} // namespace

bool WriteRtf(QIODevice &device, const QString &text, const QString &fontName)
{
    std::string out = header(fontName);
    for (qsizetype at = 0; at < text.size(); at += pieceSize) {
        appendText(out, text, at, std::min(at + pieceSize, text.size()));
        if (!flush(out, device))
            return false;
    }
    // Readers take a last \par as the end of the paragraph before it, not as the start of one
    // more: an empty last line needs its own.
    if (endsInLineBreak(text))
        out += "\\par\r\n";
    out += "}\r\n";
    return flush(out, device);
}

} // namespace saldoro
