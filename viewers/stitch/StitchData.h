#pragma once

#include "platform/PositionalFile.h"
#include "platform/WorkProgress.h"
#include "testfile/TestFileHeader.h"
#include "viewers/controls/PictureRows.h"
#include "viewers/stitch/StitchRows.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vireo {

/// What came of reading a stitch test file.
enum class [[nodiscard]] StitchResult{
    Ok,
    CantOpen,
    BadHeader, ///< Tagged as a stitch test, but the header cannot be read.
    TooShort,  ///< Neither a text header nor the 48 bytes of a binary one.
    Cancelled,
};

/// The picture that a stitch test saved, of which no pixel is held: rows are read from the file
/// when they are looked at.
///
/// Two forms of file are read: the text header with gray pixels behind it, and the older one with a
/// 48-byte binary header, whose type tells gray pixels from run-length codes. Whatever a header
/// says of the size, what the data do not cover is white.
class StitchData {
public:
    /// Reads the header, and of a run-length picture all codes once, to find its rows. Forgets what
    /// was read before; after any result but Ok the record is empty.
    StitchResult Read(const std::filesystem::path& path, WorkProgress& progress);
    StitchResult Read(const std::filesystem::path& path);
    /// One clear sentence for a result other than Ok.
    std::string DescribeFailure(StitchResult result) const;

    // The record, as the header says; 0 where it does not.
    std::int32_t m_iMemoryDC_Width = 0;     ///< Pixels.
    std::int32_t m_iMemoryDC_Height = 0;    ///< Pixels.
    std::int32_t m_iPhysicalResolution = 0; ///< Dots per inch.
    std::int64_t m_iDataLength = 0;         ///< Bytes of picture data.
    bool m_bRunLength = false;

    const std::filesystem::path& Path() const { return m_path; }
    /// The text header as it stands in the file; empty for the binary form.
    const std::string& HeaderText() const { return m_header.Text(); }
    const TestFileHeader& Header() const { return m_header; }

    /// The picture; null before anything was read.
    const std::shared_ptr<const PictureRows>& Picture() const { return m_picture; }

    /// The names of the values that a text header lacks, in the order they are looked for.
    const std::vector<std::string>& Missing() const { return m_missing; }
    /// What to tell the user of the file, in order: what is missing, then that there are more or
    /// fewer data than a text header announces.
    std::vector<std::string> Complaints() const;

    /// Larger pictures than this are hashed and exported only when there are as many data.
    static constexpr std::int64_t kMostUncoveredPixels = std::int64_t{1} << 34;
    /// Whether working through every pixel comes to an end in reasonable time.
    bool IsWorkable() const;
    /// SHA-256 of the drawn picture, one gray byte a pixel, top row first; nothing for a picture
    /// that is announced so large that this would take for ever.
    std::optional<std::string> PictureSha256() const;

private:
    StitchResult ReadForm(PositionalFile file, WorkProgress& progress);
    StitchResult ReadText(PositionalFile& file, StitchLayout& layout);

    std::filesystem::path m_path;
    FileStatus m_openStatus = FileStatus::Ok;
    HeaderResult m_headerStatus = HeaderResult::Ok;
    TestFileHeader m_header;
    std::vector<std::string> m_missing;
    bool m_bHasTextHeader = false;
    std::shared_ptr<const PictureRows> m_picture;
};

} // namespace vireo
