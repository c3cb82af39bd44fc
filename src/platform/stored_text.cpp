#include "platform/stored_text.h"

#include "platform/legacy_text.h"

#include <QLocale>

namespace saldoro {

namespace {

/** The number that @p count plain digits from @p first on spell; 0 when one of them is no digit. */
int numberIn(const QString &text, qsizetype first, qsizetype count)
{
    int number = 0;
    for (const QChar digit : QStringView(text).sliced(first, count)) {
        if (digit < u'0' || digit > u'9')
            return 0;
        number = number * 10 + (digit.unicode() - u'0');
    }
    return number;
}

} // namespace

QString TenThousandthsText(qint64 scaled)
{
    const quint64 size =
        scaled < 0 ? 0 - static_cast<quint64>(scaled) : static_cast<quint64>(scaled);
    QString text = QString::number(size / 10000);
    QString decimals = QStringLiteral("%1").arg(size % 10000, 4, 10, QLatin1Char('0'));
    while (decimals.endsWith(u'0'))
        decimals.chop(1);
    if (!decimals.isEmpty())
        text += u'.' + decimals;
    return scaled < 0 ? u'-' + text : text;
}

QString RealText(double value)
{
    return QString::number(value, 'f', QLocale::FloatingPointShortest);
}

std::optional<QDate> DayFromStoredText(const QString &text)
{
    // Every payment has a day, so this reads digits and no format.
    constexpr qsizetype DayLength = 10;
    if (text.size() < DayLength || text[4] != u'-' || text[7] != u'-')
        return std::nullopt;
    if (text.size() > DayLength && text[DayLength] != u' ' && text[DayLength] != u'T')
        return std::nullopt;
    const QDate day(numberIn(text, 0, 4), numberIn(text, 5, 2), numberIn(text, 8, 2));
    return day.isValid() ? std::optional(day) : std::nullopt;
}

QString StoredText(const CellTable &cells, const Cell &cell, const ColumnInfo &column)
{
    switch (cell.type) {
    case CellType::Null:
        break;
    case CellType::Whole:
        return column.kind == ColumnKind::Currency ? TenThousandthsText(cell.whole())
                                                   : QString::number(cell.whole());
    case CellType::Real:
        return RealText(column.kind == ColumnKind::Currency ? cell.real() / 10000 : cell.real());
    case CellType::Text: {
        QString text = TextOfUtf8(cells.text(cell));
        if (column.kind == ColumnKind::Date) {
            if (const auto day = DayFromStoredText(text))
                return day->toString(QStringLiteral("dd/MM/yyyy"));
        }
        return text;
    }
    }
    return {};
}

} // namespace saldoro
