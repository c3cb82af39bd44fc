#pragma once

namespace saldoro {

/** True from when an error is about to be reported that ends the program. Forms that close from
 *  then on do no closing work, since documents and totals would come out half filled. For the
 *  thread of the user interface only. */
bool IsEnding();

/** The program only ever sets it to true; tests set it back. */
void SetEnding(bool ending);

} // namespace saldoro
