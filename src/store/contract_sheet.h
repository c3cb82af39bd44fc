#pragma once

#include "common/currency.h"
#include "common/program_values.h"
#include "database/record_set.h"

#include <QList>
#include <QString>

#include <utility>

namespace saldoro {

/*
 * The items of the contract sheet. OpenContractSheet() leaves the database open with its set, in
 * which FindItem() and WriteItem() work; each other routine opens it, does one job and closes it.
 * Every write is one statement. Errors are DatabaseErrors, FieldTooSmall for a text longer than its
 * column. The detail "Voce" is the item that a routine writes, or the pattern of
 * StringaVoceLike(); WriteItem(), EsisteVoceLike() and EliminaVociLike() add no detail. Items and
 * patterns go into criteria as they are: one apostrophe throws SyntaxError, two count as one.
 */

/** Tags of the items, in `Funzione`. */
namespace ItemTag {
/** Of documents, totals and mandate notes. The suite's readers go by the item's code and give the
 *  tag of these no meaning. */
inline constexpr qint16 None = 0;
inline constexpr qint16 Contractor = 1;
inline constexpr qint16 Professional = 17;
} // namespace ItemTag

/** The contract sheet in the order of its items, updatable. */
RecordSet OpenContractSheet(const ProgramValues &values);

/** Makes the item of that code the current record of the sheet; false when there is none. */
bool FindItem(RecordSet &sheet, const QString &item);

/** Values of an item's fields. */
using ItemValues = QList<std::pair<QString, NewValue>>;

/** Writes those fields of an item of the open sheet; adds the item when missing. The code of one
 *  that is there stays in its letter case unless `Voce` is among the fields. */
void WriteItem(RecordSet &sheet, const QString &item, const ItemValues &fields);

/** Writes the amount item that an internal code is mapped to: tag, the code's description, the
 *  amount and its EuroText(). Adds the item when missing. A code that is not mapped throws
 *  NoCurrentRecord, one without an item code NullValue. Errors have the internal code as detail
 *  "Codice", too. */
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
