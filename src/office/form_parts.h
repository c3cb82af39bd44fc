#pragma once

#include <QComboBox>
#include <QKeyEvent>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QWheelEvent>

#include <functional>

class QLayout;
class QListWidget;
class QPushButton;
class QWidget;

namespace saldoro {

/** A box to choose from. The wheel, turned to scroll something else, does not change it, nor does a
 *  letter with Alt, meant for a button that is disabled. */
class ChoiceBox : public QComboBox
{
protected:
    void wheelEvent(QWheelEvent *event) override { event->ignore(); }
    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->modifiers().testFlag(Qt::AltModifier) && !event->text().isEmpty())
            event->ignore();
        else
            QComboBox::keyPressEvent(event);
    }
};

/**
 * Puts a caption before or above a field and returns the widget that holds both. Describes the
 * field, too.
 *
 * @param caption with the mnemonic that leads to the field, and without ":"; the accessible name.
 */
QWidget *MakeField(const QString &caption, Qt::Orientation direction, QWidget *field,
                   const QString &name, const QString &hint);

/** A button that attempts @p action, see Attempt(). It first takes over a cell that is being
 *  edited; if the button is disabled or hidden after that, it does nothing more. */
QPushButton *MakeButton(const QString &name, const QString &caption, const QString &hint,
                        const std::function<void()> &action);

/** The last row of a form that writes: @p write, and a button that only closes the form. */
QLayout *MakeLastRow(QPushButton *write, QWidget &form);

/** Fills a list with lines, of which it shows a thousand and says how many more there are: to lay
 *  out many more takes seconds in which nothing moves. The first becomes current. */
void ShowLines(QListWidget &list, const QStringList &lines);

/** Paths as the system writes them, a line each. */
QString NativePaths(const QStringList &paths);

/** Makes a form modal to its parent. Esc closes it, and closing deletes it. To be called when the
 *  form has all its fields, before it is shown. @p size in twips. */
void SetUpModal(QWidget &form, const QString &name, const QString &title, QSize size);

} // namespace saldoro
