#include "common/creditor_kind.h"

namespace saldoro {

QString KindCode(CreditorKind kind)
{
    return kind == CreditorKind::Company ? QStringLiteral("A") : QStringLiteral("P");
}

std::optional<CreditorKind> KindOfCode(const QString &code)
{
    for (const CreditorKind kind : {CreditorKind::Company, CreditorKind::Professional}) {
        if (code == KindCode(kind))
            return kind;
    }
    return std::nullopt;
}

} // namespace saldoro
