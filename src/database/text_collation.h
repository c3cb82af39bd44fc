#pragma once

#include <QByteArrayView>
#include <QString>

namespace saldoro {

/**
 * The order of texts in every comparison of the databases: letter case is ignored, accented letters
 * stand with their base letter, and between two texts that differ in nothing else the accent
 * decides. Texts are read as by TextOfStoredBytes().
 *
 * @return less than, equal to or greater than 0 as @p left stands before, with or after @p right.
 */
int CompareText(QByteArrayView left, QByteArrayView right);

/** A hash that is the same for all texts that CompareText() finds equal. */
quint32 HashText(QByteArrayView text);

} // namespace saldoro
