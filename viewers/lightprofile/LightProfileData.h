#pragma once

#include "platform/PositionalFile.h"
#include "testfile/TestFileHeader.h"
#include "viewers/controls/ProfileLine.h"
#include "viewers/controls/SampleLines.h"
#include "viewers/lightprofile/LightProfileRecord.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace vireo {

struct NoiseLayout;

/// What came of reading a light profile.
enum class [[nodiscard]] LightProfileResult{
    Ok, CantOpen,
    WrongKind, ///< No light profile, no noise test, and no old file of either.
    BadHeader, ///< Tagged as one, but the header cannot be read.
    TooShort,  ///< Not even the 48 bytes of an old header.
};

/// A light profile: what a scanner's cameras see of an evenly lit white target, as one line (or
/// several) of bytes or signed 32-bit numbers.
///
/// Three forms of file are read: the text header with the lines behind it, pixel by pixel as in an
/// oscilloscope file; a noise test, plane after plane; and the old file with a 48-byte binary
/// header. Read takes the header only; a line is read from the file when it is asked for, so a file
/// of any size opens in the same time. Whatever a header announces, what is there is given.
class LightProfileData {
public:
    /// Which files are taken.
    enum class Accept {
        LightProfiles, ///< Those that say they are light profiles or noise tests.
        AnyFile,       ///< Any: by its text header where it has one, else as an old file.
    };

    /// Reads the header of a file and forgets what was read before. After any result but Ok there
    /// are no lines.
    LightProfileResult Read(
        const std::filesystem::path& path, Accept accept = Accept::LightProfiles);
    /// One clear sentence for a result other than Ok.
    std::string DescribeFailure(LightProfileResult result) const;
    /// What is wrong with the sizes of a file that was read, a line each; empty: nothing.
    const std::string& Complaint() const { return m_complaint; }

    const std::filesystem::path& Path() const { return m_path; }
    const LightProfileRecord& Record() const { return m_record; }
    /// The text header as it stands in the file; empty for the old form.
    const std::string& HeaderText() const { return m_headerText; }

    /// The lines, in the planes red, green, blue and, of a noise test, gray; or in the one plane
    /// that the file has: the colour that it names, else green.
    const SampleLines& Lines() const { return m_lines; }
    bool HasColour() const { return m_lines.Layout().HasColour(); }
    /// What is shown at first: all colours, or the one plane.
    ShownColour FirstShown() const;

    /// Bytes of data behind the header.
    std::int64_t DataLength() const { return m_dataLength; }

    /// Where the cameras lie in a line and how wide a pixel is.
    ProfileCameras Cameras() const;

private:
    LightProfileResult ReadForm(PositionalFile& file, Accept accept);
    LightProfileResult ReadText(PositionalFile& file, const TestFileHeader& header);
    LightProfileResult ReadOld(PositionalFile& file, Accept accept);
    std::int64_t AnnouncedWidth(const TestFileHeader& header) const;
    void LayOutLines(
        SampleLayout& layout, std::int64_t announcedWidth, std::optional<int> announcedLines);
    void LayOutPlanes(SampleLayout& layout, const NoiseLayout& noise);
    void Complain(const SampleLayout& layout, std::int64_t announced, std::int64_t present);

    std::filesystem::path m_path;
    LightProfileRecord m_record;
    std::string m_headerText;
    std::string m_complaint;
    FileStatus m_openStatus = FileStatus::Ok;
    HeaderResult m_headerStatus = HeaderResult::Ok;
    std::int64_t m_dataLength = 0;
    SampleLines m_lines;
};

} // namespace vireo
