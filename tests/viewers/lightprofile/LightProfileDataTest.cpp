#include "tests/TempFolder.h"
#include "tests/viewers/lightprofile/LightProfileFiles.h"
#include "viewers/lightprofile/LightProfileData.h"
#include "viewers/lightprofile/LightProfileWriter.h"

#include <gtest/gtest.h>

namespace vireo {
namespace {

using Result = LightProfileResult;
using Wide = std::vector<std::int32_t>;

constexpr const char* kTag = "[Light Profile]";
const std::string kTwoCameras = "CameraCount=2\nCameraAPix=3\nCameraBPix=2\n";

class LightProfileDataTest : public testing::Test {
protected:
    Result Read(const std::string& bytes)
    {
        return m_data.Read(m_folder.Write("profile.con", bytes));
    }
    /// The samples of a line, red, green and blue one behind the other, of either kind.
    Wide Line(std::int64_t line)
    {
        ProfileLine profile;
        EXPECT_TRUE(m_data.Lines().ReadLine(line, profile));
        Wide values;
        for (const Plane plane : {Plane::Red, Plane::Green, Plane::Blue})
            for (std::int64_t i = 0; i < profile.Length(); ++i)
                if (const auto value = profile.ValueAt(plane, i))
                    values.push_back(*value);
        for (const auto& extra : profile.extras)
            values.insert(values.end(), extra.trace.samples.begin(), extra.trace.samples.end());
        return values;
    }

