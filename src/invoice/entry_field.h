#pragma once

#include <QLineEdit>

#include <optional>

namespace saldoro {

/**
 * A line that accepts no typing or pasting beyond a number of characters; of what is pasted or
 * dropped into it, it takes as much as fits. A longer text that the program shows is shown whole,
 * in a colour and with a hint that warn of it; it can then be shortened, but not made longer.
 */
class EntryField : public QLineEdit
{
public:
    explicit EntryField(int mostCharacters, QWidget *parent = nullptr);

    /** Shows a text of any length. */
    void showText(const QString &text);

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    class Limit;

    qsizetype allowedCharacters() const;
    bool accepts(const QString &text, int cursor);
    void insertWhatFits();
    void followText(const QString &text);
    void say(const QString &hint);
    void showColor();

    int m_mostCharacters;
    qsizetype m_characters = 0;
    /** What the line would have become but for its limit, and where the cursor would have been. */
    QString m_refused;
    int m_refusedCursor = 0;
    /** The field's own hint while another one warns of a text that is too long. */
    std::optional<QString> m_hint;
};

} // namespace saldoro
