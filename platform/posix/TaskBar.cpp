#include "platform/TaskBar.h"

namespace vireo {

void ShowOnTaskBar(std::uintptr_t, bool) { }

} // namespace vireo
