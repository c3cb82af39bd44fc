#pragma once

#include "overview/rich_text_box.h"

namespace saldoro {

/** The working form of one closing of the main form: two text boxes that are saved as documents of
 *  the project. It is never shown, so it has no window. */
struct FrmElab
{
    /** Gathers the overview, then the statements before the last. */
    RichTextBox listBox{QStringLiteral("RichTextBox1")};
    /** Holds the statement of the last payment; starts out with its control name as text. */
    RichTextBox lastPaymentBox{QStringLiteral("RichTextBox2")};
};

} // namespace saldoro
