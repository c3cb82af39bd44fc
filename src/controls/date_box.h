#pragma once

#include <QLineEdit>
#include <QValidator>

namespace saldoro {

/**
 * A box for a day with the mask "__/__/____". Typed digits fill the places one after the other and
 * replace what stands there; "/" after a single digit pads it (typed 1/2/03 shows 01/02/03__),
 * Backspace and Canc empty the nearest filled place. A date may be pasted as 1/2/2003, 01022003
 * or 1/2/03; the last form leaves two places empty. text() is what is shown, with "_" for
 * places still empty. The parent gets every other character. In all else the box is a line edit.
 * The toolkit's own input mask can't show a text that is no date, leaves gaps where one clicks into
 * the middle, has no padding by "/", and takes a pasted 1/2/2003 apart.
 *
 * A text set by the program is shown as it is, even when it is no date; the first change by the
 * user then starts from the empty mask.
 */
class DateBox : public QLineEdit
{
    Q_OBJECT

public:
    explicit DateBox(QWidget *parent = nullptr);

    /** Shows @p text as it is; the empty text shows the empty mask. */
    void setDateText(const QString &text);

    /** To be called when the box is left. A date, up to the first "_", is then shown as dd/MM/yyyy.
     *  False when there is neither a date nor the empty mask: then FieldNavigation stays here. */
    bool settle();

    /** The text that the last settle() found; empty once the text has changed since. */
    QString leftWith() const { return m_leftWith; }

    /** Wide enough for a whole date and for the text shown. */
    QSize sizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;

private:
    QValidator::State mask(QString &text, int &cursor) const;

    QString m_before; ///< the text before the user's next change
    int m_start = 0;  ///< where that change will begin
    QString m_leftWith;
};

} // namespace saldoro
