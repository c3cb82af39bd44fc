#pragma once

#include <QString>

namespace saldoro {

/**
 * The text of a date box while it is being typed: two digits, "/", two digits, "/", four digits,
 * "_" standing for a digit still missing. Always overtypes; the cursor stands before one of the
 * ten characters or after the last, and passes over the slashes.
 */
class DateMask
{
public:
    /** Goes on from what a box shows; from the empty mask when that is not such a text. */
    DateMask(const QString &text, int cursor);

    const QString &text() const { return m_text; }
    int cursor() const { return m_cursor; }

    /** A digit fills the place at the cursor. "/" after a single digit of a day or month makes that
     *  digit the whole number and goes on behind the slash. Other characters change nothing. */
    void type(QChar character);

    /** Empties the place before the cursor and goes there. */
    void eraseBefore();
    /** Empties the first filled place from the cursor on; the cursor stays. */
    void eraseAfter();
    /** Empties the places in [first, last) and goes to the first of them. */
    void erase(int first, int last);

    /** A pasted date (1/2/2003, 01/02/2003, 1/2/03 or 01022003) fills all places. Other texts of
     *  digits and slashes are typed at the cursor; anything else changes nothing. Blanks around
     *  the text do not count. */
    void paste(const QString &text);
    static bool canPaste(const QString &text);

    /** The place after, or before, the one at @p cursor; the slashes are no places. */
    static int nextPlace(int cursor);
    static int previousPlace(int cursor);
    /** Where the next digit is missing; the end when none is. */
    static int firstEmptyPlace(const QString &text);

private:
    void typeDigit(QChar digit);
    void typeSlash();

    QString m_text;
    int m_cursor = 0;
};

} // namespace saldoro
