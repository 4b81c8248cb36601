#include "app/DispatchPlan.h"

#include "app/FileKind.h"
#include "platform/PositionalFile.h"
#include "testfile/TestFileHeader.h"

#include <array>
#include <cstdint>
#include <span>

namespace vireo {

namespace {
DispatchPlan Refusal(std::string_view reason)
{
    DispatchPlan plan;
    plan.refusal = reason;
    return plan;
}
} // namespace

DispatchPlan PlanDispatch(const std::filesystem::path& file)
{
    PositionalFile source;
    const FileStatus status = source.Open(file);
    if (status != FileStatus::Ok)
        return Refusal(Describe(status));

    std::array<std::uint8_t, TestFileHeader::kProbeBytes> probe{};
    const std::size_t length = source.ReadAt(0, probe);
    if (length == 0)
        return Refusal(source.Size() == 0 ? "The file is empty" : Describe(FileStatus::Failed));

    const Recognition recognition = Recognise(std::span(probe).first(length), file);
    if (recognition.kind != FileKind::Kitbag && recognition.viewers.empty())
        return Refusal("It is not a test result that Vireo knows");
    DispatchPlan plan;
    plan.viewers = recognition.viewers;
    plan.isPackedDump = recognition.kind == FileKind::Kitbag;
    return plan;
}

} // namespace vireo
