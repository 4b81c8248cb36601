#pragma once

namespace vireo {

/// Handles every event that waits for the user interface, so that the screen is up to date before
/// something that takes long. Returns when none waits any more; a request to quit stays waiting.
void PumpMessages();

} // namespace vireo
