#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

namespace saldoro {

/** The engine's name for the order of texts. */
inline constexpr const char *TextOrderName = "SALDORO";

/**
 * The order of texts in every comparison of the databases: letter case is ignored, an accented
 * letter stands with its base letter, and the accent decides between texts that differ in nothing
 * else. Texts are read as by TextOfStoredBytes().
 *
 * @return less than, equal to or greater than 0 as @p left stands before, with or after @p right.
 */
int CompareText(QByteArrayView left, QByteArrayView right);

/** A form that two texts share exactly when CompareText() finds them equal. */
QByteArray ComparableText(QByteArrayView text);

/** Whether two texts are equal as the databases compare. */
inline bool AreEqualTexts(const QString &left, const QString &right)
{
    return CompareText(left.toUtf8(), right.toUtf8()) == 0;
}

/** The same order for keys of sets and maps; a null text, which has no value, comes first. */
struct TextOrder
{
    bool operator()(const QString &left, const QString &right) const
    {
        return CompareText(left.toUtf8(), right.toUtf8()) < 0;
    }
    bool operator()(const std::optional<QString> &left, const std::optional<QString> &right) const
    {
        return right && (!left || (*this)(*left, *right));
    }
};

} // namespace saldoro
