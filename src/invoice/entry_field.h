#pragma once

#include <QLineEdit>

namespace saldoro {

/**
 * A line edit for a text of one line that has a place of limited size to go to. Whoever writes into
 * it, it holds no more than so many characters and no line ends or tabs: those at the ends of what
 * is pasted or dropped go, a run of them inside becomes one blank, and of the rest it takes as much
 * as fits.
 */
class EntryField : public QLineEdit
{
public:
    /** Characters of a text that is not limited. */
    static constexpr int NoLimit = 1'000'000;

    explicit EntryField(QWidget *parent, int mostCharacters = NoLimit);

    /** Shows a text from its beginning, cleaned and cut. */
    void showText(const QString &text);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    class Limit;

    bool accepts(const QString &text, int cursor);
    void insertRefused();

    int m_mostCharacters;
    /** What the line would have become but for its limit, and where the cursor would have been. */
    QString m_refused;
    int m_refusedCursor = 0;
};

} // namespace saldoro
