#pragma once

#include <QString>

#include <optional>

namespace saldoro {

/** Whom a payment goes to; stored with each payment as "A" or "P". */
enum class CreditorKind
{
    Company,     ///< "A"
    Professional ///< "P"
};

/** The text that a kind is stored as. */
QString KindCode(CreditorKind kind);

/** The kind that is stored as @p code; none for any other text. A lower-case one is none here,
 *  though a query for the kind finds it. */
std::optional<CreditorKind> KindOfCode(const QString &code);

} // namespace saldoro
