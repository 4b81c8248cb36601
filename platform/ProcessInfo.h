#pragma once

#include <cstdint>
#include <optional>

namespace vireo {

/// The most memory that this process has held at any time, in KiB; nothing when the system cannot
/// tell.
std::optional<std::int64_t> PeakMemoryKilobytes();

/// The memory of the machine in bytes; nothing when the system cannot tell.
std::optional<std::uint64_t> MachineMemoryBytes();

/// The most memory that one picture may take: half of the machine's.
std::uint64_t MostPictureBytes();

/// Makes MillisecondsSinceStart count from now, or from where it already counts. On systems that
/// know a process's start only coarsely the program is run anew in the same process, with the time
/// noted before, so that loading it is counted too; this call then comes back in the new run.
/// `argv` is main's, with the null behind its end.
void NoteProcessStart(char* const* argv);

/// Wall-clock time since the process started; nothing when the system cannot tell.
std::optional<double> MillisecondsSinceStart();

} // namespace vireo
