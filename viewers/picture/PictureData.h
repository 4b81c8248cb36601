#pragma once

#include "imagefile/ImageResult.h"
#include "imagefile/TifPage.h"
#include "platform/ProcessInfo.h"
#include "platform/WorkProgress.h"
#include "testfile/CameraDescription.h"
#include "viewers/controls/PictureDrawing.h"
#include "viewers/controls/PicturePyramid.h"
#include "viewers/picture/ReducedRows.h"
#include "viewers/picture/RowRange.h"
#include "viewers/picture/TiffRows.h"

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

namespace vireo {

class CTIFReader;

/// Where the pixels of a picture are while it is shown.
enum class PictureHolding {
    Nowhere, ///< There is no picture.
    File,    ///< Uncompressed: read from the file where they are looked at.
    Memory,  ///< All decoded.
    Reduced, ///< Too many for the memory: only a reduced picture is kept.
};

/// One page of a TIFF file: what the page says, its pixels, and the reduced sizes that it is drawn
/// from. Opening costs the same for every size; loading is for a thread of its own, and meanwhile
/// what is loaded so far can be drawn.
class PictureData {
public:
    PictureData();
    PictureData(const PictureData&) = delete;
    PictureData& operator=(const PictureData&) = delete;
    ~PictureData();

    /// Opens a page, counted from 1; once only. A compressed picture of more than `mostBytes` bytes
    /// is kept reduced only, and TifOutOfMemory where even that is too much. After a failure, what
    /// was found out about the page until then is known.
    ImageResult Open(const std::filesystem::path& path, std::uint32_t page = 1,
        std::uint64_t mostBytes = MostPictureBytes());

    const std::filesystem::path& Path() const { return m_path; }
    std::uint64_t FileBytes() const { return m_fileBytes; }
    std::uint32_t PageNumber() const { return m_pageNumber; } ///< From 1.
    std::uint32_t Pages() const { return m_pages; }
    const TifPage& Page() const { return m_page; }
    /// How many pixels each camera gives to a line; nothing where the page does not tell.
    const std::optional<CameraCounts>& Cameras() const { return m_cameras; }
    /// Bytes that all rows take as the reader delivers them.
    std::uint64_t PixelBytes() const;

    PictureHolding Holding() const { return m_holding; }
    /// Picture pixels along a side of what is kept as one pixel: 1 unless Holding is Reduced.
    std::int64_t KeptReduction() const;

    /// Loads and reduces all rows; once, after Open. Another thread may follow and cancel it by the
    /// progress, draw the content, and ask for samples. `threads` work at most.
    void Load(WorkProgress& progress, unsigned threads = 1);
    bool IsLoaded() const { return m_isLoaded.load(std::memory_order_acquire); }
    /// What the first row that failed came to; once it is loaded.
    ImageResult RowsResult() const;
    /// Rows that can be seen so far. Once it is loaded, those behind are not in the file.
    std::int64_t CoveredRows() const;
    /// The rows before those of which nothing could be read, from the top on.
    std::vector<RowRange> MissingRows() const;

    /// What is drawn; empty when there is no picture.
    PictureContent Content() const;
    /// The samples of a pixel, 0-based; nothing outside the rows that are there, and of a picture
    /// that is kept reduced.
    std::optional<PixelSamples> SamplesAt(std::int64_t column, std::int64_t row) const;
    /// What a palette index is shown as.
    TifPage::Color PaletteColor(std::uint8_t index) const { return m_page.colorMap[index]; }

private:
    class LoadingRows;

    ImageResult OpenRows(std::unique_ptr<CTIFReader> reader, std::uint64_t mostBytes);
    ImageResult OpenReduced(std::unique_ptr<CTIFReader> reader, std::uint64_t mostBytes);
    void LoadRest(WorkProgress& progress);

    std::filesystem::path m_path;
    std::uint64_t m_fileBytes = 0;
    std::uint32_t m_pageNumber = 0;
    std::uint32_t m_pages = 0;
    TifPage m_page;
    std::optional<CameraCounts> m_cameras;
    PictureHolding m_holding = PictureHolding::Nowhere;
    std::unique_ptr<TiffRows> m_rows;
    std::unique_ptr<LoadingRows> m_loading;
    std::unique_ptr<PicturePyramid> m_pyramid;
    std::optional<ReducedRows> m_reduced;
    std::atomic<bool> m_isLoaded = false;
};

} // namespace vireo
