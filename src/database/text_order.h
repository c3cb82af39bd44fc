#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

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

/** That order as one of keys in program memory. */
struct TextOrder
{
    bool operator()(const QString &left, const QString &right) const
    {
        return CompareText(left.toUtf8(), right.toUtf8()) < 0;
    }
};

} // namespace saldoro
