#include "viewers/oscilloscope/OscilloscopeData.h"

#include "platform/ByteReader.h"
#include "platform/Text.h"
#include "testfile/TestFileHeader.h"
#include "viewers/controls/PositionUnit.h"

#include <algorithm>
#include <numeric>

namespace vireo {

namespace {

/// Statistics are taken in pieces of this many pixels: large enough to read at full speed, small
/// enough to stay in the processor's cache.
constexpr std::int64_t kPiecePixels = 64 * 1024;
constexpr std::size_t kMtfPlanes = 5;
/// Of the MTF block: three 32-bit values, and a 64-bit value and a byte a camera boundary.
constexpr std::int64_t kMtfValuesBytes = 12;
constexpr std::int64_t kMtfBytesPerBoundary = 9;

} // namespace

OscilloscopeResult OscilloscopeData::Read(const std::filesystem::path& path, OscilloscopeKind kind)
{
    *this = OscilloscopeData();
    m_path = path;
    m_openStatus = m_file.Open(path);
    if (m_openStatus != FileStatus::Ok)
        return OscilloscopeResult::CantOpen;

    m_bMtf = kind == OscilloscopeKind::Mtf;
    if (kind == OscilloscopeKind::ByTag) {
        const OscilloscopeResult result = ReadKind();
        if (result != OscilloscopeResult::Ok)
            return result;
    }
    TestFileHeader header;
    m_headerStatus = header.Load(m_file);
    if (m_headerStatus != HeaderResult::Ok)
        return OscilloscopeResult::BadHeader;
    m_headerText = header.Text();
    m_dataOffset = header.DataOffset();
    m_dataLength = static_cast<std::int64_t>(m_file.Size()) - m_dataOffset;
    ReadHeaderValues(header);
    LayOutData();
    return OscilloscopeResult::Ok;
}

/// Tells the kind by the tags of the first bytes; a tag further on is a value's.
OscilloscopeResult OscilloscopeData::ReadKind()
{
    TestFileHeader header;
    header.LoadProbe(m_file);
    if (header.IsKitbag())
        return OscilloscopeResult::IsKitbag;
    if (header.IsNoiseTest())
        return OscilloscopeResult::IsNoiseTest;
    if (header.IsLightProfile() || header.IsG3LightProfile())
        return OscilloscopeResult::IsLightProfile;
    m_bMtf = header.IsMtf() && !header.IsOscilloscope();
    return m_bMtf || header.IsOscilloscope() ? OscilloscopeResult::Ok
                                             : OscilloscopeResult::WrongKind;
}

std::string OscilloscopeData::DescribeFailure(OscilloscopeResult result) const
{
    switch (result) {
    case OscilloscopeResult::Ok:
        return {};
    case OscilloscopeResult::CantOpen:
        return std::string(Describe(m_openStatus));
    case OscilloscopeResult::IsKitbag:
        return "A packed dump, not an oscilloscope file";
    case OscilloscopeResult::IsNoiseTest:
        return "A noise test file, not an oscilloscope file";
    case OscilloscopeResult::IsLightProfile:
        return "A light profile file, not an oscilloscope file";
    case OscilloscopeResult::WrongKind:
        return "Not an oscilloscope file";
    case OscilloscopeResult::BadHeader:
        return std::string(Describe(m_headerStatus));
    }
    return {};
}

void OscilloscopeData::ReadHeaderValues(const TestFileHeader& header)
{
    const auto take = [this](const auto& read, auto& field, const char* item) {
        field = read.value;
        if (!read.found)
            m_missing.emplace_back(item);
    };
    take(header.ColorScanner(), m_bColorScanner, "Is Color or B/W Scanner");
    take(header.Color(), m_iColor, "Color");
    take(header.CameraUsed(), m_iCameraUsed, "Camera Used");
    take(header.CameraCount(), m_iCameraCount, "Camera Count");
    take(header.Corrected(), m_bCorrected, "Is Corrected/Uncorrected");
    take(header.Date(), m_Date, "Date");
    take(header.Time(), m_Time, "Time");
    take(header.ScannerName(), m_ScannerName, "Scanner Name");
    m_ScannerID = header.ScannerID().value;
    ReadCameraPixels(header);
    take(header.Magnification(), m_iMagnification, "Magnification");
    take(header.CenterLines(), m_iCenterLines, "Center Lines");
    ReadScannerKind(header);

    // Corrected colour data are judged by their blue, the channel with the least light.
    m_iShownColor = m_bColorScanner && m_bCorrected ? 2 : 1;
    m_iPlaneCount = 2;
    if (m_iColor == TestFileHeader::kColorGray) {
        m_iShownColor = TestFileHeader::kColorGray;
        m_iPlaneCount = 1;
    }
}

void OscilloscopeData::ReadCameraPixels(const TestFileHeader& header)
{
    constexpr int kFirstOptionalCamera = 4;
    for (int camera = 0; camera < kCameras; ++camera) {
        const bool announced = camera < m_iCameraCount;
        if (camera < kFirstOptionalCamera && !announced)
            continue;
        const HeaderValue<int> pixels = header.CameraPixels(camera);
        m_iCameraPixels[static_cast<std::size_t>(camera)] = pixels.value;
        if (camera < kFirstOptionalCamera && !pixels.found)
            m_missing.push_back(Format("Get Camera %c Pix", ProfileCameras::Letter(camera)));
        if (camera == kFirstOptionalCamera)
            m_bHasFifthCamera = pixels.found;
    }
}

void OscilloscopeData::ReadScannerKind(const TestFileHeader& header)
{
    const HeaderValue<int> width = header.ScannerWidth();
    if (width.found)
        m_dScannerWidthFactor = width.value / kScannerWidthPerUnit;
    const HeaderValue<int> family = header.ScannerFamily();
    if (family.found)
        m_iScannerFamily = family.value;
    m_iFirmwareRevision = header.FirmwareRevision().value;

    const HeaderValue<int> generation = header.Generation();
    // Generation 5 came in two widths, by which files without the key are told.
    constexpr std::array<int, 2> kGeneration5Widths = {60000, 48000};
    if (generation.found)
        m_iGeneration = generation.value;
    else if (std::ranges::find(kGeneration5Widths, width.value) != kGeneration5Widths.end())
        m_iGeneration = 5;
    else
        m_iGeneration = m_bColorScanner ? 4 : 0;
}

void OscilloscopeData::LayOutData()
{
    m_lineWidth = std::accumulate(m_iCameraPixels.begin(), m_iCameraPixels.end(), std::int64_t{0});
    m_planeLength = m_dataLength / PlanesInData();
    m_lineCount = m_lineWidth > 0 ? std::max<std::int64_t>(m_planeLength / m_lineWidth, 1) : 1;
    if (!m_bMtf)
        return;
    m_lineCount = 1;
    m_iPlaneCount = 2;
    const std::int64_t planesBytes =
        m_dataLength - kMtfValuesBytes - kMtfBytesPerBoundary * MtfBoundaries();
    const auto planes = PlanesInData() + static_cast<std::int64_t>(kMtfPlanes);
    m_planeLength = planesBytes >= 0 && planesBytes % planes == 0
        ? planesBytes / planes
        : std::max<std::int64_t>(m_lineWidth, 0);
}

bool OscilloscopeData::IsInterleaved() const
{
    return m_iColor == TestFileHeader::kColorInterleaved || m_iColor == TestFileHeader::kColorAll;
}

bool OscilloscopeData::HasPlane(Plane plane) const
{
    return plane == Plane::Green || IsInterleaved();
}

std::int64_t OscilloscopeData::PixelsOfLine(std::int64_t line) const
{
    if (line < 0 || line >= m_lineCount)
        return 0;
    const std::int64_t inData = std::min(m_planeLength, m_dataLength / PlanesInData());
    if (m_lineWidth <= 0)
        return inData;
    return std::clamp<std::int64_t>(inData - line * m_lineWidth, 0, m_lineWidth);
}

ProfileCameras OscilloscopeData::Cameras() const
{
    ProfileCameras cameras;
    cameras.pixels = m_iCameraPixels;
    if (const std::int64_t pixels = PixelsOfLine(0); pixels > 0)
        cameras.pixelPitchMm = m_dScannerWidthFactor * kInchesPerWidthUnit * kMillimetresPerInch
            / static_cast<double>(m_lineWidth > 0 ? m_lineWidth : pixels);
    return cameras;
}

int OscilloscopeData::Resolution() const
{
    const double inches = m_dScannerWidthFactor * kInchesPerWidthUnit;
    const double hundreds = static_cast<double>(PixelsOfLine(0)) / inches / 100.0;
    constexpr double kMostHundreds = 1'000'000.0;
    return hundreds > 0.0 && hundreds < kMostHundreds ? static_cast<int>(hundreds) * 100 : 0;
}

bool OscilloscopeData::UsesCameraAdjustment() const
{
    return m_iGeneration >= 9 && m_iCameraCount >= 5;
}

bool OscilloscopeData::ReadPixels(
    std::int64_t line, std::int64_t first, std::int64_t count, PlaneBytes& planes) const
{
    const auto pixels = static_cast<std::size_t>(count);
    const auto at =
        static_cast<std::uint64_t>(std::max<std::int64_t>(m_lineWidth, 0) * line + first);
    const auto offset = static_cast<std::uint64_t>(m_dataOffset);
    if (!IsInterleaved()) {
        auto& green = planes[static_cast<std::size_t>(Plane::Green)];
        green.resize(pixels);
        return m_file.ReadAt(offset + at, green) == pixels;
    }
    m_interleaved.resize(3 * pixels);
    if (m_file.ReadAt(offset + 3 * at, m_interleaved) != m_interleaved.size())
        return false;
    for (auto& plane : planes)
        plane.resize(pixels);
    std::uint8_t* const red = planes[0].data();
    std::uint8_t* const green = planes[1].data();
    std::uint8_t* const blue = planes[2].data();
    const std::uint8_t* triplet = m_interleaved.data();
    for (std::size_t i = 0; i < pixels; ++i, triplet += 3) {
        red[i] = triplet[0];
        green[i] = triplet[1];
        blue[i] = triplet[2];
    }
    return true;
}

bool OscilloscopeData::ReadLine(std::int64_t line, ProfileLine& profile) const
{
    const std::int64_t pixels = std::min(PixelsOfLine(line), kMaxShownPixels);
    PlaneBytes planes;
    // The buffers of the line before are used again: an animation then allocates nothing.
    for (std::size_t i = 0; i < planes.size(); ++i)
        planes[i] = std::move(profile.planes[i].samples);
    const bool complete = ReadPixels(line, 0, pixels, planes);
    for (std::size_t i = 0; i < planes.size(); ++i) {
        if (!complete || !HasPlane(static_cast<Plane>(i)))
            planes[i].clear();
        profile.planes[i].samples = std::move(planes[i]);
    }
    profile.extras.clear();
    if (std::optional<MtfExtra> extra = ReadMtfExtra()) {
        for (std::size_t i = 0; i < kMtfPlanes; ++i)
            profile.extras.push_back(
                {Format("MTF %d", static_cast<int>(i) + 1), {std::move(extra->planes[i]), {}}});
    }
    profile.Summarise();
    return complete;
}

namespace {

/// Gathers lowest, highest and sum of samples piece by piece.
struct Gatherer {
    int min = 255;
    int max = 0;
    std::uint64_t sum = 0;
    std::int64_t count = 0;

