#pragma once

#include <QLineEdit>

namespace saldoro {

/**
 * A line edit for a text of one line that has a place of limited size to go to. Whoever writes into
 * it, it holds no more than so many characters and no line ends or tabs: those at the ends of what
 * is pasted or dropped go, a run of them inside becomes one blank, and of the rest it takes as much
 * as fits. A text that is dragged here and changed so stays where it came from, too.
 */
class EntryField : public QLineEdit
{
    Q_OBJECT

public:
    /** Characters of a text that is not limited. */
    static constexpr int NoLimit = 1'000'000;

    explicit EntryField(QWidget *parent, int mostCharacters = NoLimit);

    /** Shows a text from its beginning, cleaned and cut. */
    void showText(const QString &text);

    /** Whether what came last did not fit, and nothing has been taken away since. */
    bool isCut() const { return m_isCut; }

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    class Limit;

    bool accepts(const QString &text, int cursor);
    void insertRefused();

    int m_mostCharacters;
    /** What the line would have become but for its limit, and where the cursor would have been. */
    QString m_refused;
    int m_refusedCursor = 0;
    bool m_isCut = false;
};

} // namespace saldoro
