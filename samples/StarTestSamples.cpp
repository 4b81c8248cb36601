#include "samples/StarTestSamples.h"

#include "samples/SampleRandom.h"
#include "testfile/TestFileHeader.h"
#include "viewers/startest/StarTestWriter.h"

#include <algorithm>
#include <cstdlib>

namespace vireo {

namespace {

// Lengths are hundredths of a pixel, so that every system makes the same file.
constexpr int kPixel = 100;
constexpr std::int32_t kSpeedEntryLines = 50;
constexpr std::int32_t kMillisecondsPerLine = 1;
constexpr std::int32_t kStopMilliseconds = 2000;
constexpr std::int32_t kBytesPerLine = 15'000;

/// A wave of a period in lines from -`height` to `height`: parabolas for the halves of a sine.
int Wave(std::int64_t line, std::int64_t period, int height)
{
    const std::int64_t half = period / 2;
    const std::int64_t at = line % period;
    const std::int64_t inHalf = at % half;
    const auto value = static_cast<int>(4 * height * inHalf * (half - inHalf) / (half * half));
    return at < half ? value : -value;
}

/// What shifts a target line at a scan line.
class Carriage {
public:
    Carriage(const SweepSetup& setup, std::uint64_t seed) : m_setup(setup), m_random(seed)
    {
        m_phase = m_random.Between(0, 40);
    }

    int Vibration(std::int64_t line)
    {
        const int strength = m_setup.scanSpeed;
        int shift = Wave(line + m_phase, 38, 14 * strength) + Wave(line, 12, 6 * strength);
        shift += Noise(7);
        const std::int64_t sinceStop = line - m_setup.motorStopLine;
        constexpr std::int64_t kJoltLines = 60;
        if (m_setup.motorStopLine > 0 && sinceStop >= 0 && sinceStop < kJoltLines)
            shift += static_cast<int>(4 * (kJoltLines - sinceStop));
        return shift;
    }

    /// The target lies a little askew, and its sheet waves.
    int Sway(std::int64_t line) const
    {
        return static_cast<int>(line * 240 / m_setup.lineCount) + Wave(line, 420, 90);
    }

    int Noise(int deviation)
    {
        return m_random.Normal() * deviation / SampleRandom::kNormalDeviation;
    }

private:
    const SweepSetup& m_setup;
    SampleRandom m_random;
    int m_phase = 0;
};

float Pixels(std::int64_t hundredths)
{
    return static_cast<float>(static_cast<double>(hundredths) / kPixel);
}

/// A star of lines at 45 degrees: each is followed for `spacing` scan lines, then the next one.
struct TargetLines {
    std::int64_t spacing;
    std::int64_t firstRestart;
    std::int64_t start; ///< Position at a restart, in pixels.

