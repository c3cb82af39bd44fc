#include "invoice/entry_field.h"

#include "common/characters.h"
#include "controls/edit_rule.h"

#include <QDropEvent>
#include <QRegularExpression>

#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** What a field of one line makes of a text from elsewhere. */
QString cleaned(QString text)
{
    static const QRegularExpression atTheEnds(u"^[\\t\\v]+|[\\t\\v]+\\z"_s);
    static const QRegularExpression inside(u"[\\t\\v]+"_s); // \v: whatever ends a line
    return text.remove(atTheEnds).replace(inside, u" "_s);
}

} // namespace

int BoxWidth(const QWidget &box, QStringView widest)
{
    const int frame = 2 * box.fontMetrics().averageCharWidth();
    return box.fontMetrics().horizontalAdvance(widest.toString()) + frame;
}

EntryField::EntryField(QWidget *parent, int mostCharacters)
    : QLineEdit(parent)
    , m_mostCharacters(mostCharacters)
{
    // The line takes back an edit that it can't hold. The toolkit's own limit counts units of the
    // encoding, and some characters take two. Changing the text after the edit would empty the
    // line's undo history.
    setValidator(new EditRule(this, [this](const QString &text, int cursor) {
        return accepts(text, cursor) ? QValidator::Acceptable : QValidator::Invalid;
    }));
    connect(this, &QLineEdit::textChanged, this, [this](const QString &text) {
        if (CharacterCount(text) < m_mostCharacters)
            m_isCut = false;
        if (m_refused.isNull() || text != m_refused)
            return;
        m_refused = {}; // a screen reader writes what is refused all the same
        showText(text);
    });
}

void EntryField::showText(const QString &text)
{
    const QString whole = cleaned(text);
    setText(LeftCharacters(whole, m_mostCharacters));
    setCursorPosition(0);
    m_isCut = this->text() != whole;
}

void EntryField::keyPressEvent(QKeyEvent *event)
{
    QLineEdit::keyPressEvent(event);
    insertRefused(); // the next key must find it there
}

void EntryField::dropEvent(QDropEvent *event)
{
    QLineEdit::dropEvent(event);
    // A text that does not fit whole must also stay where it was dragged from.
    if (!m_refused.isNull() && event->source() != this)
        event->setDropAction(Qt::CopyAction);
}

bool EntryField::accepts(const QString &text, int cursor)
{
    if (!text.isValidUtf16())
        return false;
    if (CharacterCount(text) <= m_mostCharacters && cleaned(text) == text)
        return true;
    m_refused = text;
    m_refusedCursor = cursor;
    // Edits by menu, mouse and input method pass by keyPressEvent.
    QMetaObject::invokeMethod(this, &EntryField::insertRefused, Qt::QueuedConnection);
    return false;
}

// The line has taken the edit back and selected again what it replaced.
void EntryField::insertRefused()
{
    if (m_refused.isNull())
        return;
    const QString refused = std::exchange(m_refused, {});
    const int start = hasSelectedText() ? selectionStart() : cursorPosition();
    const qsizetype room =
        m_mostCharacters - CharacterCount(text()) + CharacterCount(selectedText());
    const QString whole = cleaned(refused.mid(start, m_refusedCursor - start));
    const QString fitting = LeftCharacters(whole, room);
    if (!fitting.isEmpty())
        insert(fitting);
    m_isCut = fitting != whole;
}

} // namespace saldoro
