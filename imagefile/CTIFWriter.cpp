#include "imagefile/CTIFWriter.h"

#include "imagefile/CDifferencingFilter.h"
#include "imagefile/CHuffmanCoder.h"
#include "imagefile/CLZWCoder.h"
#include "imagefile/CPackbitCoder.h"
#include "imagefile/CPlainCoder.h"
#include "imagefile/IccProfile.h"

#include <algorithm>
#include <utility>

namespace vireo {

namespace {

constexpr std::uint64_t kDirectoryOffsetPlace = 4;
constexpr std::size_t kMostDescriptionBytes = std::size_t{1024} * 1024;

constexpr const char* kTooLarge = "the file would be larger than a TIFF can be, 4 GiB";

/// Why a stage refuses a picture that is otherwise in order.
const char* WhyRefused(ImageResult result, const TifSettings& settings)
{
    const bool isDifferenced = settings.predictor == TifPage::kHorizontalDifferencing;
    switch (result) {
    case ImageResult::InvalidHuffmanCoderArguments:
        return "modified Huffman and Group 4 hold bilevel pictures only";
    case ImageResult::InvalidTiffArguments:
        return isDifferenced ? "a predictor is for gray and RGB pictures"
                             : "PackBits holds no 16-bit samples";
    default:
        return "";
    }
}

} // namespace

CTIFWriter::CTIFWriter(const std::filesystem::path& file, TifSettings settings)
    : CTIFWriter(MakeTIFTarget(file), std::move(settings))
{
}

CTIFWriter::CTIFWriter(
    std::unique_ptr<CTIFTarget> target, TifSettings settings, std::uint64_t mostBytes)
    : m_target(std::move(target)),
      m_settings(std::move(settings)),
      m_mostBytes(mostBytes)
{
}

CTIFWriter::~CTIFWriter() = default;

ImageResult CTIFWriter::Fail(ImageResult result, std::string reason)
{
    if (m_result == ImageResult::Ok && result != ImageResult::Ok) {
        m_result = result;
        m_reason = std::move(reason);
    }
    return m_result;
}

/// What the stream says.
ImageResult CTIFWriter::FailToWrite()
{
    const FileStatus status = m_output->Status();
    return Fail(ImageResult::CantWriteTif,
        status == FileStatus::TooLarge ? kTooLarge : std::string(Describe(status)));
}

std::string CTIFWriter::DescribeFailure() const
{
    std::string text(Describe(m_result));
    return m_reason.empty() ? text : text + ": " + m_reason;
}

bool CTIFWriter::RowsStandAlone() const
{
    return m_settings.compression != TifCompression::kLzw
        && m_settings.compression != TifCompression::kGroup4;
}

ImageResult CTIFWriter::CheckArguments()
{
    const auto refuse = [this](const char* reason) {
        return Fail(ImageResult::InvalidTiffArguments, reason);
    };
    if (m_depth > ColorDepth::Rgb16)
        return refuse("there are no such pixels");
    if (m_width == 0 || m_height == 0)
        return refuse("a picture has at least one pixel");
    if (BytesPerRow(m_depth, m_width) > TifPage::kMaxRowBytes)
        return refuse("a row would be longer than 64 MiB");
    if (m_settings.predictor != 1
        && (m_settings.predictor != TifPage::kHorizontalDifferencing
            || m_settings.compression != TifCompression::kLzw))
        return refuse("a predictor goes with LZW only");
    if (m_depth == ColorDepth::Palette8 && !m_settings.colorMap)
        return refuse("there is no colour map");
    if (m_settings.description.size() > kMostDescriptionBytes)
        return refuse("the description is longer than 1 MiB");
    return ImageResult::Ok;
}

ImageResult CTIFWriter::MakeStages()
{
    switch (m_settings.compression) {
    case TifCompression::kNone:
        m_coder = std::make_unique<CPlainCoder>(*m_output);
        break;
    case TifCompression::kModifiedHuffman:
        m_coder =
            std::make_unique<CHuffmanCoder>(*m_output, CHuffmanCoder::Scheme::ModifiedHuffman);
        break;
    case TifCompression::kGroup4:
        m_coder = std::make_unique<CHuffmanCoder>(*m_output, CHuffmanCoder::Scheme::Group4);
        break;
    case TifCompression::kLzw:
        m_coder = std::make_unique<CLZWCoder>(*m_output);
        break;
    case TifCompression::kPackBits:
        m_coder = std::make_unique<CPackbitCoder>(*m_output);
        break;
    default:
        return Fail(ImageResult::InvalidTiffArguments, "there is no such compression");
    }
    m_first = m_coder.get();
    if (m_settings.predictor == TifPage::kHorizontalDifferencing) {
        m_filter = std::make_unique<CDifferencingFilter>(*m_coder);
        m_first = m_filter.get();
    }
    const ImageResult result = m_first->BeginImage(m_depth, m_width, m_height, m_resolution, 0, 0);
    return Fail(result, WhyRefused(result, m_settings));
}

ImageResult CTIFWriter::BeginImage(ColorDepth depth, std::uint32_t width, std::uint32_t height,
    std::uint32_t resolution, std::uint32_t, std::uint32_t)
{
    m_depth = depth;
    m_width = width;
    m_height = height;
    m_resolution = resolution;
    if (Begin() != ImageResult::Ok)
        m_target.reset();
    return m_result;
}

ImageResult CTIFWriter::Begin()
{
    m_output = std::make_unique<CTIFOutput>(*m_target, m_mostBytes);
    if (CheckArguments() != ImageResult::Ok || MakeStages() != ImageResult::Ok)
        return m_result;
    const std::uint64_t rowBytes = BytesPerRow(m_depth, m_width);
    if (m_settings.compression == TifCompression::kNone && rowBytes > m_mostBytes / m_height)
        return Fail(ImageResult::CantWriteTif, kTooLarge);
    m_rowsPerStrip = m_height;
    if (RowsStandAlone())
        m_rowsPerStrip =
            std::min(static_cast<std::uint32_t>(std::max<std::uint64_t>(kStripBytes / rowBytes, 1)),
                m_height);
    if (const FileStatus status = m_target->Open(); status != FileStatus::Ok)
        return Fail(ImageResult::CantOpenTif, std::string(Describe(status)));
    constexpr std::uint8_t kHeader[] = {'I', 'I', 42, 0, 0, 0, 0, 0};
    m_output->Write(kHeader);
    m_result = WriteProfile();
    m_stripsEnd = static_cast<std::uint32_t>(m_output->Position());
    return m_result;
}

/// In front of the picture, so that one that cannot be taken is told before the work begins.
ImageResult CTIFWriter::WriteProfile()
{
    if (!m_settings.profile)
        return ImageResult::Ok;
    std::vector<std::uint8_t> bytes;
    std::string reason;
    const ImageResult result = ReadIccProfile(*m_settings.profile, bytes, reason);
    if (result != ImageResult::Ok)
        return m_settings.requiresProfile ? Fail(result, reason) : ImageResult::Ok;
    m_profileOffset = static_cast<std::uint32_t>(m_output->Position());
    m_profileBytes = static_cast<std::uint32_t>(bytes.size());
    m_output->Write(bytes);
    return m_output->Result() == ImageResult::Ok ? ImageResult::Ok : FailToWrite();
}

ImageResult CTIFWriter::LineDone()
{
    if (m_result != ImageResult::Ok)
        return m_result;
    if (m_row == m_height)
        return Fail(ImageResult::InvalidTiffArguments, "there are too many rows");
    if (m_row % m_rowsPerStrip == 0)
        m_stripOffsets.push_back(m_stripsEnd);
    ++m_row;
    if (m_first->LineDone() != ImageResult::Ok)
        return FailToWrite();
    m_stripsEnd = static_cast<std::uint32_t>(m_output->Position());
    return ImageResult::Ok;
}

ImageResult CTIFWriter::EndImage(std::uint32_t status)
{
    if (status == 0 && m_result == ImageResult::Ok)
        m_result = Finish();
    // Whatever is not in its place by now vanishes.
    m_target.reset();
    return m_result == ImageResult::Ok ? static_cast<ImageResult>(status) : m_result;
}

ImageResult CTIFWriter::Finish()
{
    if (m_row != m_height)
        return Fail(ImageResult::InvalidTiffArguments, "there are rows missing");
    if (m_first->EndImage(0) != ImageResult::Ok)
        return FailToWrite();
    m_stripsEnd = static_cast<std::uint32_t>(m_output->Position());
    TifDirectory directory;
    AddEntries(directory);
    std::vector<std::uint8_t> offset;
    AppendLong(offset, directory.Write(*m_output));
    if (m_output->Flush() != ImageResult::Ok)
        return FailToWrite();
    FileStatus status = m_target->Overwrite(kDirectoryOffsetPlace, offset);
    if (status == FileStatus::Ok)
        status = m_target->Commit();
    return status == FileStatus::Ok
        ? m_result
        : Fail(ImageResult::CantWriteTif, std::string(Describe(status)));
}

std::uint16_t CTIFWriter::Photometric() const
{
    constexpr std::uint16_t kWhiteIsZero = 0, kBlackIsZero = 1, kRgb = 2, kPalette = 3;
    switch (m_depth) {
    case ColorDepth::Bilevel: {
        // The codes of white runs mean zeros to readers.
        const bool isCcitt = TifCompression::IsCcitt(m_settings.compression);
        return isCcitt && m_settings.whiteIsZero.value_or(true) ? kWhiteIsZero : kBlackIsZero;
    }
    case ColorDepth::Gray8:
    case ColorDepth::Gray16:
        return m_settings.whiteIsZero.value_or(false) ? kWhiteIsZero : kBlackIsZero;
    case ColorDepth::Palette8:
        return kPalette;
    case ColorDepth::Rgb8:
    case ColorDepth::Rgb16:
        break;
    }
    return kRgb;
}

void CTIFWriter::AddEntries(TifDirectory& directory) const
{
    const bool isRgb = m_depth == ColorDepth::Rgb8 || m_depth == ColorDepth::Rgb16;
    const std::uint16_t samples = isRgb ? 3 : 1;
    const auto bits = static_cast<std::uint16_t>(BitsPerPixel(m_depth) / samples);
    const std::array<std::uint16_t, 3> bitsPerSample = {bits, bits, bits};
    directory.AddLong(TifTag::ImageWidth, m_width);
    directory.AddLong(TifTag::ImageLength, m_height);
    directory.AddShorts(TifTag::BitsPerSample, std::span(bitsPerSample).first(samples));
    directory.AddShort(TifTag::Compression, m_settings.compression);
    directory.AddShort(TifTag::Photometric, Photometric());
    if (!m_settings.description.empty())
        directory.AddText(TifTag::ImageDescription, m_settings.description);
    directory.AddLongs(TifTag::StripOffsets, m_stripOffsets);
    directory.AddShort(TifTag::SamplesPerPixel, samples);
    directory.AddLong(TifTag::RowsPerStrip, m_rowsPerStrip);
    AddStripByteCounts(directory);
    // Without a unit the two say only that pixels are square.
    constexpr std::uint16_t kNoUnit = 1, kInch = 2;
    directory.AddRational(TifTag::XResolution, std::max(m_resolution, 1U), 1);
    directory.AddRational(TifTag::YResolution, std::max(m_resolution, 1U), 1);
    directory.AddShort(TifTag::PlanarConfiguration, 1);
    directory.AddShort(TifTag::ResolutionUnit, m_resolution == 0 ? kNoUnit : kInch);
    if (m_settings.predictor != 1)
        directory.AddShort(TifTag::Predictor, m_settings.predictor);
    if (m_depth == ColorDepth::Palette8)
        AddColorMap(directory);
    if (m_profileBytes > 0)
        directory.AddWritten(TifTag::IccProfile, m_profileOffset, m_profileBytes);
}

void CTIFWriter::AddStripByteCounts(TifDirectory& directory) const
{
    std::vector<std::uint32_t> counts(m_stripOffsets.size());
    for (std::size_t strip = 0; strip < counts.size(); ++strip) {
        const bool isLast = strip + 1 == counts.size();
        counts[strip] = (isLast ? m_stripsEnd : m_stripOffsets[strip + 1]) - m_stripOffsets[strip];
    }
    directory.AddLongs(TifTag::StripByteCounts, counts);
}

/// All reds, all greens, all blues. The full scale of 8 bits becomes that of 16.
void CTIFWriter::AddColorMap(TifDirectory& directory) const
{
    if (m_settings.colorMapValues) {
        directory.AddShorts(TifTag::ColorMap, *m_settings.colorMapValues);
        return;
    }
    std::vector<std::uint16_t> values;
    for (const auto component :
        {&TifPage::Color::red, &TifPage::Color::green, &TifPage::Color::blue}) {
        for (const TifPage::Color& color : *m_settings.colorMap)
            values.push_back(static_cast<std::uint16_t>(color.*component * 257));
    }
    directory.AddShorts(TifTag::ColorMap, values);
}

} // namespace vireo
