#pragma once

#include "platform/PositionalFile.h"
#include "platform/WorkProgress.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace vireo {

/// A line of a dump's directory.
struct DumpEntry {
    std::string name; ///< Windows-1252.
    std::uint64_t size = 0;
};

/// A dump's header: tag, data offset, directory.
std::string DumpHeader(std::span<const DumpEntry> entries);

/// What came of packing files.
struct PackReport {
    /// A file that cannot be packed, by its index, and why.
    struct Failure {
        std::size_t file;
        std::string reason;
    };
    std::vector<Failure> failures;
    FileStatus status = FileStatus::Ok; ///< Of writing the dump; Ok while there are failures.

    bool IsWritten() const { return failures.empty() && status == FileStatus::Ok; }
};

/// Packs files into a dump, in their order and under their own names without folders, completely or
/// not at all: a dump that lacks a file would hardly be noticed. Every name must be one that
/// unpacking accepts and must fit into Windows-1252, and no two may be alike but for the case of
/// their letters. Memory is constant. `progress` counts bytes.
PackReport PackDump(std::span<const std::filesystem::path> files, const std::filesystem::path& dump,
    WorkProgress& progress);

} // namespace vireo
