#pragma once

#include <functional>

namespace saldoro {

/** Does something that the user has asked for. An error is told in a message box and given up;
 *  false then. */
bool Attempt(const std::function<void()> &action);

} // namespace saldoro
