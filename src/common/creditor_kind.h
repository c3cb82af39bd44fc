#pragma once

namespace saldoro {

/** Whom a payment goes to; stored with each payment as "A" or "P". */
enum class CreditorKind
{
    Company,     ///< "A"
    Professional ///< "P"
};

} // namespace saldoro
