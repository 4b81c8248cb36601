#include "viewers/stitch/StitchData.h"

#include "platform/Sha256.h"
#include "platform/Text.h"
#include "viewers/controls/PlainRows.h"

#include <algorithm>
#include <cinttypes>
#include <utility>

namespace vireo {

namespace {

bool BeginsAsText(const PositionalFile& file)
{
    TestFileHeader header;
    header.LoadProbe(file);
    return header.IsStitchTest();
}

} // namespace

StitchResult StitchData::Read(const std::filesystem::path& path)
{
    WorkProgress unwatched;
    return Read(path, unwatched);
}

StitchResult StitchData::Read(const std::filesystem::path& path, WorkProgress& progress)
{
    *this = StitchData();
    PositionalFile file;
    const FileStatus opened = file.Open(path);
    const StitchResult result =
        opened == FileStatus::Ok ? ReadForm(std::move(file), progress) : StitchResult::CantOpen;
    if (result != StitchResult::Ok) {
        const HeaderResult headerStatus = m_headerStatus;
        *this = StitchData();
        m_headerStatus = headerStatus;
    }
    m_openStatus = opened;
    m_path = path;
    return result;
}

StitchResult StitchData::ReadForm(PositionalFile file, WorkProgress& progress)
{
    StitchLayout layout;
    if (BeginsAsText(file)) {
        if (const StitchResult result = ReadText(file, layout); result != StitchResult::Ok)
            return result;
    } else {
        OldFileHeader header;
        if (!header.Load(file))
            return StitchResult::TooShort;
        m_bRunLength = header.type != OldFileHeader::kTypeStitch;
        m_iMemoryDC_Width = header.width;
        m_iMemoryDC_Height = header.height;
        m_iPhysicalResolution = header.resolution;
        layout.offset = OldFileHeader::kBytes;
    }
    layout.length = file.Size() - layout.offset;
    layout.width = std::max(m_iMemoryDC_Width, 0);
    layout.height = std::max(m_iMemoryDC_Height, 0);
    m_iDataLength = static_cast<std::int64_t>(layout.length);
    if (!m_bRunLength) {
        m_picture = std::make_shared<PlainRows>(std::move(file),
            PlainPicture{layout.offset, layout.length, layout.width, layout.height});
        return StitchResult::Ok;
    }
    auto rows = std::make_shared<StitchRunRows>(std::move(file), layout);
    if (!rows->BuildIndex(progress))
        return StitchResult::Cancelled;
    m_picture = std::move(rows);
    return StitchResult::Ok;
}

StitchResult StitchData::ReadText(PositionalFile& file, StitchLayout& layout)
{
    m_headerStatus = m_header.Load(file);
    if (m_headerStatus != HeaderResult::Ok)
        return StitchResult::BadHeader;
    m_bHasTextHeader = true;
    struct Item {
        const char* name;
        HeaderValue<int> value;
        std::int32_t& field;
    };
    const Item items[] = {
        {"m_iMemoryDC_Height", m_header.Height(), m_iMemoryDC_Height},
        {"m_iMemoryDC_Width", m_header.Width(), m_iMemoryDC_Width},
        {"m_iPhysicalResolution", m_header.Resolution(), m_iPhysicalResolution},
    };
    for (const Item& item : items) {
        item.field = item.value.value;
        if (!item.value.found)
            m_missing.emplace_back(item.name);
    }
    layout.offset = static_cast<std::uint64_t>(m_header.DataOffset());
    return StitchResult::Ok;
}

std::string StitchData::DescribeFailure(StitchResult result) const
{
    switch (result) {
    case StitchResult::Ok:
        return {};
    case StitchResult::CantOpen:
        return std::string(Describe(m_openStatus));
    case StitchResult::BadHeader:
        return std::string(Describe(m_headerStatus));
    case StitchResult::TooShort:
        return "The file is too short for a stitch test";
    case StitchResult::Cancelled:
        return "Cancelled";
    }
    return {};
}

std::vector<std::string> StitchData::Complaints() const
{
    std::vector<std::string> complaints = m_missing;
    // Exact in 64 bits: both factors have 32.
    const std::int64_t announced = std::int64_t{m_iMemoryDC_Width} * m_iMemoryDC_Height;
    if (m_bHasTextHeader && m_iDataLength != announced) {
        complaints.push_back(Format("Error Picture Length\nm_iDataLength = %" PRId64
                                    "\nm_iMemoryDC_Width = %d\nm_iMemoryDC_Height = %d",
            m_iDataLength, m_iMemoryDC_Width, m_iMemoryDC_Height));
    }
    return complaints;
}

bool StitchData::IsWorkable() const
{
    if (!m_picture)
        return false;
    const std::int64_t pixels = m_picture->Width() * m_picture->Height();
    return pixels <= std::max(kMostUncoveredPixels, m_iDataLength);
}

std::optional<std::string> StitchData::PictureSha256() const
{
    if (!IsWorkable())
        return std::nullopt;
    constexpr std::int64_t kPieceBytes = 256 * 1024; // Stays in the fast cache.
    const std::int64_t width = m_picture->Width();
    const std::int64_t height = m_picture->Height();
    std::vector<std::uint8_t> pixels(static_cast<std::size_t>(kPieceBytes), PictureRows::kWhite);
    Sha256 digest;
    const auto add = [&](std::int64_t bytes) {
        digest.Add(std::span(pixels).first(static_cast<std::size_t>(bytes)));
    };
    const std::int64_t rowsAtOnce =
        std::max<std::int64_t>(kPieceBytes / std::max<std::int64_t>(width, 1), 1);
    const std::int64_t covered = m_picture->CoveredRows();
    for (std::int64_t row = 0; row < covered; row += rowsAtOnce) {
        const std::int64_t rows = std::min(rowsAtOnce, covered - row);
        for (std::int64_t left = 0; left < width; left += kPieceBytes) {
            const std::int64_t columns = std::min(kPieceBytes, width - left);
            m_picture->Read({left, row, columns, rows},
                std::span(pixels).first(static_cast<std::size_t>(columns * rows)));
            add(columns * rows);
        }
    }
    std::fill(pixels.begin(), pixels.end(), PictureRows::kWhite);
    for (std::int64_t left = (height - covered) * width; left > 0; left -= kPieceBytes)
        add(std::min(left, kPieceBytes));
    return digest.HexDigest();
}

} // namespace vireo
