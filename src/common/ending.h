#pragma once

namespace saldoro {

/** True once an error has been reported and the program is on its way out: forms that close from
 *  then on do no work, since documents and totals would come out half filled. Of the user-interface
 *  thread alone. */
bool IsEnding();

/** Tests take it back; the program never does. */
void SetEnding(bool ending);

} // namespace saldoro
