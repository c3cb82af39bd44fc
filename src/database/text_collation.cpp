#include "database/text_collation.h"

#include "platform/legacy_text.h"

#include <algorithm>

namespace saldoro {

namespace {

unsigned char lowered(char character)
{
    const auto byte = static_cast<unsigned char>(character);
    return byte >= 'A' && byte <= 'Z' ? static_cast<unsigned char>(byte + ('a' - 'A')) : byte;
}

bool isAsciiByte(char character)
{
    return static_cast<unsigned char>(character) < 0x80;
}

/** Base letters and accents apart, letter case removed. */
QString folded(QByteArrayView text)
{
    return TextOfStoredBytes(text).normalized(QString::NormalizationForm_D).toCaseFolded();
}

QString withoutAccents(const QString &decomposed)
{
    QString bare;
    bare.reserve(decomposed.size());
    for (const QChar character : decomposed) {
        if (character.category() != QChar::Mark_NonSpacing)
            bare.append(character);
    }
    return bare;
}

int compareFolded(QByteArrayView left, QByteArrayView right)
{
    const QString leftText = folded(left);
    const QString rightText = folded(right);
    const int bare = withoutAccents(leftText).compare(withoutAccents(rightText));
    return bare != 0 ? bare : leftText.compare(rightText);
}

quint32 hashOfLowered(QByteArrayView text)
{
    quint32 hash = 2166136261U;
    for (const char character : text)
        hash = (hash ^ lowered(character)) * 16777619U;
    return hash;
}

} // namespace

int CompareText(QByteArrayView left, QByteArrayView right)
{
    // Most pairs are told apart by two plain characters after a common beginning: the beginning
    // counts the same for both, whatever it holds, so nothing needs to be decomposed.
    const qsizetype shorter = std::min(left.size(), right.size());
    qsizetype place = 0;
    while (place < shorter && lowered(left[place]) == lowered(right[place]))
        ++place;
    const bool leftEnds = place == left.size();
    const bool rightEnds = place == right.size();
    if (leftEnds && rightEnds)
        return 0;
    if ((leftEnds || isAsciiByte(left[place])) && (rightEnds || isAsciiByte(right[place]))) {
        const int leftRank = leftEnds ? -1 : lowered(left[place]);
        return leftRank - (rightEnds ? -1 : lowered(right[place]));
    }
    return compareFolded(left, right);
}

quint32 HashText(QByteArrayView text)
{
    const bool isAscii = std::all_of(text.begin(), text.end(), isAsciiByte);
    return isAscii ? hashOfLowered(text) : hashOfLowered(folded(text).toUtf8());
}

} // namespace saldoro