    void Add(std::span<const std::uint8_t> samples)
    {
        std::uint8_t low = 255;
        std::uint8_t high = 0;
        // A piece has at most 64 Ki samples of 255: the sum fits into 32 bits, which vectorises.
        std::uint32_t pieceSum = 0;
        for (const std::uint8_t sample : samples) {
            low = std::min(low, sample);
            high = std::max(high, sample);
            pieceSum += sample;
        }
        min = std::min<int>(min, low);
        max = std::max<int>(max, high);
        sum += pieceSum;
        count += static_cast<std::int64_t>(samples.size());
    }

    OscilloscopeData::Statistics Result() const
    {
        return {min, max, static_cast<double>(sum) / static_cast<double>(count)};
    }
};

/// The figures of one plane: of the line and of each camera.
struct PlaneGatherer {
    Gatherer line;
    std::array<Gatherer, ProfileCameras::kCameras> cameras;

    void Add(std::int64_t first, std::span<const std::uint8_t> piece, const ProfileCameras& layout)
    {
        line.Add(piece);
        const std::int64_t end = first + static_cast<std::int64_t>(piece.size());
        for (int camera = 0; camera < ProfileCameras::kCameras; ++camera) {
            const std::int64_t from = std::max(layout.Start(camera), first);
            const std::int64_t to = std::min(layout.End(camera), end);
            if (from < to)
                cameras[static_cast<std::size_t>(camera)].Add(piece.subspan(
                    static_cast<std::size_t>(from - first), static_cast<std::size_t>(to - from)));
        }
    }

