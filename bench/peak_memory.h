#pragma once

#include <QtGlobal>

namespace saldoro {

/** The most memory that the process held at once since this object was made, less what it held
 *  then. Bytes; 0 where the system does not tell. */
class PeakMemory
{
public:
    PeakMemory();
    qint64 grownBy() const;

private:
    qint64 m_before;
};

} // namespace saldoro
