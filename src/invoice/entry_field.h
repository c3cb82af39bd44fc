#pragma once

#include <QLineEdit>

namespace saldoro {

/** Widest amount that is expected in a box. */
inline constexpr QStringView WidestAmount = u"999.999.999,99";

/** Least width in pixels of a box that shows @p widest. */
int BoxWidth(const QWidget &box, QStringView widest);

/**
 * A line edit for one line of text with a bounded number of characters, without line ends and tabs.
 * Of what is pasted, dropped or written by a screen reader, line ends and tabs at the ends go, a
 * run of them inside becomes one blank, and as much is taken as fits. A text that was dragged here
 * and changed in this way also stays where it came from.
 */
class EntryField : public QLineEdit
{
    Q_OBJECT

public:
    /** More characters than anyone writes, for a column without a limit. */
    static constexpr int NoLimit = 1'000'000;

    explicit EntryField(QWidget *parent, int mostCharacters = NoLimit);

    /** Shows a text from its beginning, cleaned and cut. */
    void showText(const QString &text);

    /** Whether the end of a text is missing here because it did not fit. */
    bool isCut() const { return m_isCut; }

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    bool accepts(const QString &text, int cursor);
    void insertRefused();

    int m_mostCharacters;
    /** What the line would have become but for its limit, and where the cursor would have been. */
    QString m_refused;
    int m_refusedCursor = 0;
    bool m_isCut = false;
};

} // namespace saldoro
