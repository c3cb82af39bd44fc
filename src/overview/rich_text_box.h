#pragma once

#include <QString>

namespace saldoro {

/**
 * A text that can be saved as a rich-text (RTF) document, all in one font. CR LF, CR and LF are
 * one line break each. There is no window to it.
 */
class RichTextBox
{
public:
    /** The box starts out holding @p name as text, in "MS Sans Serif" at 8.5 points. */
    explicit RichTextBox(const QString &name);

    const QString &text() const { return m_text; }
    void setText(const QString &text) { m_text = text; }
    /** The same as setText(text() + more) without copying what is there. */
    void appendText(const QString &more) { m_text += more; }
    void setFontName(const QString &name) { m_fontName = name; }

    /**
     * Writes the document to an archive path (backslashes, any letter case), replacing a file of
     * that name only once the new one is whole and on the disk. On failure throws FileError and the
     * earlier file is as it was.
     */
    void saveFile(const QString &path) const;

private:
    QString m_text;
    QString m_fontName;
};

} // namespace saldoro
