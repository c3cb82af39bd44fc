#pragma once

#include <QString>

namespace saldoro {

/** A text that becomes a document, all in one font. */
struct RichTextBox
{
    QString text;
    QString fontName = QStringLiteral("MS Sans Serif");
};

/** The working form of one closing of the main form: two boxes that are saved as documents of the
 *  project. Each starts out with its control name as text. It is never shown, so it has no
 *  window. When a box is emptied, and when not: overview/closing_work. */
struct FrmElab
{
    /** Gathers the overview, then the statements before the last. */
    RichTextBox listBox{QStringLiteral("RichTextBox1")};
    /** Holds the statement of the last payment. */
    RichTextBox lastPaymentBox{QStringLiteral("RichTextBox2")};
};

} // namespace saldoro
