#include "viewers/startest/StarTestData.h"

#include "platform/AppendFile.h"
#include "platform/FileLines.h"
#include "platform/Text.h"
#include "platform/WorkProgress.h"
#include "viewers/startest/StarTestReader.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace vireo {

StarTestData StarTestData::WithoutSweeps() const
{
    StarTestData data;
    data.m_bStandardDeviation = m_bStandardDeviation;
    data.m_bYCurves = m_bYCurves;
    data.m_bSavePictures = m_bSavePictures;
    data.m_dLimits = m_dLimits;
    return data;
}

namespace {

/// Hands the lines of a file to the reader; false when it was cancelled.
bool ReadLines(const PositionalFile& file, StarTestReader& reader, WorkProgress* progress)
{
    constexpr std::uint32_t kLinesBetweenReports = 4096;
    FileLines lines(file);
    if (progress)
        progress->SetTotal(file.Size());
    std::uint32_t count = 0;
    std::optional<std::string_view> line;
    do {
        line = lines.Next();
        if (progress && ++count % kLinesBetweenReports == 0) {
            progress->SetDone(lines.BytesRead());
            if (progress->IsCancelled())
                return false;
        }
    } while (line && reader.TakeLine(*line));
    return true;
}

} // namespace

StarTestResult StarTestData::Read(const std::filesystem::path& path, WorkProgress* progress)
{
    PositionalFile file;
    m_openStatus = file.Open(path);
    if (m_openStatus != FileStatus::Ok)
        return StarTestResult::CantOpen;

    StarTestData read = WithoutSweeps();
    read.m_TestName = "StarTest";
    read.m_path = path;
    StarTestReader reader(read, file.Size());
    if (!ReadLines(file, reader, progress))
        return StarTestResult::Cancelled;
    if (!reader.HasSweeps() && !reader.HasTag())
        return StarTestResult::WrongKind;
    reader.Finish();
    if (!reader.HasSweeps())
        return StarTestResult::NoSweeps;
    *this = std::move(read);
    return StarTestResult::Ok;
}

std::string StarTestData::DescribeFailure(StarTestResult result) const
{
    switch (result) {
    case StarTestResult::Ok:
        return {};
    case StarTestResult::CantOpen:
        return std::string(Describe(m_openStatus));
    case StarTestResult::WrongKind:
        return "Not a star test file";
    case StarTestResult::NoSweeps:
        return "The star test has no sweeps";
    case StarTestResult::Cancelled:
        return "Reading was cancelled";
    }
    return {};
}

bool StarTestData::AppendSummary(
    const std::filesystem::path& folder, std::string_view date, std::string_view time) const
{
    const StarTestSweep* const sweep = SelectedSweep();
    if (!sweep)
        return false;
    const std::filesystem::path target = folder / "StarTest";
    std::error_code ignored; // A folder that cannot be made shows when the file is opened.
    std::filesystem::create_directories(target, ignored);
    AppendFile log;
    return log.Open(target / "A2MotorVibrationTest.txt")
        && log.Append(Format("Date %s\tTime %s\t%5.2f\t%d\t%5.2f\n", std::string(date).c_str(),
            std::string(time).c_str(), sweep->m_dApplicationFactor,
            sweep->m_iApplicationFactorCount, sweep->FactorDeviation()));
}

StarTestReportRow StarTestData::ReportRow(const StarTestSweep& sweep) const
{
    StarTestReportRow row;
    row.resolution = sweep.m_iResolution;
    row.isColour = sweep.m_bColour;
    for (std::size_t i = 0; std::cmp_less(i + 1, sweep.m_iPointCount); ++i)
        row.values.push_back({sweep.m_Points[i].m_dDeviation, m_dLimits[std::min(i, kLimits - 1)]});
    return row;
}

void StarTestData::Select(std::int64_t index)
{
    const std::int64_t last = std::max<std::int64_t>(std::ssize(m_sweeps) - 1, 0);
    m_iSelectedIndex = static_cast<std::size_t>(std::clamp<std::int64_t>(index, 0, last));
}

const StarTestSweep* StarTestData::SelectedSweep() const
{
    return m_iSelectedIndex < m_sweeps.size() ? &m_sweeps[m_iSelectedIndex] : nullptr;
}

bool StarTestData::HasLines() const
{
    return std::ranges::any_of(
        m_sweeps, [](const StarTestSweep& sweep) { return sweep.LineCount() > 0; });
}

std::size_t StarTestData::MeasuredCount() const
{
    if (m_iRepeat < 1)
        return m_sweeps.size();
    return m_sweeps.size() - m_sweeps.size() / (static_cast<std::size_t>(m_iRepeat) + 1);
}

std::optional<std::string> StarTestData::RawPictureName(std::size_t index) const
{
    if (index >= MeasuredCount() || m_sweeps[index].m_bAvgResult)
        return std::nullopt;
    const std::size_t rounds = m_iRepeat < 1 ? 1 : static_cast<std::size_t>(m_iRepeat);
    const std::size_t inRound = std::max<std::size_t>(MeasuredCount() / rounds, 1);
    return Format("StarTest_Raw_%d%d.tif", static_cast<int>(index / inRound),
        static_cast<int>(index % inRound));
}

} // namespace vireo
