#include "viewers/noise/NoiseData.h"

#include "platform/AtomicFile.h"
#include "testfile/NoiseLayout.h"
#include "viewers/controls/PositionUnit.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace vireo {

namespace {

/// The rounded mean of a plane.
int AverageOf(std::span<const std::uint8_t> samples)
{
    if (samples.empty())
        return 0;
    // The sum of a piece fits into 32 bits, which vectorises.
    constexpr std::size_t kPiece = 64 * 1024;
    std::uint64_t sum = 0;
    for (std::size_t first = 0; first < samples.size(); first += kPiece) {
        const auto piece = samples.subspan(first, std::min(kPiece, samples.size() - first));
        sum += std::accumulate(piece.begin(), piece.end(), std::uint32_t{0});
    }
    return static_cast<int>((sum + samples.size() / 2) / samples.size());
}

} // namespace

NoiseResult NoiseData::Read(const std::filesystem::path& path)
{
    *this = NoiseData();
    PositionalFile file;
    const FileStatus opened = file.Open(path);
    const NoiseResult result = opened == FileStatus::Ok ? ReadForm(file) : NoiseResult::CantOpen;
    if (result != NoiseResult::Ok) {
        const HeaderResult headerStatus = m_headerStatus;
        *this = NoiseData();
        m_headerStatus = headerStatus;
    }
    m_openStatus = opened;
    m_path = path;
    return result;
}

NoiseResult NoiseData::ReadForm(const PositionalFile& file)
{
    TestFileHeader header;
    m_headerStatus = header.Load(file);
    if (m_headerStatus == HeaderResult::Ok && header.IsNoiseTest())
        return ReadText(file, header);
    const NoiseResult binary = ReadBinary(file);
    if (binary != NoiseResult::WrongKind || m_headerStatus == HeaderResult::Ok)
        return binary;
    // Neither form: a file that says it is a noise test is told what is wrong with its header.
    header.LoadProbe(file);
    return header.IsNoiseTest() ? NoiseResult::BadHeader : NoiseResult::WrongKind;
}

NoiseResult NoiseData::ReadText(const PositionalFile& file, const TestFileHeader& header)
{
    ReadHeaderValues(header);
    return ReadPlanes(file, NoiseLayout::Of(header, file.Size()));
}

void NoiseData::ReadHeaderValues(const TestFileHeader& header)
{
    m_headerText = header.Text();
    m_ScannerName = header.ScannerName().value;
    m_ScannerID = header.ScannerID().value;
    m_Date = header.Date().value;
    m_Time = header.Time().value;
    if (const HeaderValue<int> limit = header.NoiseLimit(); limit.found && limit.value > 0)
        m_iNoiseLimit = limit.value;
    if (const HeaderValue<int> width = header.ScannerWidth(); width.found && width.value > 0)
        SetScanWidth(width.value);
}

NoiseResult NoiseData::ReadBinary(const PositionalFile& file)
{
    OldFileHeader header;
    if (!header.Load(file) || header.type != OldFileHeader::kTypeNoise)
        return NoiseResult::WrongKind;
    const NoiseLayout layout = NoiseLayout::Of(header, file.Size());
    const NoiseResult result = ReadPlanes(file, layout);
    if (result == NoiseResult::Ok)
        m_ScannerName = ReadTrailerName(file, layout.TrailerOffset());
    return result;
}

NoiseResult NoiseData::ReadPlanes(const PositionalFile& file, const NoiseLayout& layout)
{
    m_bHasColour = layout.hasColour;
    m_bHasGray = layout.hasGray;
    if (layout.lineLength < 0)
        return NoiseResult::BadLength;
    // Both are far from overflowing: a length comes from a 32-bit number or the file's own size.
    if (layout.lineLength > layout.planeBytes
        || static_cast<std::uint64_t>(layout.lineLength)
            > layout.dataLength / (m_bHasColour ? NoiseLayout::kColourPlanes : 1))
        return NoiseResult::TooShort;
    if (layout.lineLength > kMaxPixels)
        return NoiseResult::TooLarge;
    m_iLineLength = static_cast<std::int32_t>(layout.lineLength);
    m_shown = m_bHasColour ? ShownColour::Green : ShownColour::Gray;

    std::uint64_t offset = layout.offset;
    for (const ShownColour colour : Planes()) {
        NoisePlane& plane = Slot(colour);
        plane.trace.samples.resize(static_cast<std::size_t>(m_iLineLength));
        if (file.ReadAt(offset, plane.trace.samples) != plane.trace.samples.size())
            return NoiseResult::TooShort; // Somebody is shortening the file.
        Evaluate(plane);
        offset += static_cast<std::uint64_t>(layout.planeBytes);
    }
    return NoiseResult::Ok;
}

void NoiseData::Evaluate(NoisePlane& plane)
{
    plane.average = AverageOf(plane.trace.samples);
    plane.dips = FindNoiseMarks(plane.trace.samples, plane.Band(), NoiseMarkKind::Dip);
    plane.peaks = FindNoiseMarks(plane.trace.samples, plane.Band(), NoiseMarkKind::Peak);
}

