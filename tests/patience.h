#pragma once

#include <QtGlobal>

namespace saldoro {

/** How many times longer a timed test may take; under valgrind everything is slow. */
inline qint64 Patience()
{
    return qMax(1, qEnvironmentVariableIntValue("SALDORO_PATIENCE"));
}

} // namespace saldoro
