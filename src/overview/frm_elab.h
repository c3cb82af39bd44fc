#pragma once

#include "common/program_values.h"
#include "controls/rich_text_box.h"

namespace saldoro {

/**
 * The working form of one closing of the main form: two text boxes that are saved as documents of
 * the project. It is never shown, so it has no window.
 *
 * A document is a rich-text file in the project folder, named by the external code of an internal
 * one followed by ".rtf"; the other programs of the suite find it by its register entry in the
 * contract database: tag 0, the description of the same internal code, the bare file name.
 */
class FrmElab
{
public:
    /** @p values must outlive the form. */
    explicit FrmElab(const ProgramValues &values);

    /** Gathers the overview, then the statements before the last. */
    RichTextBox listBox;
    /** Holds the statement of the last payment; starts out with its control name as text. */
    RichTextBox lastPaymentBox;

    /** Sets the font of both boxes; it stays in force until the form is let go of. */
    void setFontName(const QString &name);

    /** Saves a box as the document of an internal code. Throws DatabaseError, FileError. */
    void save(const RichTextBox &box, QStringView internalCode) const;

    /** Writes the register entry of the document of an internal code. Throws DatabaseError. */
    void registerDocument(QStringView internalCode) const;

private:
    const ProgramValues &m_values;
};

} // namespace saldoro
