#include "controls/date_box.h"

#include "common/date_text.h"
#include "controls/date_mask.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>

#include <algorithm>

namespace saldoro {

using namespace Qt::StringLiterals;

DateBox::DateBox(QWidget *parent)
    : QLineEdit(parent)
{
    setDateText({});
    setInputMethodHints(Qt::ImhDate | Qt::ImhPreferNumbers | Qt::ImhNoPredictiveText);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAcceptDrops(false);
    connect(this, &QLineEdit::textChanged, this, &QWidget::updateGeometry);
}

void DateBox::setDateText(const QString &text)
{
    setText(text.isEmpty() ? EmptyDateText.toString() : text);
    setCursorPosition(0);
}

bool DateBox::settle()
{
    const QDate day = DataDaTesto(text().section(u'_', 0, 0));
    if (day.isValid() && text() != FormatData(day))
        setDateText(FormatData(day));
    return day.isValid() || text() == EmptyDateText;
}

QSize DateBox::sizeHint() const
{
    const QFontMetrics metrics = fontMetrics();
    const int textWidth =
        std::max(metrics.horizontalAdvance(u"00/00/0000"_s), metrics.horizontalAdvance(text()));
    QSize size = QLineEdit::sizeHint();
    // The toolkit's own hint leaves room for 17 letters x; what goes beyond them is frame.
    const int frame = size.width() - 17 * metrics.horizontalAdvance(u'x');
    size.setWidth(std::max(frame, 0) + textWidth + metrics.averageCharWidth());
    return size;
}

QSize DateBox::minimumSizeHint() const
{
    return sizeHint();
}

void DateBox::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReadOnly() || isEnter) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    const bool isCommand = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    const bool isOwn = handleClipboardKey(*event) || handleMovement(*event) ||
                       handleErasing(*event) || (!isCommand && handleTyping(event->text()));
    event->setAccepted(isOwn);
}

bool DateBox::handleClipboardKey(const QKeyEvent &event)
{
    if (event.matches(QKeySequence::SelectAll))
        selectAll();
    else if (event.matches(QKeySequence::Copy))
        copy();
    else if (event.matches(QKeySequence::Cut))
        cutSelection();
    else if (event.matches(QKeySequence::Paste))
        pasteText(QGuiApplication::clipboard()->text());
    else
        return false;
    return true;
}

bool DateBox::handleMovement(const QKeyEvent &event)
{
    const bool isSelecting = event.modifiers() & Qt::ShiftModifier;
    const bool isLeavingSelection = hasSelectedText() && !isSelecting;
    int target = 0;
    switch (event.key()) {
    case Qt::Key_Home:
        break;
    case Qt::Key_End:
        target = DateMask::firstEmptyPlace(text());
        break;
    case Qt::Key_Left:
        target = isLeavingSelection ? selectionStart() : DateMask::previousPlace(cursorPosition());
        break;
    case Qt::Key_Right:
        target = isLeavingSelection ? selectionEnd() : DateMask::nextPlace(cursorPosition());
        break;
    default:
        return false;
    }
    if (!isSelecting)
        deselect();
    cursorForward(isSelecting, target - cursorPosition());
    return true;
}

bool DateBox::handleErasing(const QKeyEvent &event)
{
    if (event.key() != Qt::Key_Backspace && event.key() != Qt::Key_Delete)
        return false;
    if (hasSelectedText())
        eraseSelection();
    else if (event.key() == Qt::Key_Backspace)
        edit(Selected::Keep, [](DateMask &mask) { mask.eraseBefore(); });
    else
        edit(Selected::Keep, [](DateMask &mask) { mask.eraseAfter(); });
    return true;
}

bool DateBox::handleTyping(const QString &typed)
{
    const bool isDigit = typed.size() == 1 && typed[0] >= u'0' && typed[0] <= u'9';
    if (isDigit)
        edit(Selected::Erase, [typed](DateMask &mask) { mask.type(typed[0]); });
    else if (typed == u"/")
        edit(Selected::Keep, [](DateMask &mask) { mask.type(u'/'); });
    else
        return false;
    return true;
}

void DateBox::edit(Selected selected, const std::function<void(DateMask &)> &change)
{
    const QString before = text();
    DateMask mask(before, cursorPosition());
    if (selected == Selected::Erase && hasSelectedText())
        mask.erase(selectionStart(), selectionEnd());
    change(mask);
    if (mask.text() != before) {
        setText(mask.text());
        emit textEdited(mask.text());
    }
    setCursorPosition(mask.cursor());
}

void DateBox::eraseSelection()
{
    if (hasSelectedText())
        edit(Selected::Erase, [](DateMask &) {});
}

void DateBox::cutSelection()
{
    copy();
    eraseSelection();
}

void DateBox::pasteText(const QString &text)
{
    if (DateMask::canPaste(text))
        edit(Selected::Erase, [&text](DateMask &mask) { mask.paste(text); });
}

// Some keyboards deliver even digits as composed text.
void DateBox::inputMethodEvent(QInputMethodEvent *event)
{
    if (isReadOnly()) {
        QLineEdit::inputMethodEvent(event);
        return;
    }
    for (const QChar character : event->commitString())
        handleTyping(character);
    event->accept();
}

void DateBox::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::MiddleButton) {
        if (!isReadOnly() && QGuiApplication::clipboard()->supportsSelection())
            pasteText(QGuiApplication::clipboard()->text(QClipboard::Selection));
        event->accept();
        return;
    }
    QLineEdit::mouseReleaseEvent(event);
    // A date is written from the left: a click behind its end goes on where the next digit is due.
    if (!hasSelectedText())
        setCursorPosition(std::min(cursorPosition(), DateMask::firstEmptyPlace(text())));
}

void DateBox::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu menu(this);
    const bool canChange = hasSelectedText() && !isReadOnly();
    menu.addAction(u"Ta&glia"_s, this, &DateBox::cutSelection)->setEnabled(canChange);
    menu.addAction(u"&Copia"_s, this, &QLineEdit::copy)->setEnabled(hasSelectedText());
    const QString clipboard = QGuiApplication::clipboard()->text();
    menu.addAction(u"&Incolla"_s, this, [this, clipboard] { pasteText(clipboard); })
        ->setEnabled(!isReadOnly() && !clipboard.isEmpty());
    menu.addAction(u"&Elimina"_s, this, &DateBox::eraseSelection)->setEnabled(canChange);
    menu.addSeparator();
    menu.addAction(u"&Seleziona tutto"_s, this, &QLineEdit::selectAll);
    menu.exec(event->globalPos());
}

} // namespace saldoro
