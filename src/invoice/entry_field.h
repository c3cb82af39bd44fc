#pragma once

#include <QLineEdit>

namespace saldoro {

/**
 * A line that accepts no typing or pasting beyond a number of characters. A longer text that the
 * program shows is shown whole; it can then be shortened, but not made longer.
 */
class EntryField : public QLineEdit
{
public:
    explicit EntryField(int mostCharacters, QWidget *parent = nullptr);

    /** Shows a text of any length. */
    void showText(const QString &text);

private:
    void adaptLimit(const QString &text);

    int m_mostCharacters;
};

} // namespace saldoro
