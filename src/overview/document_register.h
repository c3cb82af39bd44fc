#pragma once

#include "common/program_values.h"
#include "overview/frm_elab.h"

namespace saldoro {

/*
 * A document is a rich-text file in the project folder, named by the external code of an internal
 * one followed by ".rtf". The other programs of the suite find it by its register entry in the
 * contract database: tag 0, the description of the same internal code, the bare file name.
 */

/** Saves a box as the document of an internal code, replacing an earlier one only once the new one
 *  is whole and on the disk. A code that is not mapped gives the file ".rtf". Throws DatabaseError,
 *  FileError. */
void SaveDocument(const ProgramValues &values, const RichTextBox &box, QStringView internalCode);

/** Writes the register entry of the document of an internal code. Throws DatabaseError,
 *  NoCurrentRecord for a code that is not mapped. */
void RegisterDocument(const ProgramValues &values, QStringView internalCode);

} // namespace saldoro
