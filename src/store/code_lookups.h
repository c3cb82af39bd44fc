#pragma once

#include "common/currency.h"
#include "common/program_values.h"

#include <QString>

namespace saldoro {

/*
 * Look-ups in the suite's databases. Each routine opens its database, does one job and closes it
 * again; every write is one statement. Throws DatabaseError, NullValue where the code map lacks
 * the text that is asked for. Where a routine takes an internal code, the error names it as detail
 * "Codice". Writers name the item as "Voce", and so does StringaVoceLike its pattern. Internal
 * codes are those of store/internal_codes.h.
 */

/** The tag of the items that this program writes. The suite's readers go by the item's code and
 *  give the tag of these no meaning. */
inline constexpr qint16 NoTag = 0;

/** External code of an internal one, as text; the empty text when the code is not mapped. */
QString CodiceEsterno(const ProgramValues &values, QStringView internalCode);

/** Description of an internal code. A code that is not mapped throws NoCurrentRecord. */
QString DescrizioneFunzione(const ProgramValues &values, QStringView internalCode);

/** Writes the amount item that an internal code is mapped to: tag, the code's description, the
 *  amount and its text "€ " + amount. Adds the item when missing. A code that is not mapped throws
 *  NoCurrentRecord. */
void AggiornaVoceImporto(const ProgramValues &values, QStringView internalCode, qint16 tag,
                         Currency amount);

/** Writes the register entry of a file under an item code; adds the item when missing. */
void ScriviVoceFile(const ProgramValues &values, const QString &item, qint16 tag,
                    const QString &description, const QString &fileName);

/** Writes an item's text; of the description the first 60 characters. Adds the item when missing.
 */
void ScriviVoceStringa(const ProgramValues &values, const QString &item, qint16 tag,
                       const QString &description, const QString &text);

/** Whether an item's code matches the Like pattern. */
bool EsisteVoceLike(const ProgramValues &values, const QString &pattern);

/** Text of the first item that matches, empty for a null. No match throws NoCurrentRecord. */
QString StringaVoceLike(const ProgramValues &values, const QString &pattern);

/** Deletes every item that matches; true when there was one. */
bool EliminaVociLike(const ProgramValues &values, const QString &pattern);

} // namespace saldoro
