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
inline QString KindCode(CreditorKind kind)
{
    return kind == CreditorKind::Company ? QStringLiteral("A") : QStringLiteral("P");
}

/** The kind that is stored so; none for anything but exactly these two. */
inline std::optional<CreditorKind> KindOfCode(const QString &code)
{
    for (const CreditorKind kind : {CreditorKind::Company, CreditorKind::Professional}) {
        if (code == KindCode(kind))
            return kind;
    }
    return std::nullopt;
}

} // namespace saldoro
