#include "cli/Output.h"

#include "platform/Path.h"

namespace vireo {

FileResult WriteOutput(const Subject& subject, const Settings& settings,
    std::span<const OutputWriter> writers, std::string_view done)
{
    if (IsSameFile(subject.path, settings.output))
        return {{}, "The output would replace the file itself"};
    for (const OutputWriter& writer : writers) {
        if (writer.kind == subject.Kind())
            return {{}, writer.write(subject, settings)};
    }
    return {{}, CannotBe(subject.Kind(), done)};
}

std::string DescribeOutput(const std::filesystem::path& output, FileStatus status)
{
    if (status == FileStatus::Ok)
        return {};
    return "Cannot write " + Utf8FromPath(output) + ": " + std::string(Describe(status));
}

} // namespace vireo
