#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>

class QLabel;
class QLineEdit;
class QPushButton;

namespace saldoro {

/** The key code of Enter, as handed to InvioTab. */
inline constexpr int EnterKeyCode = 13;

/** Makes Enter move on like Tab: posts a Tab to the widget that has the focus, which comes after
 *  the key press being handled, and returns 0. Any other code comes back as it is. */
int InvioTab(int keyCode);

/** A label beside @p field, whose mnemonic leads to it. */
QLabel *LabelFor(QWidget &field, const QString &caption);

/**
 * How the controls of an invoice form behave, whatever they hold: Enter moves on as Tab does, the
 * whole text is selected on entry, a date box is not left with an impossible date, and a button
 * works only once the field that had the focus is settled. A line into which a screen reader writes
 * gets the focus, unless such a date keeps it.
 *
 * A control counts as left only when another one of the window gets the focus: message boxes, menus
 * and other windows set off no recalculation. Handlers run after the focus has moved. A handler may
 * move the focus itself; the control that the user was heading for is then not entered.
 */
class FieldNavigation : public QObject
{
public:
    using Handler = std::function<void()>;

    /** Follows the focus in @p window, which must outlive this object. */
    explicit FieldNavigation(QWidget &window);

    /** Sets what entering and leaving a control bring about; either may be empty. */
    void watch(QWidget &control, Handler entered, Handler left);

    /** A line of text, also one for a date. */
    void addLine(QLineEdit &line, Handler entered = {}, Handler left = {});
    /** The same with a name, and the label that is returned; @p caption has its mnemonic. */
    QLabel *addLine(QLineEdit &line, const QString &objectName, const QString &caption,
                    const QString &hint);

    /** Makes a button, @p caption having its mnemonic. By mouse, key or mnemonic it takes the focus
     *  first; @p action does not run when the control that has the focus refuses to be left. */
    QPushButton *addButton(const QString &objectName, const QString &caption, const QString &hint,
                           QWidget *parent, Handler action);

    /** Moves the focus as a click on @p control would. False when the control that has it refuses
     *  to be left; whatever the caller meant to do must then not be done. */
    bool moveTo(QWidget &control);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Handlers
    {
        Handler entered;
        Handler left;
    };

    void takeFocus(QWidget &control);
    void follow(QWidget *now);
    bool leaveCurrent();
    /** A drop, a menu and a press of the middle button may write into a line without the focus.
     *  Moves the focus there first; false when that is refused. */
    bool mayBeChanged(QLineEdit &line, QEvent &event);
    void moveOn(QLineEdit &line, QEvent &enter);

    QWidget &m_window;
    QHash<const QWidget *, Handlers> m_handlers;
    QPointer<QWidget> m_current;
    /** The line that a mouse press just gave the focus to. */
    QPointer<QLineEdit> m_clickedInto;
};

} // namespace saldoro
