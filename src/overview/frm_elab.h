#pragma once

#include "controls/rich_text_box.h"

#include <QString>

namespace saldoro {

/**
 * The working form of one closing of the main form: two text boxes that are saved as documents.
 * It is never shown, so it has no window.
 */
class FrmElab
{
public:
    FrmElab();

    /** Gathers the overview, then the statements before the last. */
    RichTextBox &listBox() { return m_listBox; }
    /** Holds the statement of the last payment; starts out with its control name as text. */
    RichTextBox &lastPaymentBox() { return m_lastPaymentBox; }

    /** Sets the font of both boxes; it stays in force until the form is let go of. */
    void setFontName(const QString &name);

private:
    RichTextBox m_listBox;
    RichTextBox m_lastPaymentBox;
};

} // namespace saldoro
