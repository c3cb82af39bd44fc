#include "common/characters.h"

namespace saldoro {

namespace {

/** How many code units the character at @p unit takes. */
int unitsAt(const QString &text, qsizetype unit)
{
    const bool isPair =
        text[unit].isHighSurrogate() && unit + 1 < text.size() && text[unit + 1].isLowSurrogate();
    return isPair ? 2 : 1;
}

} // namespace

qsizetype CharacterCount(const QString &text)
{
    qsizetype count = 0;
    for (qsizetype unit = 0; unit < text.size(); unit += unitsAt(text, unit))
        ++count;
    return count;
}

QString LeftCharacters(const QString &text, qsizetype count)
{
    qsizetype end = 0;
    for (; end < text.size() && count > 0; --count)
        end += unitsAt(text, end);
    return text.left(end);
}

QString FixedWidth(const QString &text, qsizetype width)
{
    const QString cut = LeftCharacters(text, width);
    return cut + QString(width - CharacterCount(cut), u' ');
}

bool IsUnseen(QChar character)
{
    switch (character.category()) {
    case QChar::Other_Format:
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

QString WithUnseenMarked(QString text)
{
    for (QChar &character : text) {
        if (IsUnseen(character))
            character = QChar::ReplacementCharacter;
    }
    return text;
}

} // namespace saldoro
