#include "viewers/picture/PictureData.h"

#include "imagefile/CTIFReader.h"
#include "viewers/controls/PictureReduction.h"
#include "viewers/picture/TiffDecodedRows.h"
#include "viewers/picture/TiffFileRows.h"

#include <algorithm>
#include <utility>

namespace vireo {

namespace {

/// Opening announces a picture that nobody has to receive yet.
class NoReceiver : public CImageReceiver {
public:
    ImageResult BeginImage(ColorDepth, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t,
        std::uint32_t) override
    {
        return ImageResult::Ok;
    }
    std::uint8_t* GetLineBuffer() override { return nullptr; }
    ImageResult LineDone() override { return ImageResult::Ok; }
    ImageResult EndImage(std::uint32_t) override { return ImageResult::Ok; }
};

} // namespace

/// The rows as the pyramid's builder sees them: those that it asks for are loaded first.
class PictureData::LoadingRows : public PictureRows {
public:
    explicit LoadingRows(TiffRows& rows) : m_rows(rows) { }

    void SetProgress(const WorkProgress& progress) { m_progress = &progress; }

    std::int64_t Width() const override { return m_rows.Width(); }
    std::int64_t Height() const override { return m_rows.Height(); }
    int Channels() const override { return m_rows.Channels(); }
    void Read(const PictureRect& rect, std::span<std::uint8_t> pixels) const override
    {
        m_rows.Load(rect.top + rect.height, *m_progress);
        m_rows.Read(rect, pixels);
    }

private:
    TiffRows& m_rows;
    const WorkProgress* m_progress = nullptr;
};

PictureData::PictureData() = default;
PictureData::~PictureData() = default;

ImageResult PictureData::Open(
    const std::filesystem::path& path, std::uint32_t page, std::uint64_t mostBytes)
{
    m_path = path;
    m_pageNumber = page;
    NoReceiver receiver;
    auto reader = std::make_unique<CTIFReader>();
    reader->SetFile(path);
    reader->SetReceiver(receiver);
    reader->SetPage(page);
    std::uint32_t rows = 0;
    const ImageResult result = reader->Open(rows);
    m_pages = reader->Pages();
    m_page = reader->Entries();
    m_cameras = ParseCameraDescription(m_page.description);
    std::error_code ignored;
    const std::uintmax_t bytes = std::filesystem::file_size(path, ignored);
    m_fileBytes = ignored ? 0 : bytes;
    return result == ImageResult::Ok ? OpenRows(std::move(reader), mostBytes) : result;
}

std::uint64_t PictureData::PixelBytes() const
{
    return BytesPerRow(m_page.depth, m_page.width) * m_page.height;
}

ImageResult PictureData::OpenRows(std::unique_ptr<CTIFReader> reader, std::uint64_t mostBytes)
{
    const TiffPixels pixels(m_page);
    if (TiffFileRows::CanRead(m_page)) {
        auto rows = std::make_unique<TiffFileRows>(m_page, pixels);
        if (rows->Open(m_path) != FileStatus::Ok)
            return ImageResult::CantOpenTif;
        m_rows = std::move(rows);
        m_holding = PictureHolding::File;
    } else {
        if (PixelBytes() > mostBytes)
            return OpenReduced(std::move(reader), mostBytes);
        auto rows = std::make_unique<TiffDecodedRows>(std::move(reader), pixels, m_page.height);
        if (!rows->Allocate())
            return ImageResult::TifOutOfMemory;
        m_rows = std::move(rows);
        m_holding = PictureHolding::Memory;
    }
    m_loading = std::make_unique<LoadingRows>(*m_rows);
    m_pyramid = std::make_unique<PicturePyramid>(*m_loading);
    return ImageResult::Ok;
}

/// The rows pass by once, on their way into the reduced sizes.
ImageResult PictureData::OpenReduced(std::unique_ptr<CTIFReader> reader, std::uint64_t mostBytes)
{
    // The builder of the pyramid comes back to two rows of blocks at most.
    constexpr std::int64_t kKeptBlocks = 3;
    constexpr std::int64_t kKeptRows = kKeptBlocks * kMostBlockRows;
    if (BytesPerRow(m_page.depth, m_page.width) * kKeptRows > mostBytes)
        return ImageResult::TifOutOfMemory;
    auto rows = std::make_unique<TiffDecodedRows>(std::move(reader), TiffPixels(m_page), kKeptRows);
    auto loading = std::make_unique<LoadingRows>(*rows);
    auto pyramid = std::make_unique<PicturePyramid>(*loading);
    if (!pyramid->HasLevels() || !rows->Allocate())
        return ImageResult::TifOutOfMemory;
    m_rows = std::move(rows);
    m_loading = std::move(loading);
    m_pyramid = std::move(pyramid);
    m_reduced.emplace(*m_rows, *m_pyramid);
    m_holding = PictureHolding::Reduced;
    return ImageResult::Ok;
}

std::int64_t PictureData::KeptReduction() const
{
    return m_reduced ? m_reduced->Reduction() : 1;
}

void PictureData::Load(WorkProgress& progress, unsigned threads)
{
    if (m_holding == PictureHolding::Nowhere)
        return;
    m_loading->SetProgress(progress);
    // Rows that pass by once can be looked at by one thread only.
    const unsigned most = m_holding == PictureHolding::Reduced ? 1 : threads;
    if (!m_pyramid->Build(progress, most))
        return;
    LoadRest(progress);
    if (!progress.IsCancelled())
        m_isLoaded.store(true, std::memory_order_release);
}

/// What the pyramid has not asked for: all rows of a picture that has none.
void PictureData::LoadRest(WorkProgress& progress)
{
    constexpr std::int64_t kRowsAtOnce = 16;
    const std::int64_t height = m_rows->Height();
    if (m_rows->LoadedRows() == height)
        return;
    progress.SetTotal(static_cast<std::uint64_t>(height));
    while (m_rows->LoadedRows() < height && !progress.IsCancelled()) {
        m_rows->Load(std::min(m_rows->LoadedRows() + kRowsAtOnce, height), progress);
        progress.SetDone(static_cast<std::uint64_t>(m_rows->LoadedRows()));
    }
}

ImageResult PictureData::RowsResult() const
{
    return m_rows ? m_rows->Result() : ImageResult::Ok;
}

std::int64_t PictureData::CoveredRows() const
{
    if (!m_rows)
        return 0;
    const std::int64_t covered = m_rows->CoveredRows();
    // Reduced sizes are some rows behind, where loading was cancelled for good.
    if (!m_pyramid->HasLevels() || m_pyramid->IsComplete())
        return covered;
    return std::min(m_pyramid->RowsDone() * m_pyramid->Levels().front().reduction, covered);
}

std::vector<RowRange> PictureData::MissingRows() const
{
    return m_rows ? m_rows->MissingRows() : std::vector<RowRange>();
}

PictureContent PictureData::Content() const
{
    if (m_reduced)
        return {&*m_reduced, m_pyramid.get()};
    return {m_rows.get(), m_pyramid.get()};
}

std::optional<PixelSamples> PictureData::SamplesAt(std::int64_t column, std::int64_t row) const
{
    return m_rows && !m_reduced && row < CoveredRows() ? m_rows->SamplesAt(column, row)
                                                       : std::nullopt;
}

} // namespace vireo
