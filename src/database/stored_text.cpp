#include "database/stored_text.h"

#include "common/currency.h"
#include "common/date_text.h"
#include "common/number_text.h"
#include "platform/legacy_text.h"

#include <QLocale>

namespace saldoro {

using namespace Qt::StringLiterals;

QString TenThousandthsText(qint64 scaled)
{
    const quint64 size =
        scaled < 0 ? 0 - static_cast<quint64>(scaled) : static_cast<quint64>(scaled);
    QString text = QString::number(size / Currency::Scale);
    QString decimals = u"%1"_s.arg(size % Currency::Scale, 4, 10, QLatin1Char('0'));
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
    const QStringView digits(text);
    const int year = DigitsValue(digits.first(4));
    const QDate day(year, DigitsValue(digits.sliced(5, 2)), DigitsValue(digits.sliced(8, 2)));
    return year > 0 && day.isValid() ? std::optional(day) : std::nullopt;
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
        return RealText(column.kind == ColumnKind::Currency ? cell.real() / Currency::Scale
                                                            : cell.real());
    case CellType::Text: {
        QString text = TextOfUtf8(cells.text(cell));
        if (column.kind == ColumnKind::Date) {
            if (const auto day = DayFromStoredText(text))
                return FormatData(*day);
        }
        return text;
    }
    }
    return {};
}

} // namespace saldoro
