#include "platform/stored_text.h"

#include <QLocale>

#include <algorithm>

namespace saldoro {

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
    constexpr qsizetype DayLength = 10;
    if (text.size() > DayLength && text[DayLength] != u' ' && text[DayLength] != u'T')
        return std::nullopt;
    const QDate day = QDate::fromString(text.first(std::min(DayLength, text.size())),
                                        QStringLiteral("yyyy-MM-dd"));
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
        QString text = QString::fromUtf8(cells.text(cell));
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
