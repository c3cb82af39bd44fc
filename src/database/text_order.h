#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace saldoro {

/** The name under which the order of texts is known to the engine. */
inline constexpr const char *TextOrderName = "SALDORO";

/**
 * The order of texts in every comparison of the databases: letter case is ignored, accented letters
 * stand with their base letter, and between two texts that differ in nothing else the accent
 * decides. Texts are read as by TextOfStoredBytes().
 *
 * @return less than, equal to or greater than 0 as @p left stands before, with or after @p right.
 */
int CompareText(QByteArrayView left, QByteArrayView right);

/** A form that is the same for all texts that CompareText() finds equal, and for no others. */
QByteArray ComparableText(QByteArrayView text);

} // namespace saldoro
