#include "imagefile/CTIFReader.h"
#include "imagefile/CTIFWriter.h"
#include "platform/Log.h"
#include "platform/Message.h"
#include "testfile/CPicture.h"
#include "testfile/DarkLine.h"
#include "tests/TempFolder.h"

#include <cmath>
#include <cstring>
#include <random>
#include <sstream>

namespace vireo {
namespace {

CPicture MakePicture(std::uint32_t type, std::int32_t width, std::int32_t height)
{
    CPicture picture;
    picture.m_PicData = type;
    picture.m_iWidth = width;
    picture.m_iWidth3 = 3 * width;
    picture.m_iHeight = height;
    picture.m_iResolution = 600;
    picture.m_BiC = {5412, 5388, 0, 7, 0, 0, 0, 1};
    picture.Alloc(picture.LinePitch() * height);
    std::mt19937 random(1);
    for (std::uint8_t& byte : picture.Pixels())
        byte = static_cast<std::uint8_t>(random());
    picture.SetDataLength(picture.BufferLength());
    return picture;
}

TEST(CPicture, MemoryOfNoLengthIsRefused)
{
    CPicture picture;
    picture.Alloc(10);
    EXPECT_EQ(picture.Pixels().size(), 10U);
    for (const std::int64_t length : {std::int64_t{0}, std::int64_t{-1}}) {
        try {
            picture.Alloc(length);
            FAIL();
        } catch (const CPictureException& refusal) {
            EXPECT_STREQ(refusal.what(), "Error Alloc Memory CPicture::Alloc, zero length");
        }
        EXPECT_EQ(picture.BufferLength(), 0);
    }
    try {
        picture.Alloc(std::int64_t{1} << 60);
        FAIL();
    } catch (const CPictureException& refusal) {
        EXPECT_STREQ(refusal.what(), "Error Alloc Memory CPicture::Alloc");
    }
}

TEST(CPicture, CopiesAndKeepsItsPixelsWhenThereAreNone)
{
    const TempFolder folder;
    CPicture loaded;
    ASSERT_EQ(MakePicture(CPicture::PIC_GRAY, 7, 3).SaveTiff(folder.Path() / "a.tif", 1),
        ImageResult::Ok);
    ASSERT_EQ(loaded.LoadTiff(folder.Path() / "a.tif"), ImageResult::Ok);
    CPicture target;
    EXPECT_TRUE(target.CopyFrom(loaded));
    EXPECT_TRUE(std::ranges::equal(target.Pixels(), loaded.Pixels()));
    EXPECT_EQ(target.m_BiC, loaded.m_BiC);
    EXPECT_EQ(target.m_iWidth3, 21);
    EXPECT_TRUE(target.CopyFrom(target));

    CPicture empty;
    empty.m_iWidth = 99;
    EXPECT_FALSE(target.CopyFrom(empty));
    EXPECT_EQ(target.m_iWidth, 99);
    EXPECT_EQ(target.DataLength(), 0);
    EXPECT_TRUE(std::ranges::equal(target.Pixels(), loaded.Pixels()));

    const CPicture copy = loaded;
    EXPECT_NE(copy.Pixels().data(), loaded.Pixels().data());
    EXPECT_TRUE(std::ranges::equal(copy.Pixels(), loaded.Pixels()));
}

TEST(CPicture, Millimetres)
{
    CPicture picture;
    picture.m_iResolution = 600;
    EXPECT_DOUBLE_EQ(picture.PixelsToMillimetres(300), 12.7);
}

std::string InfoOf(const CPicture& picture)
{
    std::ostringstream stream;
    picture.WriteInfo(&stream);
    return stream.str();
}

TEST(CPicture, InfoBlock)
{
    CPicture picture = MakePicture(CPicture::PIC_GRAY, 12, 2);
    EXPECT_EQ(InfoOf(picture),
        "[PictureInfo]\nm_BiC[0]=5412\nm_BiC[1]=5388\nm_BiC[2]=0\nm_BiC[3]=7\nm_BiC[4]=0\n"
        "m_BiC[5]=0\nm_BiC[6]=0\nm_BiC[7]=1\nm_iWidth=12\nm_iWidth3=36\nm_iHeight=2\n"
        "m_iResolution=600\nm_PicData=PIC_GRAY\n[PictureInfo End]\n");
    picture.WriteInfo(nullptr);

    const TempFolder folder;
    // There is no line for 16-bit pictures, which is why they read back as RGB.
    const std::pair<std::uint32_t, std::uint32_t> types[] = {{CPicture::PIC_BW, CPicture::PIC_BW},
        {CPicture::PIC_GRAY, CPicture::PIC_GRAY}, {CPicture::PIC_RGB, CPicture::PIC_RGB},
        {CPicture::PIC_RGB16, CPicture::PIC_RGB},
        {CPicture::PIC_UNDEFINED, CPicture::PIC_UNDEFINED}, {77, CPicture::PIC_RGB}};
    for (const auto& [written, read] : types) {
        picture.m_PicData = written;
        CPicture readBack;
        readBack.ReadInfo(folder.Write("info.ini", InfoOf(picture)));
        EXPECT_EQ(readBack.m_PicData, read);
        EXPECT_EQ(readBack.m_BiC, picture.m_BiC);
        EXPECT_EQ(readBack.m_iWidth, 12);
        EXPECT_EQ(readBack.m_iWidth3, 36);
        EXPECT_EQ(readBack.m_iHeight, 2);
        EXPECT_EQ(readBack.m_iResolution, 600);
    }
}

TEST(CPicture, InfoBlocksOfOldAndOddFiles)
{
    const TempFolder folder;
    CPicture picture;
    picture.m_PicData = CPicture::PIC_BW;
    picture.ReadInfo(folder.Write("old.ini",
        "[PictureInfo]\nm_iA=1\nm_iB=2\nm_iH=8\nm_BiC[2]=33\nm_BiC[3]=-1\nm_iD=44\n"
        "m_PicData=PIC_xyz\n"));
    EXPECT_EQ(picture.m_BiC, (CameraCounts{1, 2, 33, 44, -1, -1, -1, 8}));
    EXPECT_EQ(picture.m_iWidth, -1);
    EXPECT_EQ(picture.m_PicData, CPicture::PIC_BW) << "an unknown letter changes nothing";
    picture.ReadInfo(folder.Write("short.ini", "[PictureInfo]\nm_PicData=PIC_\nm_iWidth=7x\n"));
    EXPECT_EQ(picture.m_PicData, CPicture::PIC_BW);
    EXPECT_EQ(picture.m_iWidth, 7);
    picture.ReadInfo(folder.Path() / "none.ini");
    EXPECT_EQ(picture.m_PicData, CPicture::PIC_RGB);
    EXPECT_EQ(picture.m_iHeight, -1);
}

TEST(CPicture, TiffRoundTrip)
{
    const TempFolder folder;
    const auto file = folder.Path() / "picture.tif";
    for (const std::uint32_t type :
        {CPicture::PIC_BW, CPicture::PIC_GRAY, CPicture::PIC_RGB, CPicture::PIC_RGB16}) {
        CPicture picture = MakePicture(type, 32, 40);
        ASSERT_EQ(picture.SaveTiff(file, 5, type == CPicture::PIC_BW ? 1 : 2), ImageResult::Ok);
        CPicture loaded;
        ASSERT_EQ(loaded.LoadTiff(file), ImageResult::Ok);
        EXPECT_TRUE(std::ranges::equal(picture.Pixels(), loaded.Pixels()));
        EXPECT_EQ(loaded.DataLength(), picture.BufferLength());
        EXPECT_EQ(loaded.m_BiC, picture.m_BiC);
        EXPECT_EQ(loaded.m_PicData, type);
        EXPECT_EQ(loaded.m_iWidth3, 96);
        EXPECT_EQ(loaded.m_iResolution, 600);
    }
    CPicture picture = MakePicture(CPicture::PIC_GRAY, 32, 40);
    EXPECT_EQ(picture.SaveTiff(file, 1, 1, "no such profile"), ImageResult::CantOpenIcc);
    picture.m_iHeight = 41;
    EXPECT_EQ(picture.SaveTiff(file, 1), ImageResult::InvalidTiffArguments);
    picture.m_PicData = CPicture::PIC_UNDEFINED;
    EXPECT_EQ(picture.SaveTiff(file, 1), ImageResult::InvalidTiffArguments);
}

TEST(CPicture, TiffsThatCannotBeLoadedChangeNothing)
{
    const TempFolder folder;
    const auto write = [&](ColorDepth depth, const char* description) {
        TifSettings settings;
        settings.colorMap.emplace();
        settings.description = description;
        CTIFWriter writer(folder.Path() / "other.tif", settings);
        EXPECT_EQ(writer.BeginImage(depth, 2, 1, 0, 0, 0), ImageResult::Ok);
        std::memset(writer.GetLineBuffer(), 'x', static_cast<std::size_t>(BytesPerRow(depth, 2)));
        EXPECT_EQ(writer.LineDone(), ImageResult::Ok);
        EXPECT_EQ(writer.EndImage(0), ImageResult::Ok);
        return folder.Path() / "other.tif";
    };
    CPicture picture = MakePicture(CPicture::PIC_GRAY, 9, 9);
    EXPECT_EQ(picture.LoadTiff(folder.Path() / "none.tif"), ImageResult::CantOpenTif);
    EXPECT_EQ(picture.LoadTiff(folder.Write("a.tif", "text")), ImageResult::TifFormatError);
    for (const ColorDepth depth : {ColorDepth::Palette8, ColorDepth::Gray16})
        EXPECT_EQ(picture.LoadTiff(write(depth, "")), ImageResult::UnsupportedTifFormat);
    EXPECT_EQ(picture.m_iWidth, 9);
    EXPECT_EQ(picture.BufferLength(), 81);
    EXPECT_EQ(picture.LoadTiff(write(ColorDepth::Gray8, "no counts")), ImageResult::Ok);
    EXPECT_EQ(picture.m_BiC[0], 5412) << "a description without counts leaves them";
}

TEST(CPicture, LinesThatCannotBeDecodedAreTold)
{
    const TempFolder folder;
    const auto file = folder.Path() / "picture.tif";
    ASSERT_EQ(MakePicture(CPicture::PIC_GRAY, 300, 3).SaveTiff(file, 32773), ImageResult::Ok);
    std::string bytes = TempFolder::Read(file);
    bytes[8] = '\x81'; // Repeats 128 bytes
    bytes[10] = '\x81';
    bytes[12] = '\x81'; // beyond the row's end.
    CPicture picture;
    ImageResult lines = ImageResult::Ok;
    EXPECT_EQ(picture.LoadTiff(folder.Write("bad.tif", bytes), 1, &lines), ImageResult::Ok);
    EXPECT_EQ(lines, ImageResult::TifFormatError);
}

/// A gray picture with a dark line whose brightness is spread as a bell of `sigma` pixels.
CPicture LinePicture(std::uint32_t type, bool isVertical, double centre, double sigma)
{
    CPicture picture = MakePicture(type, 60, 60);
    const auto samples = static_cast<std::size_t>(picture.LinePitch() / 60);
    for (std::size_t row = 0; row < 60; ++row) {
        for (std::size_t column = 0; column < 60; ++column) {
            const double distance = static_cast<double>(isVertical ? column : row) - centre;
            const double depth = 180.0 * std::exp(-distance * distance / (2 * sigma * sigma));
            for (std::size_t sample = 0; sample < samples; ++sample)
                picture.Pixels()[(row * 60 + column) * samples + sample] =
                    static_cast<std::uint8_t>(std::lround(220.0 - depth));
        }
    }
    return picture;
}

TEST(CPicture, LinesWithKnownCentres)
{
    for (const std::uint32_t type : {CPicture::PIC_GRAY, CPicture::PIC_RGB}) {
        for (const double centre : {20.0, 20.25, 20.5, 20.7, 21.9}) {
            for (const double sigma : {1.0, 2.5}) {
                const CPicture horizontal = LinePicture(type, false, centre, sigma);
                EXPECT_NEAR(*horizontal.FindCenterOfHorizontalLine(5, 0, 60), centre, 0.03);
                EXPECT_NEAR(*horizontal.FindCenterOfHorizontalLine(59, 10, 1000), centre, 0.03);
                EXPECT_NEAR(*horizontal.FindHorizontalLineAtPixelColumn(5, 0, 60), centre, 0.51);
                const CPicture vertical = LinePicture(type, true, centre, sigma);
                EXPECT_NEAR(*vertical.FindCenterOfVerticalLine(59, 0, 60), centre, 0.03);
                EXPECT_NEAR(*vertical.FindVerticalLineAtPixelRow(0, 3, 60), centre, 0.51);
            }
        }
    }
}

TEST(CPicture, SearchesThatFindNothing)
{
    const CPicture picture = LinePicture(CPicture::PIC_GRAY, false, 20.0, 2.0);
    EXPECT_FALSE(picture.FindCenterOfHorizontalLine(60, 0, 60));
    EXPECT_FALSE(picture.FindCenterOfHorizontalLine(-1, 0, 60));
    EXPECT_FALSE(picture.FindCenterOfHorizontalLine(0, 30, 60)) << "the line lies above";
    EXPECT_FALSE(picture.FindCenterOfHorizontalLine(0, 30, 30));
    EXPECT_FALSE(picture.FindCenterOfHorizontalLine(0, 30, -5));
    EXPECT_FALSE(picture.FindCenterOfVerticalLine(60, 0, 60));
    EXPECT_FALSE(picture.FindVerticalLineAtPixelRow(40, 0, 60)) << "no line goes that way";
    CPicture unfilled = picture;
    unfilled.m_iHeight = 1'000'000;
    EXPECT_NEAR(*unfilled.FindCenterOfHorizontalLine(0, 0, 1'000'000), 20.0, 0.03);
}

TEST(CPicture, SearchesThatAreRefused)
{
    MessageRecorder messages;
    const CPicture picture = MakePicture(CPicture::PIC_BW, 8, 8);
    EXPECT_FALSE(picture.FindHorizontalLineAtPixelColumn(0, 0, 8));
    EXPECT_FALSE(picture.FindCenterOfHorizontalLine(0, 0, 8));
    ASSERT_EQ(messages.Messages().size(), 2U);
    EXPECT_EQ(messages.Messages()[0].text,
        "Not RGB or Gray picture\nCPicture::FindHorizontalLineAtPixelColumn() not valid");
    EXPECT_EQ(messages.Messages()[1].text,
        "Not RGB or Gray picture\nCPicture::FindCenterOfHorizontalLine() not valid");

    const TempFolder folder;
    log_Close();
    EXPECT_FALSE(picture.FindCenterOfVerticalLine(-1, 0, 8));
    EXPECT_FALSE(picture.FindCenterOfVerticalLine(0, -1, 8));
    ASSERT_TRUE(log_Init("test", ".log", folder.Path()));
    const std::string log = TempFolder::Read(log_FilePath());
    log_Close();
    EXPECT_NE(log.find("WARNING FindCenterOfVerticalLine :: iSearchRow < 0\n"), std::string::npos);
    EXPECT_NE(
        log.find("WARNING FindCenterOfVerticalLine :: iStartColumn < 0\n"), std::string::npos);
}

TEST(DarkLine, FirstOfSeveralAndSharpOnes)
{
    std::vector<double> profile(40, 200.0);
    EXPECT_FALSE(FindDarkLine(profile));
    EXPECT_FALSE(FindDarkLine({}));
    profile[30] = 0.0;
    profile[10] = profile[11] = 90.0; // More than half as deep as the deepest.
    EXPECT_EQ(FindDarkLine(profile)->darkest, 10U);
    EXPECT_DOUBLE_EQ(FindDarkLine(profile)->centre, 10.5);
    profile[10] = profile[11] = 110.0;
    EXPECT_DOUBLE_EQ(FindDarkLine(profile)->centre, 30.0);
    profile[31] = 150.0; // 25 below the level of 175, which the line is 175 below.
    EXPECT_DOUBLE_EQ(FindDarkLine(profile)->centre, 30.0 + 25.0 / 200.0);
    profile.assign(40, 200.0);
    profile[0] = 185.0;
    EXPECT_FALSE(FindDarkLine(profile)) << "15 levels";
    profile[0] = 184.0;
    EXPECT_DOUBLE_EQ(FindDarkLine(profile)->centre, 0.0);
}

} // namespace
} // namespace vireo
