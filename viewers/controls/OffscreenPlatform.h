#pragma once

namespace vireo {

/// For programs that draw and show nothing: no display is asked for, and what the toolkit remarks
/// about the environment stays off standard error, which belongs to the program's own failures.
/// Call before the application object is made.
void UseOffscreenPlatform();

} // namespace vireo
