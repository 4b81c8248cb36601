#pragma once

#include "imagefile/CFilterBase.h"
#include "imagefile/CIccProfileReader.h"
#include "imagefile/CTIFOutput.h"
#include "imagefile/CTIFTarget.h"
#include "imagefile/TifDirectory.h"
#include "imagefile/TifPage.h"

#include <array>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vireo {

/// What a TIFF is written with besides its pixels.
struct TifSettings {
    std::uint16_t compression = TifCompression::kNone;
    std::uint16_t predictor = 1; ///< 2, horizontal differencing, goes with LZW only.
    /// What readers are told of gray pictures, and of modified Huffman and Group 4: whether 0, or
    /// the pixels of white runs, are white. Changes no sample. Nothing: black is 0, white runs are
    /// white.
    std::optional<bool> whiteIsZero;
    std::string description; ///< Bytes; empty: none.
    /// Of pictures of depth Palette8, which must have it.
    std::optional<std::array<TifPage::Color, 256>> colorMap;
    /// The same colours with 16 bits, as TifPage has them; nothing: made of `colorMap`.
    std::optional<std::array<std::uint16_t, TifPage::kColorMapValues>> colorMapValues;
    CIccProfileReader* profile = nullptr; ///< Not owned; null: none.
    /// A profile that cannot be taken is a failure; else the picture is written without it.
    bool requiresProfile = true;
};

/// Writes a picture as a little-endian TIFF of one page: the rows go through a filter, where there
/// is a predictor, and a coder to a buffered stream. It keeps one row, the coder's tables and 4
/// bytes a strip. The file is complete or absent: only EndImage with status 0, after as many rows
/// as were announced, puts it in its place.
///
/// Bilevel rows have 1 bits for white. Samples of 16 bits are to be little-endian. LZW and Group 4
/// pictures are one strip; rows coded by themselves make strips of about kStripBytes of pixels.
class CTIFWriter : public CImageReceiver {
public:
    static constexpr std::uint64_t kStripBytes = 64 * 1024;

    CTIFWriter(const std::filesystem::path& file, TifSettings settings);
    CTIFWriter(std::unique_ptr<CTIFTarget> target, TifSettings settings,
        std::uint64_t mostBytes = CTIFOutput::kMostBytes);
    ~CTIFWriter() override;

    /// What a page says can be told until here: BeginImage looks at the settings first.
    TifSettings& Settings() { return m_settings; }

    ImageResult BeginImage(ColorDepth depth, std::uint32_t width, std::uint32_t height,
        std::uint32_t resolution, std::uint32_t reserved1, std::uint32_t reserved2) override;
    std::uint8_t* GetLineBuffer() override { return m_first->GetLineBuffer(); }
    ImageResult LineDone() override;
    ImageResult EndImage(std::uint32_t status) override;

    /// The first failure, or Ok.
    ImageResult Result() const { return m_result; }
    /// One clear sentence for it, without the file's name.
    std::string DescribeFailure() const;

private:
    ImageResult Begin();
    ImageResult CheckArguments();
    ImageResult MakeStages();
    ImageResult WriteProfile();
    ImageResult Finish();
    void AddEntries(TifDirectory& directory) const;
    void AddStripByteCounts(TifDirectory& directory) const;
    void AddColorMap(TifDirectory& directory) const;
    ImageResult Fail(ImageResult result, std::string reason);
    ImageResult FailToWrite();
    std::uint16_t Photometric() const;
    bool RowsStandAlone() const;

    std::unique_ptr<CTIFTarget> m_target;
    TifSettings m_settings;
    const std::uint64_t m_mostBytes;
    std::unique_ptr<CTIFOutput> m_output;
    std::unique_ptr<CImageReceiver> m_coder;
    std::unique_ptr<CFilterBase> m_filter;
    CImageReceiver* m_first = nullptr; ///< The first stage.

    ColorDepth m_depth = ColorDepth::Bilevel;
    std::uint32_t m_width = 0;
    std::uint32_t m_height = 0;
    std::uint32_t m_resolution = 0;
    std::uint32_t m_rowsPerStrip = 1;
    std::uint32_t m_row = 0; ///< The next row.
    std::uint32_t m_profileOffset = 0;
    std::uint32_t m_profileBytes = 0;
    std::vector<std::uint32_t> m_stripOffsets;
    std::uint32_t m_stripsEnd = 0; ///< The offset behind the rows so far.
    ImageResult m_result = ImageResult::Ok;
    std::string m_reason;
};

} // namespace vireo