    bool RestartsAt(std::int64_t line) const
    {
        return line >= firstRestart && (line - firstRestart) % spacing == 0;
    }
    std::int64_t PositionAt(std::int64_t line) const
    {
        const std::int64_t since = (line - firstRestart + spacing) % spacing;
        return kPixel * (start - since);
    }
};

std::vector<ScanSpeedEntry> SpeedEntries(const SweepSetup& setup)
{
    std::vector<ScanSpeedEntry> entries;
    std::int32_t time = 1000;
    for (std::int32_t line = 0; line < setup.lineCount; line += kSpeedEntryLines) {
        const std::int32_t behind = line + kSpeedEntryLines;
        const bool stops = setup.motorStopLine > line && setup.motorStopLine <= behind;
        time += stops ? kStopMilliseconds : kSpeedEntryLines * kMillisecondsPerLine;
        entries.push_back({time, kSpeedEntryLines * kBytesPerLine * setup.scanSpeed / 4, behind});
    }
    return entries;
}

} // namespace

StarTestSweep MakeSweep(const SweepSetup& setup, std::uint64_t seed)
{
    constexpr TargetLines kX{170, 60, 2400};
    constexpr TargetLines kY{210, 90, 900};
    constexpr std::int32_t kYColumn = 1180;
    constexpr std::int64_t kWidePosition = 3000;
    Carriage carriage(setup, seed);
    const std::vector<ScanSpeedEntry> entries = SpeedEntries(setup);
    std::vector<StarTestRow> rows(static_cast<std::size_t>(setup.lineCount));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto line = static_cast<std::int64_t>(i);
        const int vibration = carriage.Vibration(line);
        const int sway = carriage.Sway(line);
        StarTestRow& row = rows[i];
        row.xPosition = Pixels(kX.PositionAt(line) + vibration + sway);
        row.yPosition = Pixels(kY.PositionAt(line) + vibration / 2 + sway + carriage.Noise(5));
        row.yPositionColumn = kYColumn;
        row.wideLine = Pixels(kWidePosition * kPixel + sway + carriage.Noise(30));
        row.xLineWidth = Pixels(420 + carriage.Noise(12) + std::abs(vibration) / 8);
        row.yLineWidth = Pixels(390 + carriage.Noise(12));
        row.xRestart = kX.RestartsAt(line) ? 1 : 0;
        row.yRestart = kY.RestartsAt(line) ? 1 : 0;
        if (i < entries.size()) {
            row.timeStamp = entries[i].timeStamp;
            row.byteCount = entries[i].byteCount;
            row.lineIndex = entries[i].lineIndex;
        }
    }
    StarTestSweep sweep;
    sweep.SetRows(rows, setup.lineCount);
    sweep.m_iScanSpeed = setup.scanSpeed;
    sweep.m_dScanWidth = 8.5;
    sweep.m_iResolution = setup.resolution;
    sweep.m_iXVib_Start = 20;
    sweep.m_iXVib_End = setup.lineCount - 20;
    sweep.m_iYVib_Start = 40;
    sweep.m_iYVib_End = setup.lineCount - 30;
    sweep.m_iWideLine_Start = 5;
    sweep.m_iWideLine_End = setup.lineCount - 5;
    sweep.m_iScanSpeedIndex = static_cast<std::int32_t>(entries.size());
    sweep.m_iScanSpeedWidth = 5100;
    sweep.m_iScanSpeedBytePerPix = 3;
    return sweep;
}

std::string StarTestFile(const StarTestSetup& setup)
{
    TestFileHeader header;
    header.WriteScannerName("Heron 36");
    header.WriteScannerID("H36-00417");
    header.WriteFirmwareRevision(7);
    header.WriteScannerFamily(5);
    header.WriteDate("2026-03-14");
    header.WriteTime("11:05:40");
    const std::int32_t rounds = std::max(setup.repeat, 1);
    const std::size_t measured = setup.sweeps.size() * static_cast<std::size_t>(rounds);
    const std::size_t averages = setup.repeat > 0 ? setup.sweeps.size() : 0;

    std::string text = StarTestFileStart(header, measured + averages, setup.repeat);
    const auto append = [&text](std::string_view piece) {
        text += piece;
        return FileStatus::Ok;
    };
    std::uint64_t seed = setup.seed;
    for (std::int32_t round = 0; round < rounds; ++round)
        for (const SweepSetup& sweep : setup.sweeps)
            static_cast<void>(WriteStarTestSweep(MakeSweep(sweep, seed++), append));
    return text;
}

std::vector<SampleFile> StarTestSamples()
{
    StarTestSetup sweeps;
    sweeps.name = "startest-sweeps.con";
    sweeps.sweeps = {{700, 300, 2, 0}, {700, 300, 4, 0}, {900, 600, 6, 420}};
    sweeps.seed = 401;
    StarTestSetup repeats;
    repeats.name = "startest-repeats.con";
    repeats.sweeps = {{600, 300, 3, 0}, {600, 300, 5, 0}};
    repeats.repeat = 2;
    repeats.seed = 411;
    std::vector<SampleFile> files;
    for (const StarTestSetup& setup : {sweeps, repeats})
        files.push_back({setup.name, StarTestFile(setup)});
    return files;
}

} // namespace vireo
