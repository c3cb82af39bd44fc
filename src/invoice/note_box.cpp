#include "invoice/note_box.h"

namespace saldoro {

using namespace Qt::StringLiterals;

NoteBox::NoteBox(QWidget *parent)
    : QPlainTextEdit(parent)
{
    setTabChangesFocus(true);
}

QSize NoteBox::minimumSizeHint() const
{
    constexpr int lines = 4;
    constexpr int characters = 30;
    return {characters * fontMetrics().averageCharWidth(), lines * fontMetrics().lineSpacing()};
}

void NoteBox::showNote(const QString &note)
{
    m_shown = note;
    setPlainText(note);
    document()->setModified(false);
}

QString NoteBox::note() const
{
    if (!document()->isModified())
        return m_shown;
    QString text = toPlainText();
    if (m_shown.contains(u"\r\n"_s))
        text.replace(QLatin1Char('\n'), u"\r\n"_s);
    return text;
}

} // namespace saldoro
