#include "fuzz/FuzzInput.h"
#include "viewers/startest/StarTestCurves.h"
#include "viewers/startest/StarTestData.h"
#include "viewers/startest/StarTestWriter.h"

#include <string>

namespace vireo {

namespace {

void CheckSweep(const StarTestSweep& sweep)
{
    Require(sweep.LineCount() >= 0);
    const auto lines = static_cast<std::size_t>(sweep.LineCount());
    for (const StarTestField field : AllStarTestFields()) {
        Require(ValuesOf(sweep, field).size() == lines);
        const LineRange range = EvaluationRange(sweep, field);
        Require(range.begin <= range.end && range.end <= lines);
        static_cast<void>(FiguresOf(ValuesOf(sweep, field).subspan(range.begin, range.Count())));
    }
    Require(sweep.m_XPosition.size() == lines && sweep.m_XRestart.size() == lines);
}

/// What is written of a sweep has as many lines as it.
void CheckWriting(const StarTestSweep& sweep)
{
    constexpr std::int32_t kMostLines = 100; // Writing is slow, and all lines are alike.
    if (sweep.LineCount() > kMostLines)
        return;
    std::size_t lines = 0;
    const FileStatus status = WriteStarTestSweep(sweep, [&lines](std::string_view text) {
        lines += !text.empty() && text.front() >= '0' && text.front() <= '9' ? 1 : 0;
        return FileStatus::Ok;
    });
    Require(status == FileStatus::Ok);
    Require(lines == static_cast<std::size_t>(sweep.LineCount()));
}

} // namespace

} // namespace vireo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    using namespace vireo;
    StarTestData data;
    const StarTestResult result = data.Read(InputFile({bytes, size}));
    Require(data.DescribeFailure(result).empty() == (result == StarTestResult::Ok));
    Require(result == StarTestResult::Ok || data.m_sweeps.empty());
    // A file announces no more than its length can justify: twice that, with the averages.
    Require(std::ssize(data.m_sweeps) <= 2 * StarTestData::kMostSweeps);
    std::int64_t lines = 0;
    for (const StarTestSweep& sweep : data.m_sweeps) {
        CheckSweep(sweep);
        lines += sweep.LineCount();
    }
    constexpr std::int64_t kShortestLine = 24;
    Require(lines
        <= 2 * (StarTestData::kMostMissingLines + static_cast<std::int64_t>(size) / kShortestLine));
    Require(data.SelectedSweep() != nullptr || data.m_sweeps.empty());
    for (std::size_t i = 0; i < data.MeasuredCount(); ++i)
        CheckWriting(data.m_sweeps[i]);
    return 0;
}
