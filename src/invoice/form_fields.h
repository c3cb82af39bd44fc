#pragma once

#include "controls/buttons.h"
#include "invoice/field_focus.h"

class QEvent;
class QKeyEvent;
class QLabel;
class QLineEdit;

namespace saldoro {

class DateBox;

/** A label beside @p field, whose mnemonic leads to it. */
QLabel *LabelFor(QWidget &field, const QString &caption);

/**
 * How the controls of an invoice form behave, whatever they hold: Enter moves on as Tab does, the
 * whole text is selected on entry, a date box is not left with an impossible date, and a button
 * works only once the field that had the focus is settled.
 */
class FormFields : public QObject
{
public:
    /** @p window must outlive this object. */
    explicit FormFields(QWidget &window);

    FieldFocus &focus() { return m_focus; }

    /** A line of text; the handlers, which may be empty, run on entry and on leaving. */
    void addLine(QLineEdit &line, FieldFocus::Entered entered = {}, FieldFocus::Left left = {});

    /** A date box: left with a date it shows it in full, with an impossible one it is not left. */
    void addDate(DateBox &box);

    /** A button. By mouse, key or mnemonic it takes the focus first; @p action does not run when
     *  the control that has the focus refuses to be left. */
    void addButton(QPushButton &button, std::function<void()> action);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void moveOn(QWidget &line);

    FieldFocus m_focus;
    /** The line that a mouse press just gave the focus to. */
    QPointer<QLineEdit> m_clickedInto;
};

} // namespace saldoro
