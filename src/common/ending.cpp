#include "common/ending.h"

namespace saldoro {

namespace {

bool endingNow = false;

} // namespace

bool IsEnding()
{
    return endingNow;
}

void SetEnding(bool ending)
{
    endingNow = ending;
}

} // namespace saldoro
