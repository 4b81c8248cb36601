#include "platform/ProcessInfo.h"

#include <algorithm>
#include <limits>

namespace vireo {

std::uint64_t MostPictureBytes()
{
    constexpr std::uint64_t kUnknownMachine = std::uint64_t{2} << 30;
    const std::uint64_t half = MachineMemoryBytes().value_or(kUnknownMachine) / 2;
    // A 32-bit program has less room than its machine.
    return std::min<std::uint64_t>(half, std::numeric_limits<std::size_t>::max() / 2);
}

} // namespace vireo
