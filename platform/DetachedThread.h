#pragma once

#include <functional>

namespace vireo {

/// Begins work on a thread that nobody waits for. The work owns all that it uses, and throws
/// nothing. False when the system gives no thread.
bool RunDetached(std::function<void()> work);

} // namespace vireo