    TempFolder m_folder;
    LightProfileData m_data;
};

struct Case {
    const char* name;
    std::string bytes;
    std::int64_t lines;
    Wide first;
    const char* complaint; ///< Its beginning.
};

TEST_F(LightProfileDataTest, GivesWhatIsThere)
{
    const std::string noise = "[Noise Test]";
    const std::string color = "Color=Red:Green:Blue\n";
    const Case cases[] = {
        {"gray bytes", TextFile(kTag, "Color=Gray\n" + kTwoCameras, "\1\2\3\4\xFF"), 1,
            {1, 2, 3, 4, 255}, ""},
        {"two lines and a half", TextFile(kTag, "Height=2\n" + kTwoCameras, "abcdefghijKL"), 2,
            {'a', 'b', 'c', 'd', 'e'}, ""},
        {"pixel by pixel", TextFile(kTag, color + "Length=2\n", "RGBrgb"), 1,
            {'R', 'r', 'G', 'g', 'B', 'b'}, ""},
        {"signed",
            TextFile("[G3 Light Profile]", "IsSigned_32_Profile=TRUE\n" + kTwoCameras,
                Bytes32({-1, 0, 70'000, INT32_MIN, INT32_MAX})),
            1, {-1, 0, 70'000, INT32_MIN, INT32_MAX}, ""},
        {"signed colour, three bytes over",
            TextFile(kTag, color + "IsSigned_32_Profile=true\n", Bytes32({-5, 6, -7}) + "xyz"), 1,
            {-5, 6, -7}, ""},
        {"not signed", TextFile(kTag, "IsSigned_32_Profile=FALSE\n", "abcd"), 1,
            {'a', 'b', 'c', 'd'}, ""},
        {"noise, planes one by one", TextFile(noise, color + "Length=2\n", "RrGgBb"), 1,
            {'R', 'r', 'G', 'g', 'B', 'b'}, ""},
        {"noise, four planes", TextFile(noise, color + "Length=1\n", "RGBW"), 1,
            {'R', 'G', 'B', 'W'}, ""},
        {"noise, last plane short", TextFile(noise, color + "Length=3\n", "RrrGggB"), 1,
            {'R', 'r', 'r', 'G', 'g', 'g', 'B'}, "The file ends before its profile does.\n1 of"},
        {"old, one line", OldHeader(16, 4) + "abcd", 1, {'a', 'b', 'c', 'd'}, ""},
        {"old, by its mark", OldHeader(17, 2, 2, 13'900) + "abcd", 2, {'a', 'b'}, ""},
        {"old, no width", OldHeader(16, 0) + "abc", 1, {'a', 'b', 'c'}, ""},
        {"old noise, gray", OldHeader(19, 2) + "ab" + std::string(44, 'N'), 1, {'a', 'b'}, ""},
        {"shorter than announced", TextFile(kTag, kTwoCameras, "ab"), 1, {'a', 'b'},
            "The file ends before its profile does.\n2 of at least 5"},
        {"fewer lines than announced", TextFile(kTag, "Height=9\nLength=2\n", "abcd"), 2,
            {'a', 'b'}, "The file ends before its profile does.\n4 of at least 6"},
        {"huge cameras", TextFile(kTag, "CameraAPix=2147483647\nCameraBPix=2147483647\n", "ab"), 1,
            {'a', 'b'}, "The file ends before its profile does.\n2 of at least 4294967294"},
        {"negative length", TextFile(kTag, "Length=-4\n", "ab"), 1, {'a', 'b'},
            "The header's line length is negative"},
        {"negative length of noise", TextFile(noise, "Color=Gray\nLength=-4\n", "ab"), 1,
            {'a', 'b'}, "The header's line length is negative"},
        {"negative width of an old file", OldHeader(16, -4) + "ab", 1, {'a', 'b'},
            "The header's line length is negative"},
        {"huge old noise", OldHeader(19, INT32_MAX) + "ab", 1, {'a', 'b'},
            "The file ends before its profile does.\n2 of at least 2147483647"},
        {"no data", TextFile(kTag, kTwoCameras), 1, {},
            "The file ends before its profile does.\n0 of"},
        {"old without data", OldHeader(19, 0), 1, {}, ""},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        ASSERT_EQ(Read(row.bytes), Result::Ok);
        EXPECT_EQ(m_data.Lines().LineCount(), row.lines);
        EXPECT_EQ(Line(0), row.first);
        const std::string complaint = row.complaint;
        EXPECT_EQ(m_data.Complaint().substr(0, complaint.size()), complaint);
        EXPECT_EQ(m_data.Complaint().empty(), complaint.empty()) << m_data.Complaint();
    }
}

TEST_F(LightProfileDataTest, ReadsTheLineAskedFor)
{
    const std::string first = "RGBRGBRGBRGBRGB";
    ASSERT_EQ(
        Read(TextFile(kTag, kTwoCameras + "Color=3\n", first + "1a!2b!3c!4d!5e?")), Result::Ok);
    EXPECT_EQ(m_data.Lines().LineCount(), 2);
    EXPECT_EQ(
        Line(1), Wide({'1', '2', '3', '4', '5', 'a', 'b', 'c', 'd', 'e', '!', '!', '!', '!', '?'}));
    EXPECT_EQ(m_data.Lines().PixelsOfLine(2), 0);
    EXPECT_EQ(m_data.Lines().PixelsOfLine(-1), 0);
}

TEST_F(LightProfileDataTest, TellsWhyItCannotRead)
{
    EXPECT_EQ(m_data.Read(m_folder.Path() / "none.con"), Result::CantOpen);
    const struct {
        std::string bytes;
        Result result;
    } cases[] = {
        {"", Result::TooShort},
        {std::string(47, '\1'), Result::TooShort},
        {std::string(48, '\1'), Result::WrongKind},
        {TextFile("[Stitch Test]", "Width=9\n", std::string(50, 'x')), Result::WrongKind},
        {"[Light Profile]\nDataPointer=      9999\n", Result::BadHeader},
        {"[Noise Test]\n" + std::string(60, 'x'), Result::BadHeader},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(Read(row.bytes), row.result) << row.bytes;
        EXPECT_FALSE(m_data.DescribeFailure(row.result).empty());
        EXPECT_EQ(m_data.Lines().PixelsOfLine(0), 0);
    }
}

TEST_F(LightProfileDataTest, TakesAnyFileWhenTold)
{
    const auto read = [&](const std::string& bytes) {
        return m_data.Read(m_folder.Write("any.con", bytes), LightProfileData::Accept::AnyFile);
    };
    ASSERT_EQ(read(TextFile("[Other]", "Length=2\n", "ab")), Result::Ok);
    EXPECT_EQ(Line(0), Wide({'a', 'b'}));
    ASSERT_EQ(read(std::string(48, '\0') + "abc"), Result::Ok);
    EXPECT_EQ(Line(0), Wide({'a', 'b', 'c'}));
}

TEST_F(LightProfileDataTest, WidthOfAPixel)
{
    const struct {
        const char* lines;
        double pitchMm;
    } cases[] = {
        {"ScannerWidth(1/1200)=12000\nResolution=300\n", 10 * 25.4 / 5},
        {"Resolution=508\n", 0.05},
        {"Resolution=0\nScannerWidth(1/1200)=-1\n", 8.5 * 4.24 * 25.4 / 5},
    };
    for (const auto& row : cases) {
        ASSERT_EQ(Read(TextFile(kTag, row.lines + kTwoCameras, "abcde")), Result::Ok);
        EXPECT_NEAR(m_data.Cameras().pixelPitchMm, row.pitchMm, 1e-9) << row.lines;
        EXPECT_EQ(m_data.Cameras().End(0), 3);
    }
}

TEST_F(LightProfileDataTest, NameInTheTrailerOfAnOldFile)
{
    std::string trailer = "Heron 24";
    trailer.resize(44, '\0');
    std::string header = OldHeader(19, 2);
    header[17] = 1;
    ASSERT_EQ(Read(header + "RrGgBb" + trailer), Result::Ok);
    EXPECT_EQ(m_data.Record().scannerName, "Heron 24");
    EXPECT_EQ(Line(0), Wide({'R', 'r', 'G', 'g', 'B', 'b'}));
    EXPECT_EQ(m_data.FirstShown(), ShownColour::All);
}

TEST_F(LightProfileDataTest, EveryPrefixAndEveryFlippedBit)
{
    const std::string whole =
        TextFile(kTag, "Color=Red:Green:Blue\nIsSigned_32_Profile=TRUE\nHeight=2\n" + kTwoCameras,
            std::string(2 * 5 * 3 * 4, 'x'));
    std::vector<std::string> inputs;
    for (std::size_t length = 0; length < whole.size(); ++length)
        inputs.push_back(whole.substr(0, length));
    for (std::size_t at = 0; at < whole.size(); ++at) {
        inputs.push_back(whole);
        inputs.back()[at] = static_cast<char>(inputs.back()[at] ^ (1 << at % 8));
    }
    for (const std::string& input : inputs) {
        if (Read(input) != Result::Ok)
            continue;
        ASSERT_GE(m_data.Lines().LineCount(), 1);
        ASSERT_LE(m_data.Lines().LineWidth() * m_data.Lines().LineCount(), m_data.DataLength());
        Line(m_data.Lines().LineCount() - 1);
    }
}

LightProfileRecord SomeRecord()
{
    LightProfileRecord record;
    record.scannerName = "Heron 36";
    record.date = "2026-03-14";
    record.generation = 5;
    record.corrected = true;
    record.scannerWidth = 43'200;
    record.centerLines = {1, -2, 3};
    record.cameraCount = 2;
    record.cameraPixels = {2, 1};
    return record;
}

TEST_F(LightProfileDataTest, WritesItsHeader)
{
    ProfileLine line;
    line.Of(Plane::Green).samples = {7, 8, 9};
    const auto file = m_folder.Path() / "out.con";
    ASSERT_EQ(WriteLightProfile(file, SomeRecord(), {&line, 1}), FileStatus::Ok);
    const std::string lines = "Generation=5\nColorScanner=FALSE\nCorrected=TRUE\n"
                              "IsSigned_32_Profile=FALSE\nScannerWidth(1/1200)=43200\n"
                              "CenterLines=1 -2 3\nCameraCount=2\nCameraAPix=2\nCameraBPix=1\n"
                              "CameraUsed=All\nColor=Gray\nHeight=1\nDate=2026-03-14\n"
                              "ScannerName=Heron 36\n";
    EXPECT_EQ(TempFolder::Read(file), TextFile(kTag, lines, "\7\10\11"));
}

TEST_F(LightProfileDataTest, ReadsBackWhatItWrites)
{
    std::vector<ProfileLine> lines(2);
    for (ProfileLine& line : lines)
        for (std::size_t plane = 0; plane < 3; ++plane)
            for (std::int32_t i = 0; i < 70'000; ++i) // More than a piece.
                line.widePlanes[plane].samples.push_back(
                    (i - 35'000) * 61'356 + static_cast<std::int32_t>(plane));
    lines[1].widePlanes[2].samples.back() = INT32_MIN;
    LightProfileRecord record = SomeRecord();
    record.isG3 = true;
    record.cameraPixels = {40'000, 30'000};
    const auto file = m_folder.Path() / "out.con";
    ASSERT_EQ(WriteLightProfile(file, record, lines), FileStatus::Ok);
    ASSERT_EQ(m_data.Read(file), Result::Ok);
    EXPECT_TRUE(m_data.Record().isG3);
    EXPECT_EQ(m_data.Record().centerLines, record.centerLines);
    EXPECT_EQ(m_data.Lines().LineCount(), 2);
    EXPECT_EQ(m_data.Complaint(), "");
    for (std::int64_t number = 0; number < 2; ++number) {
        ProfileLine line;
        ASSERT_TRUE(m_data.Lines().ReadLine(number, line));
        for (std::size_t plane = 0; plane < 3; ++plane)
            EXPECT_TRUE(line.widePlanes[plane].samples
                == lines[static_cast<std::size_t>(number)].widePlanes[plane].samples);
    }
}

} // namespace
} // namespace vireo
