#include "app/FileKind.h"

#include "platform/ByteReader.h"
#include "platform/Path.h"
#include "platform/Text.h"
#include "testfile/HeaderNames.h"
#include "testfile/TestFileHeader.h"

#include <algorithm>
#include <array>

namespace vireo {

namespace {

constexpr std::string_view kLightProfileViewer = "CView_LPF_Dialog";
constexpr std::string_view kStitchViewer = "CView_Stitch_Dialog";
constexpr std::string_view kOscilloscopeViewer = "COscilloscope_Dialog";
constexpr std::string_view kNoiseViewer = "CNoiseTest_SM_Dialog";
constexpr std::string_view kAdjustCenterViewer = "CAdjustCenterCCD_Dialog";
constexpr std::string_view kVerticalCameraViewer = "CVerticalCameraVerification_Dialog";
constexpr std::string_view kStarTestViewer = "CStarTest_Dialog";
constexpr std::string_view kTonalViewer = "CTonalResolutionDialog";
constexpr std::string_view kPictureViewer = "CPictureView_Dialog";

constexpr DispatchRow kDispatchTable[] = {
    {tag::kLightProfile, FileKind::LightProfile, kLightProfileViewer},
    // A tag of its own: the bracket in front of "G3" keeps the row above from finding it.
    {tag::kG3LightProfile, FileKind::LightProfile, kLightProfileViewer},
    {tag::kOscilloscope, FileKind::Oscilloscope, kOscilloscopeViewer},
    {tag::kMtf, FileKind::Mtf, kOscilloscopeViewer},
    {tag::kStitchTest, FileKind::Stitch, kStitchViewer},
    {tag::kNoiseTest, FileKind::Noise, kNoiseViewer},
    {tag::kKitbag, FileKind::Kitbag, {}},
    {tag::kAdjustCenterCcd, FileKind::AdjustCenterCcd, kAdjustCenterViewer},
    {tag::kScanLinePositioning, FileKind::AdjustCenterCcd, kAdjustCenterViewer},
    {tag::kVerticalCameraVerification, FileKind::VerticalCameraVerification, kVerticalCameraViewer},
    {tag::kMirrorCarriageAdjustment, FileKind::VerticalCameraVerification, kVerticalCameraViewer},
    {tag::kStarTest, FileKind::StarTest, kStarTestViewer},
    {tag::kTonalResolution, FileKind::TonalResolution, kTonalViewer},
};

constexpr KindNames kKinds[] = {
    {FileKind::Oscilloscope, "oscilloscope", "oscilloscope"},
    {FileKind::Mtf, "mtf", "MTF"},
    {FileKind::Stitch, "stitch", "stitch test"},
    {FileKind::Noise, "noise", "noise test"},
    {FileKind::LightProfile, "light-profile", "light profile"},
    {FileKind::Kitbag, "kitbag", "packed dump"},
    {FileKind::AdjustCenterCcd, "adjust-center-ccd", "adjust center CCD"},
    {FileKind::VerticalCameraVerification, "vertical-camera-verification",
        "vertical camera verification"},
    {FileKind::StarTest, "startest", "star test"},
    {FileKind::TonalResolution, "tonal-resolution", "tonal resolution"},
    {FileKind::Tiff, "tiff", "TIFF picture"},
    {FileKind::Unknown, "unknown", "unknown"},
};

const KindNames& NamesOf(FileKind kind)
{
    const auto names = std::find_if(std::begin(kKinds), std::end(kKinds),
        [kind](const KindNames& row) { return row.kind == kind; });
    return names != std::end(kKinds) ? *names : *std::prev(std::end(kKinds));
}

std::span<const std::uint8_t> ProbeOf(std::span<const std::uint8_t> bytes)
{
    return bytes.first(std::min(bytes.size(), TestFileHeader::kProbeBytes));
}

/// The first bytes as text, which ends at a zero byte.
std::string_view TextOf(std::span<const std::uint8_t> bytes)
{
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    return text.substr(0, text.find('\0'));
}

Recognition TextFile(const DispatchRow& row, std::string_view text)
{
    TestFileHeader header;
    header.SetText(text);
    Recognition recognition{row.kind, Container::Text, {}, header.DataOffset()};
    if (!row.viewer.empty())
        recognition.viewers.push_back(row.viewer);
    return recognition;
}

bool HasTiffName(const std::filesystem::path& name)
{
    const std::string extension = SplitPath(Utf8FromPath(name)).extension;
    return EqualsIgnoringCase(extension, ".tif") || EqualsIgnoringCase(extension, ".tiff");
}

/// "II" or "MM", then 42, or 43 of the large form, in the byte order just told.
bool BeginsAsTiff(std::span<const std::uint8_t> bytes)
{
    constexpr std::uint16_t kVersion = 42;
    constexpr std::uint16_t kLargeVersion = 43;
    const std::string_view text = TextOf(bytes);
    const bool little = text.starts_with("II");
    if (!little && !text.starts_with("MM"))
        return false;
    ByteReader reader(bytes.subspan(2), little ? ByteOrder::Little : ByteOrder::Big);
    const std::optional<std::uint16_t> version = reader.ReadU16();
    return version == kVersion || version == kLargeVersion;
}

FileKind KindOfOldFile(const OldFileHeader& header)
{
    switch (header.type) {
    case OldFileHeader::kTypeLightProfile:
    case OldFileHeader::kTypeNoise: // On purpose: it is shown as a light profile.
        return FileKind::LightProfile;
    case OldFileHeader::kTypeStitch:
        return FileKind::Stitch;
    default:
        return header.formatMark == OldFileHeader::kLightProfileMark ? FileKind::LightProfile
                                                                     : FileKind::Unknown;
    }
}

Recognition OldFile(std::span<const std::uint8_t> bytes)
{
    Recognition recognition{FileKind::Unknown, Container::Binary, {}, OldFileHeader::kBytes};
    OldFileHeader header;
    if (header.Parse(bytes))
        recognition.kind = KindOfOldFile(header);
    if (recognition.kind == FileKind::LightProfile)
        recognition.viewers = {kLightProfileViewer};
    else if (recognition.kind == FileKind::Stitch)
        recognition.viewers = {kStitchViewer};
    else
        recognition.viewers = FallbackViewers(TextOf(bytes));
    return recognition;
}

} // namespace

std::span<const DispatchRow> DispatchTable()
{
    return kDispatchTable;
}

std::span<const KindNames> AllKinds()
{
    return kKinds;
}

std::string_view KindId(FileKind kind)
{
    return NamesOf(kind).id;
}

std::string_view KindTitle(FileKind kind)
{
    return NamesOf(kind).title;
}

std::optional<FileKind> KindFromId(std::string_view id)
{
    for (const KindNames& names : kKinds) {
        if (names.id == id)
            return names.kind;
    }
    return std::nullopt;
}

std::vector<std::string_view> FallbackViewers(std::string_view text)
{
    struct Row {
        std::string_view tag;
        std::string_view viewer;
    };
    static constexpr Row kRows[] = {
        {tag::kLightProfile, kLightProfileViewer},
        {tag::kStitchTest, kStitchViewer},
        {tag::kNoiseTest, kLightProfileViewer},
    };
    std::vector<std::string_view> viewers;
    for (const Row& row : kRows) {
        if (text.find(row.tag) != std::string_view::npos)
            viewers.push_back(row.viewer);
    }
    return viewers;
}

Recognition Recognise(std::span<const std::uint8_t> firstBytes, const std::filesystem::path& name)
{
    const std::span<const std::uint8_t> probe = ProbeOf(firstBytes);
    const std::string_view text = TextOf(probe);
    for (const DispatchRow& row : kDispatchTable) {
        if (text.find(row.tag) != std::string_view::npos)
            return TextFile(row, text);
    }
    if (BeginsAsTiff(probe) || HasTiffName(name))
        return {FileKind::Tiff, Container::Tiff, {kPictureViewer}, std::nullopt};
    return OldFile(probe);
}

bool BeginsAsKitbag(std::span<const std::uint8_t> firstBytes)
{
    const std::string_view text = TextOf(ProbeOf(firstBytes));
    return text.substr(0, text.find_first_of("\r\n")) == tag::kKitbag;
}

FileStatus RecogniseFile(
    const std::filesystem::path& path, Recognition& recognition, KitbagRule rule)
{
    PositionalFile file;
    const FileStatus status = file.Open(path);
    if (status != FileStatus::Ok)
        return status;
    std::array<std::uint8_t, TestFileHeader::kProbeBytes> buffer{};
    const auto bytes = std::span<const std::uint8_t>(buffer).first(file.ReadAt(0, buffer));
    if (bytes.empty() && file.Size() > 0)
        return FileStatus::Failed;
    recognition = Recognise(bytes, path);
    if (rule == KitbagRule::FirstLine && BeginsAsKitbag(bytes))
        recognition = TextFile({tag::kKitbag, FileKind::Kitbag, {}}, TextOf(bytes));
    return FileStatus::Ok;
}

} // namespace vireo
