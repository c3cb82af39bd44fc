#pragma once

#include <QDate>
#include <QString>

namespace saldoro {

/** The text of an empty date box. */
inline constexpr QStringView EmptyDateText = u"__/__/____";

/** A day of the years 1 to 9999 as dd/MM/yyyy; the empty text for an invalid date. */
QString FormatData(QDate day);

/** A valid day of the years 1 to 9999 as yyyy-MM-dd. */
QString IsoText(QDate day);

/** The form of a day that is typed: d/m/yyyy or d/m/yy; day and month may have one digit or two. */
inline constexpr QStringView TypedDayForm = u"([0-9]{1,2})/([0-9]{1,2})/([0-9]{4}|[0-9]{2})";

/**
 * Reads day/month/year in the TypedDayForm. Years of two digits: 00-29 are in the 2000s, 30-99 in
 * the 1900s; four-digit years start at 100. Anything else, and a day that the calendar does not
 * have, gives an invalid date. The cells of a spreadsheet have readers of their own (DayOf).
 */
QDate DataDaTesto(const QString &text);

/** The day in the text of a date box: what stands before the first "_". */
QDate DayInBox(const QString &text);

} // namespace saldoro
