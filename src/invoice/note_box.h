#pragma once

#include <QPlainTextEdit>

namespace saldoro {

/**
 * A box for a note of several lines; Enter breaks the line, Tab moves on. A note that was not
 * touched reads back exactly as it was shown, and a changed one keeps the kind of line breaks that
 * it came with, whatever program wrote it.
 */
class NoteBox : public QPlainTextEdit
{
public:
    explicit NoteBox(QWidget *parent = nullptr);

    void showNote(const QString &note);
    QString note() const;

    /** A few lines; a form may give it more. */
    QSize sizeHint() const override { return minimumSizeHint(); }
    QSize minimumSizeHint() const override;

private:
    QString m_shown;
};

} // namespace saldoro
