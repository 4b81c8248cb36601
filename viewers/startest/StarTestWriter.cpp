#include "viewers/startest/StarTestWriter.h"

#include "platform/AtomicFile.h"
#include "platform/Text.h"
#include "testfile/HeaderNames.h"
#include "viewers/startest/StarTestData.h"

namespace vireo {

std::string StarTestFileStart(
    const TestFileHeader& header, std::size_t sweepCount, std::int32_t repeat)
{
    constexpr int kVersion = 1;
    std::string text = std::string(tag::kStarTest) + '\n';
    text += Format("Version = %d\n", kVersion);
    text += Format("Sweep = %d\n", static_cast<int>(sweepCount));
    if (repeat > 0)
        text += Format("Repeat = %d\n", repeat);
    return text + header.Text() + "BEGIN_DATA\n";
}

namespace {

std::string SettingsText(const StarTestSweep& sweep)
{
    return Format("Length = %d\nScanSpeed = %d\nScanWidth = %5.1f\nResolution = %d\n",
               sweep.LineCount(), sweep.m_iScanSpeed, sweep.m_dScanWidth, sweep.m_iResolution)
        + Format("XVib_Start = %d\nXVib_End = %d\nYVib_Start = %d\nYVib_End = %d\n",
            sweep.m_iXVib_Start, sweep.m_iXVib_End, sweep.m_iYVib_Start, sweep.m_iYVib_End)
        + Format("WideLine_Start = %d\nWideLine_End = %d\nScanSpeedIndex = %d\n",
            sweep.m_iWideLine_Start, sweep.m_iWideLine_End, sweep.m_iScanSpeedIndex)
        + Format("ScanSpeedWidth = %d\nScanSpeedBytePerPix = %d\nAvgResult = %d\n",
            sweep.m_iScanSpeedWidth, sweep.m_iScanSpeedBytePerPix, sweep.m_bAvgResult ? 1 : 0);
}

/// The separators are what old readers expect, blanks here and tabs there.
std::string RowText(std::size_t line, const StarTestRow& row)
{
    return Format("%d\t %5.2f\t%5.2f\t%d\t%5.2f\t %d\t%d\t%d %5.2f\t%5.2f %d\t%d\t\n",
        static_cast<int>(line), static_cast<double>(row.xPosition),
        static_cast<double>(row.yPosition), row.yPositionColumn, static_cast<double>(row.wideLine),
        row.timeStamp, row.byteCount, row.lineIndex, static_cast<double>(row.xLineWidth),
        static_cast<double>(row.yLineWidth), row.xRestart, row.yRestart);
}

} // namespace

FileStatus WriteStarTestSweep(const StarTestSweep& sweep, const StarTestSink& sink)
{
    FileStatus status = sink(SettingsText(sweep));
    const auto lines = static_cast<std::size_t>(sweep.LineCount());
    for (std::size_t i = 0; status == FileStatus::Ok && i < lines; ++i)
        status = sink(RowText(i, sweep.Row(i)));
    return status == FileStatus::Ok ? sink("END_DATA\n") : status;
}

FileStatus StarTestData::Write(const std::filesystem::path& path) const
{
    AtomicFile file;
    FileStatus status = file.Open(path);
    const auto write = [&file](std::string_view text) { return file.Write(text); };
    if (status == FileStatus::Ok)
        status = write(StarTestFileStart(m_header, m_sweeps.size(), m_iRepeat));
    for (std::size_t i = 0; status == FileStatus::Ok && i < MeasuredCount(); ++i)
        status = WriteStarTestSweep(m_sweeps[i], write);
    return status == FileStatus::Ok ? file.Commit() : status;
}

} // namespace vireo
