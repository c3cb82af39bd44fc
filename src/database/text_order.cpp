#include "database/text_order.h"

#include "common/legacy_text.h"

#include <algorithm>

namespace saldoro {

namespace {

bool isAscii(QByteArrayView text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

/** Base letters and accents apart, letter case removed. */
QString decomposedFold(QByteArrayView text)
{
    return TextOfStoredBytes(text).normalized(QString::NormalizationForm_D).toCaseFolded();
}

QString withoutAccents(QString decomposed)
{
    return decomposed.removeIf(
        [](QChar character) { return character.category() == QChar::Mark_NonSpacing; });
}

} // namespace

int CompareText(QByteArrayView left, QByteArrayView right)
{
    if (isAscii(left) && isAscii(right))
        return left.compare(right, Qt::CaseInsensitive);
    const QString leftText = decomposedFold(left);
    const QString rightText = decomposedFold(right);
    const int bare = withoutAccents(leftText).compare(withoutAccents(rightText));
    return bare != 0 ? bare : leftText.compare(rightText);
}

QByteArray ComparableText(QByteArrayView text)
{
    if (isAscii(text))
        return text.toByteArray().toLower();
    return decomposedFold(text).toUtf8();
}

} // namespace saldoro