    OscilloscopeData::PlaneStatistics Result() const
    {
        OscilloscopeData::PlaneStatistics result{line.Result(), {}};
        for (int camera = 0; camera < ProfileCameras::kCameras; ++camera) {
            const Gatherer& gathered = cameras[static_cast<std::size_t>(camera)];
            if (gathered.count > 0)
                result.cameras.push_back({camera, gathered.Result()});
        }
        return result;
    }
};

} // namespace

OscilloscopeData::LineStatistics OscilloscopeData::ComputeStatistics(std::int64_t line) const
{
    const std::int64_t pixels = PixelsOfLine(line);
    if (pixels <= 0)
        return {};
    const ProfileCameras layout = Cameras();
    std::array<PlaneGatherer, 3> gatherers;
    PlaneBytes planes;
    for (std::int64_t first = 0; first < pixels; first += kPiecePixels) {
        if (!ReadPixels(line, first, std::min(kPiecePixels, pixels - first), planes))
            return {};
        for (std::size_t i = 0; i < planes.size(); ++i)
            if (HasPlane(static_cast<Plane>(i)))
                gatherers[i].Add(first, planes[i], layout);
    }
    LineStatistics statistics;
    for (std::size_t i = 0; i < planes.size(); ++i)
        if (HasPlane(static_cast<Plane>(i)))
            statistics[i] = gatherers[i].Result();
    return statistics;
}

std::optional<OscilloscopeData::MtfExtra> OscilloscopeData::ReadMtfExtra() const
{
    if (!m_bMtf || m_planeLength <= 0 || m_planeLength > kMaxShownPixels)
        return std::nullopt;
    const std::int64_t tables = kMtfValuesBytes + kMtfBytesPerBoundary * MtfBoundaries();
    const std::int64_t lines = PlanesInData() * m_planeLength;
    const std::int64_t extras = static_cast<std::int64_t>(kMtfPlanes) * m_planeLength;
    if (lines + extras + tables > m_dataLength)
        return std::nullopt;

    MtfExtra extra;
    auto offset = static_cast<std::uint64_t>(m_dataOffset + lines);
    for (auto& plane : extra.planes) {
        plane.resize(static_cast<std::size_t>(m_planeLength));
        if (m_file.ReadAt(offset, plane) != plane.size())
            return std::nullopt;
        offset += plane.size();
    }
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(tables));
    if (m_file.ReadAt(offset, bytes) != bytes.size())
        return std::nullopt;
    ByteReader reader(bytes);
    for (std::int32_t& value : extra.values)
        value = reader.ReadI32().value_or(0);
    for (std::int64_t i = 0; i < MtfBoundaries(); ++i)
        extra.table.push_back(static_cast<std::int64_t>(reader.ReadU64().value_or(0)));
    for (std::int64_t i = 0; i < MtfBoundaries(); ++i)
        extra.flags.push_back(reader.ReadU8().value_or(0));
    return extra;
}

} // namespace vireo
