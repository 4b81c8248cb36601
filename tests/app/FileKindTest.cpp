#include "app/FileKind.h"
#include "tests/TempFolder.h"

#include <gtest/gtest.h>

namespace vireo {

namespace {

using Viewers = std::vector<std::string_view>;

std::span<const std::uint8_t> Bytes(const std::string& text)
{
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

struct TagRow {
    const char* tag;
    FileKind kind;
    Viewers viewers;
};

const TagRow kTags[] = {
    {"[Light Profile]", FileKind::LightProfile, {"CView_LPF_Dialog"}},
    {"[G3 Light Profile]", FileKind::LightProfile, {"CView_LPF_Dialog"}},
    {"[Oscilloscope]", FileKind::Oscilloscope, {"COscilloscope_Dialog"}},
    {"[MTF]", FileKind::Mtf, {"COscilloscope_Dialog"}},
    {"[Stitch Test]", FileKind::Stitch, {"CView_Stitch_Dialog"}},
    {"[Noise Test]", FileKind::Noise, {"CNoiseTest_SM_Dialog"}},
    {"[Kitbag]", FileKind::Kitbag, {}},
    {"[Adjust Center CCD]", FileKind::AdjustCenterCcd, {"CAdjustCenterCCD_Dialog"}},
    {"[Scan-Line Positioning]", FileKind::AdjustCenterCcd, {"CAdjustCenterCCD_Dialog"}},
    {"[Vertical Camera Verification]", FileKind::VerticalCameraVerification,
        {"CVerticalCameraVerification_Dialog"}},
    {"[Mirror Carriage Adjustment]", FileKind::VerticalCameraVerification,
        {"CVerticalCameraVerification_Dialog"}},
    {"[StarTest]", FileKind::StarTest, {"CStarTest_Dialog"}},
    {"[Tonal Resolution]", FileKind::TonalResolution, {"CTonalResolutionDialog"}},
};

TEST(FileKind, EveryTagOpensItsViewer)
{
    for (const TagRow& row : kTags) {
        const std::string text = std::string(row.tag) + "\nDataPointer=       123\n";
        const Recognition found = Recognise(Bytes(text), "a.con");
        EXPECT_EQ(found.kind, row.kind) << row.tag;
        EXPECT_EQ(found.container, Container::Text) << row.tag;
        EXPECT_EQ(found.viewers, row.viewers) << row.tag;
        EXPECT_EQ(found.dataOffset, 123) << row.tag;
    }
}

TEST(FileKind, TheEarlierRowDecidesWhateverStandsFirst)
{
    for (std::size_t first = 0; first < std::size(kTags); ++first) {
        for (std::size_t second = first; second < std::size(kTags); ++second) {
            const std::string text = std::string(kTags[second].tag) + kTags[first].tag;
            EXPECT_EQ(Recognise(Bytes(text), "").kind, kTags[first].kind) << text;
        }
    }
}

TEST(FileKind, TagsAreSeenWithinTheFirst100BytesUpToAZero)
{
    struct Row {
        const char* what;
        std::string text;
        FileKind kind;
    };
    for (const Row& row :
        {Row{"ends at byte 100", std::string(90, ' ') + "[StarTest]", FileKind::StarTest},
            Row{"ends behind it", std::string(91, ' ') + "[StarTest]", FileKind::Unknown},
            Row{"starts behind it", std::string(101, ' ') + "[StarTest]", FileKind::Unknown},
            Row{"behind a zero byte", std::string(1, '\0') + "[StarTest]" + std::string(60, ' '),
                FileKind::Unknown},
            Row{"another case", "[startest]", FileKind::Unknown},
            Row{"live oscilloscope", "[Live Oscilloscope]\n", FileKind::Unknown}}) {
        EXPECT_EQ(Recognise(Bytes(row.text), "a.con").kind, row.kind) << row.what;
    }
}

/// 48 bytes of an old header with a type and a format mark.
std::string OldHeader(int type, std::uint32_t mark)
{
    std::string bytes(48, '\1');
    bytes[11] = static_cast<char>(type);
    for (std::size_t i = 0; i < 4; ++i)
        bytes[20 + i] = static_cast<char>(static_cast<unsigned char>(mark >> (8 * i)));
    return bytes;
}

TEST(FileKind, OldFiles)
{
    struct Row {
        const char* what;
        std::string bytes;
        FileKind kind;
        Viewers viewers;
    };
    for (const Row& row :
        {Row{"light profile", OldHeader(16, 0), FileKind::LightProfile, {"CView_LPF_Dialog"}},
            Row{"stitch", OldHeader(18, 0), FileKind::Stitch, {"CView_Stitch_Dialog"}},
            Row{"the type goes before the mark", OldHeader(18, 13900), FileKind::Stitch,
                {"CView_Stitch_Dialog"}},
            Row{"noise opens as a light profile", OldHeader(19, 0), FileKind::LightProfile,
                {"CView_LPF_Dialog"}},
            Row{"type 17 with the mark", OldHeader(17, 13900), FileKind::LightProfile,
                {"CView_LPF_Dialog"}},
            Row{"type 17 without it", OldHeader(17, 13901), FileKind::Unknown, {}},
            Row{"47 bytes", OldHeader(16, 13900).substr(0, 47), FileKind::Unknown, {}},
            Row{"empty file", "", FileKind::Unknown, {}}}) {
        const Recognition found = Recognise(Bytes(row.bytes), "a.con");
        EXPECT_EQ(found.kind, row.kind) << row.what;
        EXPECT_EQ(found.viewers, row.viewers) << row.what;
        EXPECT_EQ(found.container, Container::Binary) << row.what;
        EXPECT_EQ(found.dataOffset, 48) << row.what;
    }
}

TEST(FileKind, TheFallbackOpensOneViewerAfterTheOther)
{
    EXPECT_EQ(FallbackViewers("[Noise Test][Stitch Test]"),
        (Viewers{"CView_Stitch_Dialog", "CView_LPF_Dialog"}));
    EXPECT_EQ(FallbackViewers("[Light Profile][Noise Test]"),
        (Viewers{"CView_LPF_Dialog", "CView_LPF_Dialog"}));
    EXPECT_TRUE(FallbackViewers("[MTF]").empty());
}

TEST(FileKind, TiffByItsBeginningOrItsName)
{
    struct Row {
        const char* what;
        std::string bytes;
        const char* name;
        FileKind kind;
    };
    for (const Row& row : {Row{"little-endian", {"II*\0", 4}, "a", FileKind::Tiff},
             Row{"big-endian", {"MM\0*", 4}, "a", FileKind::Tiff},
             Row{"large form", {"II+\0", 4}, "a", FileKind::Tiff},
             Row{"version in the other order", {"II\0*", 4}, "a", FileKind::Unknown},
             Row{"mixed order mark", {"IM*\0", 4}, "a", FileKind::Unknown},
             Row{"cut short", "II*", "a", FileKind::Unknown},
             Row{"by name", "", "A.TiFF", FileKind::Tiff},
             Row{"by short name", "x", "b.tif", FileKind::Tiff},
             Row{"no extension", "x", "tif", FileKind::Unknown},
             Row{"the name goes before an old header", OldHeader(16, 0), "a.tif", FileKind::Tiff},
             Row{"a tag goes before the name", "[MTF]", "a.tif", FileKind::Mtf}}) {
        EXPECT_EQ(Recognise(Bytes(row.bytes), row.name).kind, row.kind) << row.what;
    }
    const Recognition found = Recognise({}, "a.tif");
    EXPECT_EQ(found.container, Container::Tiff);
    EXPECT_EQ(found.viewers, (Viewers{"CPictureView_Dialog"}));
    EXPECT_FALSE(found.dataOffset);
}

TEST(FileKind, FirstLineDecidesAPackedDumpWhereAsked)
{
    const TempFolder folder;
    const auto path = folder.Write("dump.con",
        "[Kitbag]\nDataPointer=        40\na.con=300\n[Noise Test]\nDataPointer=        90\n");
    Recognition found;
    ASSERT_EQ(RecogniseFile(path, found), FileStatus::Ok);
    EXPECT_EQ(found.kind, FileKind::Noise);
    ASSERT_EQ(RecogniseFile(path, found, KitbagRule::FirstLine), FileStatus::Ok);
    EXPECT_EQ(found.kind, FileKind::Kitbag);
    EXPECT_TRUE(found.viewers.empty());
    EXPECT_EQ(found.dataOffset, 40);
    EXPECT_EQ(RecogniseFile(folder.Path() / "missing.con", found), FileStatus::NotFound);

    EXPECT_TRUE(BeginsAsKitbag(Bytes("[Kitbag]\r\n")));
    EXPECT_TRUE(BeginsAsKitbag(Bytes("[Kitbag]")));
    EXPECT_FALSE(BeginsAsKitbag(Bytes("[Kitbag] \n")));
    EXPECT_FALSE(BeginsAsKitbag(Bytes("\n[Kitbag]\n")));
}

TEST(FileKind, NamesFindTheirKind)
{
    for (const KindNames& names : AllKinds())
        EXPECT_EQ(KindFromId(names.id), names.kind) << names.id;
    EXPECT_EQ(KindId(FileKind::VerticalCameraVerification), "vertical-camera-verification");
    EXPECT_FALSE(KindFromId("Oscilloscope"));
}

} // namespace

} // namespace vireo
