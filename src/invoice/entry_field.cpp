#include "invoice/entry_field.h"

#include "common/text_cut.h"

#include <QEvent>
#include <QValidator>

#include <algorithm>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

/** Has the line take back an edit that makes it too long. The line's own limit counts units of the
 *  encoding, of which some characters take two, and cannot change without the loss of what there
 *  is to undo. */
class EntryField::Limit : public QValidator
{
public:
    explicit Limit(EntryField &field)
        : QValidator(&field)
        , m_field(field)
    {
    }

    State validate(QString &text, int &cursor) const override
    {
        return m_field.accepts(text, cursor) ? Acceptable : Invalid;
    }

private:
    EntryField &m_field;
};

EntryField::EntryField(int mostCharacters, QWidget *parent)
    : QLineEdit(parent)
    , m_mostCharacters(mostCharacters)
{
    setValidator(new Limit(*this));
    connect(this, &QLineEdit::textChanged, this, &EntryField::followText);
}

void EntryField::showText(const QString &text)
{
    setMaxLength(std::max(maxLength(), static_cast<int>(text.size())));
    m_characters = CharacterCount(text); // or the line would take it for an edit
    setText(text);
    setCursorPosition(0);
}

bool EntryField::event(QEvent *event)
{
    const bool isHandled = QLineEdit::event(event);
    // The line gets other events, such as questions of an input method, in the midst of an edit.
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::InputMethod:
    case QEvent::MouseButtonRelease:
    case QEvent::Drop:
        insertWhatFits();
        break;
    default:
        break;
    }
    return isHandled;
}

void EntryField::changeEvent(QEvent *event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        showColor();
}

qsizetype EntryField::allowedCharacters() const
{
    return std::max<qsizetype>(m_mostCharacters, m_characters);
}

bool EntryField::accepts(const QString &text, int cursor)
{
    if (!text.isValidUtf16())
        return false;
    // An undone edit can be made again, a new one cannot: undoing leads back to any text.
    if (CharacterCount(text) <= allowedCharacters() || isRedoAvailable())
        return true;
    m_refused = text;
    m_refusedCursor = cursor;
    // The menu of the line does its work outside the line's own events.
    QMetaObject::invokeMethod(this, &EntryField::insertWhatFits, Qt::QueuedConnection);
    return false;
}

// The edit has been taken back, so what it replaced is selected again.
void EntryField::insertWhatFits()
{
    if (m_refused.isNull())
        return;
    const QString refused = std::exchange(m_refused, {});
    const int start = hasSelectedText() ? selectionStart() : cursorPosition();
    const qsizetype room = allowedCharacters() - m_characters + CharacterCount(selectedText());
    const QString fitting = LeftCharacters(refused.mid(start, m_refusedCursor - start), room);
    if (!fitting.isEmpty())
        insert(fitting);
}

void EntryField::followText(const QString &text)
{
    m_characters = CharacterCount(text);
    if (m_characters > m_mostCharacters) {
        if (!m_hint)
            m_hint = toolTip();
        say(u"Il testo ha %1 caratteri: nel registro ce ne stanno %2."_s.arg(m_characters)
                .arg(m_mostCharacters));
    } else if (m_hint) {
        say(*std::exchange(m_hint, std::nullopt));
    }
    showColor();
}

void EntryField::say(const QString &hint)
{
    setToolTip(hint);
    setAccessibleDescription(hint);
}

void EntryField::showColor()
{
    QPalette own; // what is not set in it stays as the theme has it
    if (m_hint) {
        const bool isDark = palette().color(QPalette::Base).lightnessF() < 0.5F;
        own.setColor(QPalette::Text, isDark ? QColor(0xff, 0x8a, 0x80) : QColor(0xb3, 0x1b, 0x1b));
    }
    setPalette(own);
}

} // namespace saldoro
