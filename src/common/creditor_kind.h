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

/** How a kind is stored. */
QString KindCode(CreditorKind kind);

/** The kind that is stored so; none for anything but exactly these two. */
std::optional<CreditorKind> KindOfCode(const QString &code);

} // namespace saldoro
