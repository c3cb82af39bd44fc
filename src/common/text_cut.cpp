#include "common/text_cut.h"

namespace saldoro {

namespace {

bool isSecondHalf(const QString &text, qsizetype unit)
{
    return unit > 0 && text[unit].isLowSurrogate() && text[unit - 1].isHighSurrogate();
}

} // namespace

qsizetype CharacterCount(const QString &text)
{
    qsizetype count = 0;
    for (qsizetype unit = 0; unit < text.size(); ++unit) {
        if (!isSecondHalf(text, unit))
            ++count;
    }
    return count;
}

QString LeftCharacters(const QString &text, qsizetype count)
{
    if (text.size() <= count)
        return text;
    qsizetype unit = 0;
    for (; unit < text.size(); ++unit) {
        if (!isSecondHalf(text, unit) && count-- == 0)
            break;
    }
    return text.left(unit);
}

QString FixedWidth(const QString &text, qsizetype width)
{
    QString cut = LeftCharacters(text, width);
    const qsizetype missing = width - CharacterCount(cut);
    return cut.append(QString(missing, u' '));
}

} // namespace saldoro
