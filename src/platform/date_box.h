#pragma once

#include <QLineEdit>

namespace saldoro {

/**
 * A box for a day with the mask "__/__/____". Typed digits fill the places one after the other;
 * "/" after a single digit pads it (1/2/03 becomes 01/02/03), Backspace and Canc empty places,
 * pasting a date fills them all. text() is what is seen, places still empty reading "_".
 *
 * A text set by the program is shown as it is, even when it is no date; the first typed character
 * then starts from the empty mask.
 */
class DateBox : public QLineEdit
{
    Q_OBJECT

public:
    explicit DateBox(QWidget *parent = nullptr);

    /** Shows @p text as it is; the empty text shows the empty mask. */
    void setDateText(const QString &text);

    /** True when the box reads "__/__/____". */
    bool isBlank() const;

    /** What the user has written so far: the text up to, not including, the first "_". */
    QString writtenPart() const;

protected:
    void keyPressEvent(QKeyEvent *event) override;
};

} // namespace saldoro
