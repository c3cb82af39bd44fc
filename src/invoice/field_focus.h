#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>

#include <functional>

class QWidget;

namespace saldoro {

/** What a control answers when it is about to be left. */
enum class Leaving
{
    Allowed,
    Refused ///< the focus goes back to the control
};

/**
 * Knows which control of a window has the focus in the sense of a form, and tells controls when
 * they are entered and left. A control keeps the focus while its window is not the active one:
 * message boxes, menus and other windows take it from nobody, so they set off no recalculation.
 *
 * Handlers run after the focus has really moved. A handler may move the focus itself; the control
 * that the user was heading for is then not entered.
 */
class FieldFocus : public QObject
{
public:
    using Entered = std::function<void()>;
    using Left = std::function<Leaving()>;

    /** Follows the focus in @p window, which must outlive this object. */
    explicit FieldFocus(QWidget &window);

    /** Sets the handlers of a control; either may be empty. */
    void watch(QWidget &control, Entered entered, Left left);

    /** Moves the focus as a click on @p control would. False when the control that has it refuses
     *  to be left; whatever the caller meant to do must then not be done. */
    bool moveTo(QWidget &control);

    /** From now on no control is taken to have the focus: none is left when another is entered.
     *  For a form that shows new content. */
    void forget() { m_current = nullptr; }

private:
    struct Handlers
    {
        Entered entered;
        Left left;
    };

    void takeFocus(QWidget &control);
    void follow(QWidget *now);
    bool leaveCurrent();

    QWidget &m_window;
    QHash<const QWidget *, Handlers> m_handlers;
    QPointer<QWidget> m_current;
};

} // namespace saldoro
