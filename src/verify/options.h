#pragma once

#include "verify/missing_value.h"

#include <QStringList>

namespace saldoro {

/** What the program is asked to do. */
enum class Request
{
    Check,
    Help,
    Version
};

/** The command line, read. */
struct Options
{
    Request request = Request::Check;
    QString folder;
    QString codes; ///< empty: at its place in the same archive
    QList<MissingValue> missingValues;
};

/** Reads the words after the program's name. Throws SaldoroError for what can't be understood. */
Options ParseOptions(const QStringList &words);

/** How to call the program. */
QString UsageText();

} // namespace saldoro
