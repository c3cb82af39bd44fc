#include "invoice/field_focus.h"

#include <QApplication>
#include <QWidget>

#include <utility>

namespace saldoro {

FieldFocus::FieldFocus(QWidget &window)
    : m_window(window)
{
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget *, QWidget *now) { follow(now); });
}

void FieldFocus::watch(QWidget &control, Entered entered, Left left)
{
    m_handlers.insert(&control, {std::move(entered), std::move(left)});
}

bool FieldFocus::moveTo(QWidget &control)
{
    const QPointer<QWidget> start = m_current;
    takeFocus(control);
    // What was left may have sent the focus elsewhere; that is no refusal.
    if (m_current != &control && m_current != start)
        takeFocus(control);
    return m_current == &control;
}

void FieldFocus::takeFocus(QWidget &control)
{
    control.setFocus(Qt::OtherFocusReason);
    // A window that is not active moves its focus without a word.
    if (m_window.focusWidget() == &control)
        follow(&control);
}

void FieldFocus::follow(QWidget *now)
{
    if (!now || now->window() != &m_window || now == m_current)
        return;
    if (!leaveCurrent() || m_window.focusWidget() != now)
        return;
    m_current = now;
    if (const Entered entered = m_handlers.value(now).entered)
        entered();
}

bool FieldFocus::leaveCurrent()
{
    const QPointer<QWidget> previous = std::exchange(m_current, nullptr);
    if (!previous)
        return true;
    const Left left = m_handlers.value(previous).left;
    if (!left || left() == Leaving::Allowed)
        return true;
    m_current = previous;
    previous->setFocus(Qt::OtherFocusReason);
    return false;
}

} // namespace saldoro
