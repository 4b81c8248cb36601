#pragma once

#include "cli/Settings.h"
#include "figures/FileResult.h"
#include "figures/Subject.h"
#include "platform/FileIdentity.h"

#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace vireo {

/// One kind of file from which a command can make an output file. `write` gives the reason when it
/// cannot, else an empty text.
struct OutputWriter {
    FileKind kind;
    std::string (*write)(const Subject& subject, const Settings& settings);
};

/// Writes the output file by the writer for the subject's kind; never over the input. `done` is
/// what the command does, such as "exported", for the message that there is no writer yet.
FileResult WriteOutput(const Subject& subject, const Settings& settings,
    std::span<const OutputWriter> writers, std::string_view done);

/// The reason to tell for a status of writing an output file; empty for Ok.
std::string DescribeOutput(const std::filesystem::path& output, FileStatus status);

} // namespace vireo
