#pragma once

#include <cstdint>

namespace vireo {

/// Puts the button of a native window (on Windows an HWND) on the system's task bar, or takes it
/// off while the window stays open. Only Windows needs to be told.
void ShowOnTaskBar(std::uintptr_t window, bool visible);

} // namespace vireo
