#include "viewers/adjustment/AdjustmentData.h"

#include "platform/Text.h"
#include "testfile/HeaderNames.h"
#include "viewers/controls/PlainRows.h"
#include "viewers/controls/PositionUnit.h"

#include <algorithm>
#include <utility>

namespace vireo {

namespace {

struct TestRow {
    AdjustmentKind kind;
    std::string_view tag;
};
/// The first of each kind is the name it has without a file.
constexpr TestRow kTests[] = {
    {AdjustmentKind::AdjustCenterCcd, tag::kAdjustCenterCcd},
    {AdjustmentKind::AdjustCenterCcd, tag::kScanLinePositioning},
    {AdjustmentKind::VerticalCameraVerification, tag::kVerticalCameraVerification},
    {AdjustmentKind::VerticalCameraVerification, tag::kMirrorCarriageAdjustment},
};

std::string_view WithoutBrackets(std::string_view tag)
{
    return tag.substr(1, tag.size() - 2);
}

/// The name of a file's test; that of the kind where its tag is another's.
std::string_view TitleOf(AdjustmentKind kind, const TestFileHeader& header)
{
    std::string_view title;
    for (const TestRow& row : kTests) {
        if (row.kind != kind)
            continue;
        if (header.HasTag(row.tag))
            return WithoutBrackets(row.tag);
        if (title.empty())
            title = WithoutBrackets(row.tag);
    }
    return title;
}

bool IsKind(AdjustmentKind kind, const TestFileHeader& header)
{
    return kind == AdjustmentKind::AdjustCenterCcd ? header.IsAdjustCenterCCD()
                                                   : header.IsVerticalCameraVerification();
}

} // namespace

AdjustmentResult AdjustmentData::Read(
    const std::filesystem::path& path, AdjustmentKind kind, bool isForced)
{
    *this = AdjustmentData();
    m_path = path;
    m_title = TitleOf(kind, {});
    PositionalFile file;
    m_openStatus = file.Open(path);
    if (m_openStatus != FileStatus::Ok)
        return AdjustmentResult::CantOpen;
    TestFileHeader probe;
    probe.LoadProbe(file);
    if (!isForced && !IsKind(kind, probe))
        return AdjustmentResult::WrongKind;
    m_headerStatus = m_header.Load(file);
    if (m_headerStatus != HeaderResult::Ok)
        return AdjustmentResult::BadHeader;
    m_title = TitleOf(kind, probe);
    m_rows = ListHeaderRows(m_header);
    m_layout.offset = static_cast<std::uint64_t>(m_header.DataOffset());
    m_dataLength = static_cast<std::int64_t>(file.Size() - m_layout.offset);
    ExplainData();
    if (m_form == Form::Picture) {
        PositionalFile pictureFile;
        if (pictureFile.Open(path) == FileStatus::Ok)
            m_picture = std::make_shared<PlainRows>(std::move(pictureFile),
                PlainPicture{m_layout.offset, static_cast<std::uint64_t>(m_dataLength),
                    m_layout.lineWidth, m_layout.lineCount,
                    m_layout.HasColour() ? PictureRows::kRgb : PictureRows::kGray});
    }
    m_lines = SampleLines(std::move(file), m_layout);
    return AdjustmentResult::Ok;
}

std::string AdjustmentData::DescribeFailure(AdjustmentResult result) const
{
    switch (result) {
    case AdjustmentResult::Ok:
        return {};
    case AdjustmentResult::CantOpen:
        return std::string(Describe(m_openStatus));
    case AdjustmentResult::WrongKind:
        return "Not a file of the test " + std::string(m_title);
    case AdjustmentResult::BadHeader:
        return std::string(Describe(m_headerStatus));
    }
    return {};
}

/// The widths that the header names, those that are none left out.
std::vector<std::int64_t> AdjustmentData::Widths() const
{
    std::vector<std::int64_t> widths{
        Cameras().LineWidth(), m_header.Width().value, m_header.Length().value};
    std::erase_if(widths, [](std::int64_t width) { return width <= 0; });
    return widths;
}

/// Far from overflowing: a width is a sum of at most eight 32-bit numbers.
std::int64_t AdjustmentData::RowBytes(std::int64_t width) const
{
    return width * m_layout.planes * m_layout.BytesPerSample();
}

/// Takes the data as lines of a width, if that comes out even; false when it does not.
bool AdjustmentData::Explain(std::int64_t width)
{
    const std::int64_t rowBytes = RowBytes(width);
    if (m_dataLength % rowBytes != 0)
        return false;
    const std::int64_t lines = m_dataLength / rowBytes;
    const HeaderValue<int> height = m_header.Height();
    if (lines == 0 || (height.found && height.value != lines))
        return false;
    m_layout.lineWidth = width;
    m_layout.lineCount = lines;
    m_layout.planeLength = width * lines;
    m_layout.samples = m_layout.planeLength * m_layout.planes;
    m_form = lines > 1 && !m_layout.isSigned32 ? Form::Picture : Form::Profile;
    return true;
}

void AdjustmentData::ExplainData()
{
    const int color = m_header.Color().value;
    const bool isInterleaved =
        color == TestFileHeader::kColorInterleaved || color == TestFileHeader::kColorAll;
    m_layout.planes = isInterleaved ? SampleLayout::kColourPlanes : 1;
    m_layout.isSigned32 = m_header.IsSigned32Profile().value;
    if (m_dataLength == 0) {
        m_explanation = "There are no data behind the header.";
        return;
    }
    const std::vector<std::int64_t> widths = Widths();
    const char* const samples = m_layout.isSigned32 ? "signed 32-bit" : "8-bit";
    const char* const colours = isInterleaved ? "red, green and blue" : "one color";
    if (std::ranges::any_of(widths, [this](std::int64_t width) { return Explain(width); })) {
        const auto lines = static_cast<long long>(m_layout.lineCount);
        m_explanation = Format("%s: %lld %s of %lld pixels, %s, %s.",
            m_form == Form::Picture ? "Picture" : "Profile", lines, lines == 1 ? "line" : "lines",
            static_cast<long long>(m_layout.lineWidth), samples, colours);
        return;
    }
    m_form = Form::Unexplained;
    m_explanation = "The header's sizes do not explain the data.\n";
    if (widths.empty())
        m_explanation += Format(
            "There are %lld bytes, and no width is named.", static_cast<long long>(m_dataLength));
    else
        m_explanation += Format("There are %lld bytes; a line of %lld pixels has %lld.",
            static_cast<long long>(m_dataLength), static_cast<long long>(widths.front()),
            static_cast<long long>(RowBytes(widths.front())));
    if (m_header.Height().found)
        m_explanation += Format(" Lines by the header: %d.", m_header.Height().value);
}

ProfileCameras AdjustmentData::Cameras() const
{
    ProfileCameras cameras;
    for (int camera = 0; camera < ProfileCameras::kCameras; ++camera)
        cameras.pixels[static_cast<std::size_t>(camera)] = m_header.CameraPixels(camera).value;
    if (m_form != Form::None && m_form != Form::Unexplained
        && cameras.LineWidth() != m_layout.lineWidth)
        cameras.pixels = {}; // The line is not that of the cameras.
    constexpr double kPerInch = 1200.0;
    const std::int64_t pixels = m_layout.lineWidth;
    if (const HeaderValue<int> width = m_header.ScannerWidth(); width.value > 0 && pixels > 0)
        cameras.pixelPitchMm =
            width.value / kPerInch * kMillimetresPerInch / static_cast<double>(pixels);
    else if (const HeaderValue<int> resolution = m_header.Resolution(); resolution.value > 0)
        cameras.pixelPitchMm = kMillimetresPerInch / resolution.value;
    return cameras;
}

ShownColour AdjustmentData::FirstShown() const
{
    return m_layout.HasColour() ? ShownColour::All : ShownColour::Gray;
}

} // namespace vireo
