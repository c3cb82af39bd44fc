#include "invoice/field_navigation.h"

#include "controls/date_box.h"
#include "controls/enter_and_held_keys.h"
#include "controls/prompt_button.h"
#include "controls/screen_reader.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>

#include <utility>

namespace saldoro {

int InvioTab(int keyCode)
{
    if (keyCode != EnterKeyCode)
        return keyCode;
    // Posted, not sent: the focus may change only after the handler of the Enter key is done.
    if (QWidget *target = QApplication::focusWidget()) {
        QCoreApplication::postEvent(target,
                                    new QKeyEvent(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier));
        QCoreApplication::postEvent(target,
                                    new QKeyEvent(QEvent::KeyRelease, Qt::Key_Tab, Qt::NoModifier));
    }
    return 0;
}

QLabel *LabelFor(QWidget &field, const QString &caption)
{
    auto *label = new QLabel(caption, field.parentWidget());
    label->setBuddy(&field);
    return label;
}

FieldNavigation::FieldNavigation(QWidget &window)
    : m_window(window)
{
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget *, QWidget *now) { follow(now); });
}

void FieldNavigation::watch(QWidget &control, Handler entered, Handler left)
{
    m_handlers.insert(&control, {std::move(entered), std::move(left)});
}

void FieldNavigation::addLine(QLineEdit &line, Handler entered, Handler left)
{
    line.installEventFilter(this);
    watch(line, std::move(entered), std::move(left));
    // While a control has the focus, only screen readers write into another one.
    // Entering that one may rewrite the text, so it is put in again, as if it were pasted.
    connect(&line, &QLineEdit::textChanged, this, [this, &line] {
        const QString written = line.text();
        if (m_current && m_current != &line && moveTo(line))
            line.insert(written);
    });
}

QLabel *FieldNavigation::addLine(QLineEdit &line, const QString &objectName, const QString &caption,
                                 const QString &hint)
{
    Describe(line, objectName, caption, hint);
    addLine(line);
    return LabelFor(line, caption);
}

QPushButton *FieldNavigation::addButton(const QString &objectName, const QString &caption,
                                        const QString &hint, QWidget *parent, Handler action)
{
    auto *button = new PromptButton(objectName, caption, hint, parent);
    button->setFocusPolicy(Qt::StrongFocus);
    connect(button, &QPushButton::clicked, this, [this, button, action = std::move(action)] {
        if (moveTo(*button))
            action();
    });
    return button;
}

bool FieldNavigation::moveTo(QWidget &control)
{
    const QPointer<QWidget> start = m_current;
    takeFocus(control);
    // The handler of what was left may have sent the focus elsewhere; that is no refusal.
    if (m_current != &control && m_current != start)
        takeFocus(control);
    return m_current == &control;
}

void FieldNavigation::takeFocus(QWidget &control)
{
    control.setFocus(Qt::OtherFocusReason);
    // In a window that is not active the focus moves without a signal.
    if (m_window.focusWidget() == &control)
        follow(&control);
}

void FieldNavigation::follow(QWidget *now)
{
    if (!now || now->window() != &m_window || now == m_current)
        return;
    if (!leaveCurrent() || m_window.focusWidget() != now)
        return;
    m_current = now;
    const auto watched = m_handlers.constFind(now);
    if (watched == m_handlers.cend())
        return;
    if (watched->entered)
        watched->entered();
    if (auto *line = qobject_cast<QLineEdit *>(now))
        line->selectAll();
}

bool FieldNavigation::leaveCurrent()
{
    const QPointer<QWidget> previous = std::exchange(m_current, nullptr);
    const auto watched = m_handlers.constFind(previous.data());
    if (watched == m_handlers.cend())
        return true;
    if (auto *date = qobject_cast<DateBox *>(previous.data()); date && !date->settle()) {
        m_current = previous;
        previous->setFocus(Qt::OtherFocusReason);
        TellFocus(*previous);
        return false;
    }
    if (watched->left)
        watched->left();
    if (auto *line = qobject_cast<QLineEdit *>(previous.data()))
        line->home(false); // a long text shows its beginning
    return true;
}

bool FieldNavigation::eventFilter(QObject *watched, QEvent *event)
{
    auto &line = *static_cast<QLineEdit *>(watched);
    switch (event->type()) {
    case QEvent::KeyPress:
        if (!IsEnter(*event))
            return false;
        moveOn(line, *event);
        return true;
    case QEvent::FocusIn: {
        const bool byMouse = static_cast<QFocusEvent *>(event)->reason() == Qt::MouseFocusReason;
        m_clickedInto = byMouse ? &line : nullptr;
        return false;
    }
    case QEvent::MouseButtonPress:
        return !mayBeChanged(line, *event);
    case QEvent::MouseButtonRelease:
        if (!mayBeChanged(line, *event))
            return true;
        if (std::exchange(m_clickedInto, nullptr) != &line || !line.hasFocus())
            return false;
        // The press moves the cursor, and at the release the line copies what is selected to the
        // X11 selection. Only after both can the whole text be selected without being copied.
        line.event(event);
        if (!line.hasSelectedText())
            line.selectAll();
        return true;
    case QEvent::ContextMenu:
    case QEvent::Drop:
        return !mayBeChanged(line, *event);
    default:
        return false;
    }
}

bool FieldNavigation::mayBeChanged(QLineEdit &line, QEvent &event)
{
    const bool isPress = event.isPointerEvent();
    if ((isPress && static_cast<QMouseEvent &>(event).button() != Qt::MiddleButton) || moveTo(line))
        return true;
    event.ignore();
    return false;
}

void FieldNavigation::moveOn(QLineEdit &line, QEvent &enter)
{
    line.event(&enter); // nothing visible comes of it
    enter.accept();
    InvioTab(EnterKeyCode);
    // A key that is already waiting must reach the next field, not this one.
    QCoreApplication::sendPostedEvents(&line, QEvent::KeyPress);
}

} // namespace saldoro