int NoisePlane::StretchesOutside(int percent) const
{
    constexpr int kWidestBand = 1000; // Of which nothing is outside, whatever a file says.
    percent = std::clamp(percent, 0, kWidestBand);
    std::size_t count = 0;
    for (const NoiseMarkKind kind : {NoiseMarkKind::Dip, NoiseMarkKind::Peak})
        count += percent == NoiseBand::kPercent
            ? Marks(kind).size()
            : FindNoiseMarks(trace.samples, Band(percent), kind).size();
    return static_cast<int>(count);
}

void NoiseData::TakeLine(std::span<const std::vector<std::uint8_t>> planes)
{
    const bool hasColour = static_cast<std::int64_t>(planes.size()) >= NoiseLayout::kColourPlanes;
    if (hasColour != m_bHasColour || m_iLineLength == 0)
        m_shown = hasColour ? ShownColour::Green : ShownColour::Gray;
    m_bHasColour = hasColour;
    m_bHasGray = false;
    m_planes = {};
    const std::vector<ShownColour> slots = Planes();
    for (std::size_t i = 0; i < slots.size(); ++i) {
        Slot(slots[i]).trace.samples = planes[i];
        Evaluate(Slot(slots[i]));
    }
    m_iLineLength = static_cast<std::int32_t>(planes[0].size());
}

void NoiseData::SetScanWidth(int per1200)
{
    m_dWidthFactor = per1200 / kScannerWidthPerUnit;
}

std::string NoiseData::DescribeFailure(NoiseResult result) const
{
    switch (result) {
    case NoiseResult::Ok:
        return {};
    case NoiseResult::CantOpen:
        return std::string(Describe(m_openStatus));
    case NoiseResult::WrongKind:
        return "Not a noise test file";
    case NoiseResult::BadHeader:
        return std::string(Describe(m_headerStatus));
    case NoiseResult::BadLength:
        return "The line length is negative";
    case NoiseResult::TooShort:
        return "The file ends before its line does";
    case NoiseResult::TooLarge:
        return "The line has too many pixels";
    }
    return {};
}

void NoiseData::Summarise()
{
    for (NoisePlane& plane : m_planes)
        plane.trace.pyramid.Build(plane.trace.samples);
}

namespace {

std::size_t SlotOf(ShownColour colour)
{
    switch (colour) {
    case ShownColour::Red:
        return 0;
    case ShownColour::Blue:
        return 2;
    case ShownColour::Gray:
        return 3;
    case ShownColour::Green:
    case ShownColour::All:
        break;
    }
    return 1;
}

} // namespace

NoisePlane& NoiseData::Slot(ShownColour colour)
{
    return m_planes[SlotOf(colour)];
}

const NoisePlane* NoiseData::PlaneOf(ShownColour colour) const
{
    if (colour == ShownColour::Gray && !m_bHasColour)
        colour = ShownColour::Green;
    const NoisePlane& plane = m_planes[SlotOf(colour)];
    return plane.trace.samples.empty() ? nullptr : &plane;
}

int NoiseData::ShownAverage() const
{
    const NoisePlane* plane = ShownPlane();
    return plane ? plane->average : 0;
}

std::vector<ShownColour> NoiseData::Planes() const
{
    if (!m_bHasColour)
        return {ShownColour::Green};
    std::vector<ShownColour> planes{ShownColour::Red, ShownColour::Green, ShownColour::Blue};
    if (m_bHasGray)
        planes.push_back(ShownColour::Gray);
    return planes;
}

FileStatus NoiseData::Save(const std::filesystem::path& path) const
{
    TestFileHeader header;
    header.WriteNoiseTestTag();
    header.WriteColorScanner(m_bHasColour);
    header.WriteScannerWidth(static_cast<int>(std::lround(m_dWidthFactor * kScannerWidthPerUnit)));
    header.WriteColor(
        m_bHasColour ? TestFileHeader::kColorInterleaved : TestFileHeader::kColorGray);
    if (m_iNoiseLimit)
        header.WriteNoiseLimit(*m_iNoiseLimit);
    header.WriteLength(m_iLineLength);
    // Free texts come last: the first occurrence of a key counts, wherever it stands.
    if (!m_Date.empty())
        header.WriteDate(m_Date);
    if (!m_Time.empty())
        header.WriteTime(m_Time);
    if (!m_ScannerID.empty())
        header.WriteScannerID(m_ScannerID);
    header.WriteScannerName(m_ScannerName);
    header.FixUpDataOffset();

    AtomicFile file;
    FileStatus status = file.Open(path);
    if (status == FileStatus::Ok)
        status = file.Write(header.Text());
    for (const ShownColour colour : Planes()) {
        const NoisePlane* plane = PlaneOf(colour);
        if (status == FileStatus::Ok && plane)
            status = file.Write(plane->trace.samples);
    }
    return status == FileStatus::Ok ? file.Commit() : status;
}

} // namespace vireo
