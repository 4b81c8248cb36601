#pragma once

#include "platform/PositionalFile.h"
#include "platform/WorkProgress.h"
#include "testfile/PackedDump.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace vireo {

/// Why a member of a dump is not there after unpacking.
enum class LeftOutReason {
    Refused,    ///< For its name: `nameFault` says why.
    CutOff,     ///< The dump ends before it does, or its size or place cannot be told.
    NotWritten, ///< `status` says why.
    Replaced,   ///< By a later member, whose name leads to the same file.
};

struct LeftOutMember {
    std::string name; ///< Windows-1252.
    LeftOutReason reason = LeftOutReason::Refused;
    NameFault nameFault = NameFault::None;
    FileStatus status = FileStatus::Ok;

    /// A few words, such as "the disk is full".
    std::string Why() const;
};

/// What came of unpacking a dump.
struct UnpackReport {
    std::size_t memberCount = 0; ///< In the dump, without the description that is not kept.
    std::size_t writtenCount = 0;
    std::vector<LeftOutMember> leftOut; ///< In the order in which they were met.
    bool isCancelled = false;

    bool IsComplete() const { return leftOut.empty() && !isCancelled; }
};

/// What becomes of the member that describes the dump.
enum class DumpDescription { Kept, Skipped };

/// Writes the members of a dump into a folder, which must exist: each completely or not at all,
/// over a file of the same name. A member that cannot be written keeps none of the others from
/// being written, and nothing is written outside the folder: no name leads there, and a link in the
/// folder is replaced itself. Memory is constant. `progress` counts bytes; when it is cancelled,
/// members written by then stay.
UnpackReport UnpackDump(const PackedDump& dump, const std::filesystem::path& folder,
    DumpDescription description, WorkProgress& progress);

/// One line for programs, such as "2 of 7 members left out: 1 refused (../a: the name has a folder
/// part), 1 cut off (b.con)"; Windows-1252, empty for a complete report.
std::string DescribeLeftOut(const UnpackReport& report);

/// The same for people: the count, and a line for each of the first members left out.
std::string ListLeftOut(const UnpackReport& report);

} // namespace vireo
