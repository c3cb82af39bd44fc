#pragma once

#include <QLineEdit>

#include <functional>

namespace saldoro {

class DateMask;

/**
 * A box for a day with the mask "__/__/____". Typed digits fill the places one after the other;
 * "/" after a single digit pads it (1/2/03 becomes 01/02/03), Backspace and Canc empty places,
 * pasting a date fills them all. text() is what is seen, places still empty reading "_". Keys that
 * mean nothing here (Tab, Enter, Esc...) go on to the parent.
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

    /** To be called when the box is left. When what is written, up to the first "_", is a date, it
     *  is shown as dd/MM/yyyy. False when it is none: such a box must not be left, unless blank. */
    bool settle();

    /** Wide enough for a whole date and for the text shown. */
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    /** Whether a key was one of the box's own. */
    bool handleClipboardKey(const QKeyEvent &event);
    bool handleMovement(const QKeyEvent &event);
    bool handleErasing(const QKeyEvent &event);
    bool handleTyping(const QString &typed);

    enum class Selected
    {
        Erase, ///< what is selected is emptied first
        Keep
    };
    void edit(Selected selected, const std::function<void(DateMask &)> &change);
    void eraseSelection();
    void cutSelection();
    void pasteText(const QString &text);
};

} // namespace saldoro
