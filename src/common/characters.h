#pragma once

#include <QString>

namespace saldoro {

/** Number of characters (code points) of a text; a character beyond the basic plane is one. */
qsizetype CharacterCount(const QString &text);

/** The first @p count characters, the whole text when it has fewer. Never splits a character. */
QString LeftCharacters(const QString &text, qsizetype count);

/** The text cut or padded on the right with blanks to exactly @p width characters. */
QString FixedWidth(const QString &text, qsizetype width);

/** Whether a character is one that no screen shows: a control character, what ends a line or
 *  paragraph, or a mark such as the blank without width. Half of a character beyond the basic plane
 *  is none. */
bool IsUnseen(QChar character);

/** The text with a mark in place of each such character: a line that stays one, whatever a value in
 *  it holds. */
QString WithUnseenMarked(QString text);

} // namespace saldoro
