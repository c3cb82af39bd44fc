#include "common/characters.h"

#include <QList>

namespace saldoro {

qsizetype CharacterCount(const QString &text)
{
    return text.toUcs4().size();
}

QString LeftCharacters(const QString &text, qsizetype count)
{
    qsizetype end = 0;
    for (; end < text.size() && count > 0; --count) {
        const bool isPair =
            text[end].isHighSurrogate() && end + 1 < text.size() && text[end + 1].isLowSurrogate();
        end += isPair ? 2 : 1;
    }
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
