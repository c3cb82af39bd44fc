#pragma once

#include <QString>

namespace saldoro {

/** What a column holds, as far as its declaration tells. */
enum class ColumnKind
{
    Undeclared, ///< an expression, or a declaration that says nothing
    Text,
    Whole16,
    Whole32,
    Whole64,
    Currency, ///< whole numbers that count ten-thousandths
    Floating,
    Date ///< texts yyyy-MM-dd, with or without a time of day after them
};

/** A column of a table or of a query's result. */
struct ColumnInfo
{
    QString name;
    ColumnKind kind = ColumnKind::Undeclared;
    int size = 0; ///< most characters of a text, 0 without a bound
    bool allowsZeroLength = true;
};

/** The column of a declaration such as "TEXT(60)", "INTEGER16" or "CURRENCY"; the declared types of
 *  other programs are told by the words in them. */
ColumnInfo ColumnFromDeclaration(const QString &name, const QString &declaredType);

} // namespace saldoro
