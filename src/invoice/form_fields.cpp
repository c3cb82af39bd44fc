#include "invoice/form_fields.h"

#include "common/form_helpers.h"
#include "controls/date_box.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>

#include <utility>

namespace saldoro {

QLabel *LabelFor(QWidget &field, const QString &caption)
{
    auto *label = new QLabel(caption, field.parentWidget());
    label->setBuddy(&field);
    return label;
}

FormFields::FormFields(QWidget &window)
    : m_focus(window)
{
}

void FormFields::addLine(QLineEdit &line, FieldFocus::Entered entered, FieldFocus::Left left)
{
    line.installEventFilter(this);
    const auto enter = [&line, entered = std::move(entered)] {
        if (entered)
            entered();
        line.selectAll();
    };
    const auto leave = [&line, left = std::move(left)] {
        const Leaving answer = left ? left() : Leaving::Allowed;
        if (answer == Leaving::Allowed)
            line.home(false); // a long text shows its beginning
        return answer;
    };
    m_focus.watch(line, enter, leave);
}

void FormFields::addDate(DateBox &box)
{
    addLine(box, {}, [&box] { return box.settle() ? Leaving::Allowed : Leaving::Refused; });
}

void FormFields::addButton(QPushButton &button, std::function<void()> action)
{
    button.setFocusPolicy(Qt::StrongFocus);
    connect(&button, &QPushButton::clicked, this, [this, &button, action = std::move(action)] {
        if (m_focus.moveTo(button))
            action();
    });
}

bool FormFields::eventFilter(QObject *watched, QEvent *event)
{
    auto *line = qobject_cast<QLineEdit *>(watched);
    if (!line)
        return false;
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key != Qt::Key_Return && key != Qt::Key_Enter)
            return false;
        line->event(event); // by itself it does nothing visible with Enter
        event->accept();
        moveOn(*line);
        return true;
    }
    if (event->type() == QEvent::FocusIn) {
        const bool byMouse = static_cast<QFocusEvent *>(event)->reason() == Qt::MouseFocusReason;
        m_clickedInto = byMouse ? line : nullptr;
    }
    // The press has put the cursor where it fell; only now can the whole text be selected.
    if (event->type() == QEvent::MouseButtonRelease &&
        std::exchange(m_clickedInto, nullptr) == line && !line->hasSelectedText())
        line->selectAll();
    return false;
}

void FormFields::moveOn(QWidget &line)
{
    InvioTab(EnterKeyCode);
    // A key that is already waiting must reach the next field, not this one.
    QCoreApplication::sendPostedEvents(&line, QEvent::KeyPress);
}

} // namespace saldoro
