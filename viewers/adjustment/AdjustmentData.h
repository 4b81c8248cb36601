#pragma once

#include "platform/PositionalFile.h"
#include "testfile/HeaderView.h"
#include "testfile/TestFileHeader.h"
#include "viewers/controls/PictureRows.h"
#include "viewers/controls/ProfileLine.h"
#include "viewers/controls/SampleLines.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vireo {

/// The adjustment tests; each has two names.
enum class AdjustmentKind {
    AdjustCenterCcd,            ///< "[Adjust Center CCD]" or "[Scan-Line Positioning]".
    VerticalCameraVerification, ///< "[Vertical Camera Verification]" or
                                ///< "[Mirror Carriage Adjustment]".
};

/// What came of reading an adjustment file.
enum class [[nodiscard]] AdjustmentResult{
    Ok,
    CantOpen,
    WrongKind, ///< The other kind, or none.
    BadHeader,
};

/// The result of an adjustment test: the keys of its header, and a data block that is taken as
/// lines of samples or as a picture where the header's sizes explain it to the byte.
///
/// Read takes the header only; the data are read when they are looked at.
class AdjustmentData {
public:
    /// What the data block is.
    enum class Form {
        None,        ///< There is none.
        Profile,     ///< Lines of samples: one, or several of 32 bits.
        Picture,     ///< Several lines of bytes, gray or red, green, blue.
        Unexplained, ///< The sizes in the header do not tell.
    };

    /// Reads a file and forgets what was read before. `isForced` takes a file under any tag.
    AdjustmentResult Read(
        const std::filesystem::path& path, AdjustmentKind kind, bool isForced = false);
    /// One clear sentence for a result other than Ok.
    std::string DescribeFailure(AdjustmentResult result) const;

    const std::filesystem::path& Path() const { return m_path; }
    const TestFileHeader& Header() const { return m_header; }
    /// The header's tags and keys, as they are shown.
    const std::vector<HeaderRow>& Rows() const { return m_rows; }
    /// The name of the test by the file's tag: "Scan-Line Positioning"; that of the kind before a
    /// file was read.
    std::string_view Title() const { return m_title; }

    Form DataForm() const { return m_form; }
    std::int64_t DataLength() const { return m_dataLength; }
    /// What the data are taken as, or why they are not: one sentence.
    const std::string& Explanation() const { return m_explanation; }
    /// The lines of a profile or the rows of a picture; none of other forms.
    const SampleLines& Lines() const { return m_lines; }
    /// Null unless the data are a picture.
    const std::shared_ptr<const PictureRows>& Picture() const { return m_picture; }

    /// Where the cameras lie in a line and how wide a pixel is.
    ProfileCameras Cameras() const;
    /// What is shown of a profile at first: all colours, or the one plane.
    ShownColour FirstShown() const;

private:
    bool Explain(std::int64_t width);
    void ExplainData();
    std::vector<std::int64_t> Widths() const;
    std::int64_t RowBytes(std::int64_t width) const;

    std::filesystem::path m_path;
    TestFileHeader m_header;
    FileStatus m_openStatus = FileStatus::Ok;
    HeaderResult m_headerStatus = HeaderResult::Ok;
    std::vector<HeaderRow> m_rows;
    std::string_view m_title;
    Form m_form = Form::None;
    std::int64_t m_dataLength = 0;
    std::string m_explanation;
    SampleLayout m_layout;
    SampleLines m_lines;
    std::shared_ptr<const PictureRows> m_picture;
};

} // namespace vireo
