#include "viewers/lightprofile/LightProfileData.h"

#include "platform/Text.h"
#include "testfile/NoiseLayout.h"
#include "viewers/controls/PositionUnit.h"

#include <algorithm>
#include <numeric>

namespace vireo {

namespace {

/// Scan width, in units of 4.24 inches, of a scanner that does not tell.
constexpr double kDefaultWidthFactor = 8.5;

bool IsLightProfileTag(const TestFileHeader& header)
{
    return header.IsLightProfile() || header.IsG3LightProfile();
}

} // namespace

LightProfileResult LightProfileData::Read(const std::filesystem::path& path, Accept accept)
{
    *this = LightProfileData();
    m_path = path;
    PositionalFile file;
    m_openStatus = file.Open(path);
    return m_openStatus == FileStatus::Ok ? ReadForm(file, accept) : LightProfileResult::CantOpen;
}

LightProfileResult LightProfileData::ReadForm(PositionalFile& file, Accept accept)
{
    TestFileHeader probe;
    probe.LoadProbe(file);
    const bool isTagged = IsLightProfileTag(probe) || probe.IsNoiseTest();
    TestFileHeader header;
    m_headerStatus = header.Load(file);
    if (m_headerStatus == HeaderResult::Ok) {
        if (isTagged || (accept == Accept::AnyFile && header.HasKey("DataPointer=")))
            return ReadText(file, header);
    } else if (isTagged) {
        return LightProfileResult::BadHeader;
    }
    return ReadOld(file, accept);
}

LightProfileResult LightProfileData::ReadText(PositionalFile& file, const TestFileHeader& header)
{
    m_headerText = header.Text();
    m_record = LightProfileRecord::Of(header);
    SampleLayout layout;
    layout.offset = static_cast<std::uint64_t>(header.DataOffset());
    m_dataLength = static_cast<std::int64_t>(file.Size() - layout.offset);
    if (header.IsNoiseTest() && !IsLightProfileTag(header)) {
        LayOutPlanes(layout, NoiseLayout::Of(header, file.Size()));
    } else {
        layout.isSigned32 = m_record.isSigned32;
        layout.planes = m_record.IsInterleaved() ? SampleLayout::kColourPlanes : 1;
        layout.samples = m_dataLength / layout.BytesPerSample();
        layout.planeLength = layout.samples / layout.planes;
        LayOutLines(layout, AnnouncedWidth(header), m_record.height);
    }
    if (FirstShown() == ShownColour::Red || FirstShown() == ShownColour::Blue)
        layout.onePlane = static_cast<Plane>(m_record.color);
    m_lines = SampleLines(std::move(file), layout);
    return LightProfileResult::Ok;
}

/// Pixels a line by the header: what the cameras have, else its length; negative where it says so.
std::int64_t LightProfileData::AnnouncedWidth(const TestFileHeader& header) const
{
    const std::int64_t ofCameras = Cameras().LineWidth();
    return ofCameras > 0 ? ofCameras : AnnouncedLineLength(header).value_or(0);
}

LightProfileResult LightProfileData::ReadOld(PositionalFile& file, Accept accept)
{
    OldFileHeader header;
    if (!header.Load(file))
        return LightProfileResult::TooShort;
    const bool isNoise = header.type == OldFileHeader::kTypeNoise;
    if (accept != Accept::AnyFile && !isNoise && header.type != OldFileHeader::kTypeLightProfile
        && header.formatMark != OldFileHeader::kLightProfileMark)
        return LightProfileResult::WrongKind;
    SampleLayout layout;
    layout.offset = OldFileHeader::kBytes;
    m_dataLength = static_cast<std::int64_t>(file.Size() - layout.offset);
    if (header.resolution > 0)
        m_record.resolution = header.resolution;
    const NoiseLayout planes = NoiseLayout::Of(header, file.Size());
    if (isNoise || planes.hasColour) {
        LayOutPlanes(layout, planes);
        if (isNoise && planes.planeBytes > 0)
            m_record.scannerName = ReadTrailerName(file, planes.TrailerOffset());
    } else {
        layout.samples = layout.planeLength = m_dataLength;
        if (header.height > 0)
            m_record.height = header.height;
        LayOutLines(layout, header.width, m_record.height);
    }
    m_lines = SampleLines(std::move(file), layout);
    return LightProfileResult::Ok;
}

/// Divides the planes into lines, of which there are as many as the data hold.
void LightProfileData::LayOutLines(
    SampleLayout& layout, std::int64_t announcedWidth, std::optional<int> announcedLines)
{
    layout.lineWidth = announcedWidth > 0 ? announcedWidth : layout.planeLength;
    layout.lineCount = 1;
    if (layout.lineWidth > 0)
        layout.lineCount = std::max<std::int64_t>(layout.planeLength / layout.lineWidth, 1);
    // Neither overflows: a width is a sum of eight 32-bit numbers, and so is a number of lines.
    const std::int64_t announced = std::clamp<std::int64_t>(
        announcedLines.value_or(1), 1, std::max<std::int64_t>(layout.lineCount + 1, 1));
    const std::int64_t pixels = announcedWidth < 0 ? announcedWidth : announced * layout.lineWidth;
    layout.lineWidth = std::min(layout.lineWidth, layout.planeLength);
    Complain(layout, pixels, layout.planeLength);
}

/// One line, plane after plane.
void LightProfileData::LayOutPlanes(SampleLayout& layout, const NoiseLayout& noise)
{
    layout.isInterleaved = false;
    layout.planes = noise.PlaneCount();
    layout.samples = static_cast<std::int64_t>(noise.dataLength);
    // Where the data are too short or the length is none, the planes share what is there.
    const std::int64_t share = layout.samples / layout.planes;
    const bool isLengthUsable = noise.lineLength > 0 && noise.planeBytes > 0;
    layout.planeLength = isLengthUsable ? std::min(noise.lineLength, noise.planeBytes) : share;
    layout.stride = isLengthUsable ? noise.planeBytes : share;
    layout.planeLength = std::min(layout.planeLength, layout.samples);
    layout.lineWidth = layout.planeLength;
    layout.lineCount = 1;
    // The last plane is the one that is cut short.
    const std::int64_t ofLast = std::clamp<std::int64_t>(
        layout.samples - (layout.planes - 1) * layout.stride, 0, layout.planeLength);
    Complain(layout, noise.lineLength, ofLast);
}

void LightProfileData::Complain(
    const SampleLayout& layout, std::int64_t announced, std::int64_t present)
{
    if (announced < 0)
        m_complaint = "The header's line length is negative.\nThe data are shown as they are.";
    else if (announced > present)
        m_complaint = Format("The file ends before its profile does.\n%lld of at least %lld pixels "
                             "of each plane are there.",
            static_cast<long long>(present), static_cast<long long>(announced));
    const std::int64_t mostShown = SampleLines::kMaxShownBytes / layout.BytesPerSample();
    if (layout.lineWidth <= mostShown)
        return;
    m_complaint += m_complaint.empty() ? "" : "\n";
    m_complaint += Format("A line is too long to be shown whole: its first %lld pixels are.",
        static_cast<long long>(mostShown));
}

std::string LightProfileData::DescribeFailure(LightProfileResult result) const
{
    switch (result) {
    case LightProfileResult::Ok:
        return {};
    case LightProfileResult::CantOpen:
        return std::string(Describe(m_openStatus));
    case LightProfileResult::WrongKind:
        return "Not a light profile";
    case LightProfileResult::BadHeader:
        return std::string(Describe(m_headerStatus));
    case LightProfileResult::TooShort:
        return "The file is too short for a header";
    }
    return {};
}

ShownColour LightProfileData::FirstShown() const
{
    if (HasColour())
        return ShownColour::All;
    constexpr int kLastColour = static_cast<int>(ShownColour::Blue);
    const bool isOneColour = m_record.color >= 0 && m_record.color <= kLastColour;
    return isOneColour ? static_cast<ShownColour>(m_record.color) : ShownColour::Gray;
}

ProfileCameras LightProfileData::Cameras() const
{
    ProfileCameras cameras;
    cameras.pixels = m_record.cameraPixels;
    const std::int64_t ofCameras = cameras.LineWidth();
    const std::int64_t pixels = ofCameras > 0 ? ofCameras : m_lines.LineWidth();
    if (pixels <= 0)
        return cameras;
    const double inches = m_record.scannerWidth.value_or(0) > 0
        ? *m_record.scannerWidth / kScannerWidthPerUnit * kInchesPerWidthUnit
        : kDefaultWidthFactor * kInchesPerWidthUnit;
    cameras.pixelPitchMm = inches * kMillimetresPerInch / static_cast<double>(pixels);
    if (m_record.scannerWidth.value_or(0) <= 0 && m_record.resolution.value_or(0) > 0)
        cameras.pixelPitchMm = kMillimetresPerInch / *m_record.resolution;
    return cameras;
}

} // namespace vireo
