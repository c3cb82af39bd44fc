#pragma once

namespace saldoro {

inline bool endingNow = false; ///< of the user-interface thread

/** True once an error has been reported and the program is on its way out: forms that close from
 *  then on do no work, since documents and totals would come out half filled. */
inline bool IsEnding()
{
    return endingNow;
}

/** Tests take it back; the program never does. */
inline void SetEnding(bool ending)
{
    endingNow = ending;
}

} // namespace saldoro
