#include "controls/date_box.h"

#include "common/date_text.h"
#include "controls/edit_rule.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QRegularExpression>

#include <algorithm>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

constexpr QChar missing = u'_';
constexpr qsizetype placesEnd = EmptyDateText.size();

bool isSlash(qsizetype position)
{
    return position == 2 || position == 5;
}

constexpr QStringView typeable = u"[0-9/]*";
constexpr QStringView maskText = u"[0-9_]{2}/[0-9_]{2}/[0-9_]{4}";
constexpr QStringView eightDigits = u"[0-9]{8}";

bool isAll(QStringView form, const QString &text)
{
    return QRegularExpression(QRegularExpression::anchoredPattern(form)).match(text).hasMatch();
}

/** A mask's text while it is being typed; the cursor stands before one of its characters or after
 *  the last. */
struct MaskText
{
    QString text;
    qsizetype cursor;

    void erase(qsizetype first, qsizetype last)
    {
        for (qsizetype position = first; position < last; ++position) {
            if (!isSlash(position))
                text[position] = missing;
        }
    }

    /** A digit, or "/", goes behind the digit that stands nearest before the cursor. */
    void type(QChar character)
    {
        while (cursor > 0 && !text[cursor - 1].isDigit())
            --cursor;
        character == u'/' ? typeSlash() : typeDigit(character);
    }

private:
    void typeDigit(QChar digit)
    {
        const qsizetype place = isSlash(cursor) ? cursor + 1 : cursor;
        if (place == placesEnd)
            return;
        text[place] = digit;
        cursor = isSlash(place + 1) ? place + 2 : place + 1;
    }

    void typeSlash()
    {
        const qsizetype first = cursor <= 2 ? 0 : 3; // of the day's or the month's two places
        if (cursor == first || cursor > 5)
            return;
        if (cursor == first + 1 || text[first] == missing) {
            text[first + 1] = text[cursor - 1];
            text[first] = u'0';
        }
        cursor = first + 3;
    }
};

} // namespace

DateBox::DateBox(QWidget *parent)
    : QLineEdit(parent)
{
    setValidator(
        new EditRule(this, [this](QString &text, int &cursor) { return mask(text, cursor); }));
    setDateText({});
    setInputMethodHints(Qt::ImhDate | Qt::ImhPreferNumbers | Qt::ImhNoPredictiveText);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAcceptDrops(false);
    const auto remember = [this] {
        m_before = text();
        // A click beyond a letter that is being composed sets the cursor beyond the text.
        m_start = hasSelectedText() ? selectionStart()
                                    : std::min(cursorPosition(), static_cast<int>(text().size()));
    };
    connect(this, &QLineEdit::textChanged, this, remember);
    connect(this, &QLineEdit::cursorPositionChanged, this, remember);
    connect(this, &QLineEdit::selectionChanged, this, remember);
    connect(this, &QLineEdit::textChanged, this, &QWidget::updateGeometry);
    connect(this, &QLineEdit::textChanged, this, [this] { m_leftWith.clear(); });
}

/** Makes a mask's text of what the line edit has done to the one that was shown. */
QValidator::State DateBox::mask(QString &text, int &cursor) const
{
    if (text == m_before || isAll(maskText, text)) // the toolkit also asks about what it was given
        return QValidator::Acceptable;
    // What stood from first to last has given way to what stands before the cursor now.
    const qsizetype first = std::min(m_start, cursor);
    const qsizetype last = m_before.size() - (text.size() - cursor);
    const QString typed = text.sliced(first, cursor - first).trimmed();
    // Blanks, and a "/" alone, take nothing away.
    if (!isAll(typeable, typed) || (typed.isEmpty() && first < cursor) ||
        (typed == u"/" && first < last))
        return QValidator::Invalid;
    MaskText masked{m_before, first};
    if (isAll(TypedDayForm, typed) || isAll(eightDigits, typed) || !isAll(maskText, m_before))
        masked = {EmptyDateText.toString(), 0};
    else
        masked.erase(first, last);
    for (const QChar character : typed)
        masked.type(character);
    text = masked.text;
    cursor = static_cast<int>(masked.cursor);
    return QValidator::Acceptable;
}

void DateBox::setDateText(const QString &text)
{
    m_before = text.isEmpty() ? EmptyDateText.toString() : text;
    setText(m_before);
    setCursorPosition(0);
}

bool DateBox::settle()
{
    const QString left = text();
    const QDate day = DayInBox(left);
    if (day.isValid() && text() != FormatData(day))
        setDateText(FormatData(day));
    m_leftWith = left;
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

void DateBox::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Paste) && QGuiApplication::clipboard()->text().isEmpty())
        return; // a line edit would put nothing in the place of a selected date
    const QString typed = event->text();
    const bool isCommand = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    // What the mask has no place for, and a "/" alone, take no selected date away.
    const bool isRefused = !isAll(typeable, typed) || (typed == u"/" && hasSelectedText());
    if (!isCommand && !typed.isEmpty() && typed.front().isPrint() && isRefused) {
        event->ignore();
        return;
    }
    const bool isBackspace = event->key() == Qt::Key_Backspace;
    if ((isBackspace || event->key() == Qt::Key_Delete) && !hasSelectedText()) {
        const auto next = [&] { return text().mid(cursorPosition() - (isBackspace ? 1 : 0), 1); };
        while (next() == missing || next() == u"/")
            isBackspace ? cursorBackward(false) : cursorForward(false);
    }
    QLineEdit::keyPressEvent(event);
}

// A screen keyboard commits digit by digit. What it commits goes the way of what is pasted.
void DateBox::inputMethodEvent(QInputMethodEvent *event)
{
    if (event->commitString().isEmpty())
        return QLineEdit::inputMethodEvent(event);
    QInputMethodEvent composed; // what was being composed no longer shows
    QLineEdit::inputMethodEvent(&composed);
    if (!isReadOnly())
        insert(event->commitString());
}

} // namespace saldoro
