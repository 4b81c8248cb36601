#include "tests/TempFolder.h"
#include "tests/cli/Rendered.h"
#include "tests/viewers/stitch/StitchFiles.h"

#include <QCryptographicHash>
#include <QFile>

#include <gtest/gtest.h>

namespace vireo {
namespace {

using Json = nlohmann::ordered_json;

std::string Sha256(const std::string& bytes)
{
    return QCryptographicHash::hash(QByteArray::fromStdString(bytes), QCryptographicHash::Sha256)
        .toHex()
        .toStdString();
}

class StitchProgram : public testing::Test {
protected:
    std::string File(const std::string& bytes) { return Text(folder.Write("stitch.con", bytes)); }
    TempFolder folder;
};

TEST_F(StitchProgram, AnalysesThePictureAsItIsDrawn)
{
    using namespace std::string_literals;
    const std::string gray =
        File(TextStitchFile("m_iMemoryDC_Height=2\nm_iMemoryDC_Width=4\n", "abcdef"));
    const ProgramRun run = RunCli({"analyse", gray});
    ASSERT_EQ(run.exitStatus, 0) << run.error;
    const Json expected{{"file", gray}, {"kind", "stitch"}, {"width", 4}, {"height", 2},
        {"resolution", 0}, {"mode", "gray"}, {"data_length", 6},
        {"missing", {"m_iPhysicalResolution"}}, {"picture_sha256", Sha256("abcdef\xff\xff")}};
    EXPECT_EQ(run.Objects().at(0).dump(), expected.dump());

    const std::string runs = File(OldStitchFile(kRunLengthStitchType, 4, 2, "\x81\x02\0\x84"s));
    const ProgramRun second = RunCli({"analyse", "--as", "stitch", runs});
    ASSERT_EQ(second.exitStatus, 0) << second.error;
    EXPECT_EQ(second.Objects().at(0)["mode"], "run-length");
    EXPECT_EQ(second.Objects().at(0)["resolution"], 600);
    EXPECT_EQ(second.Objects().at(0)["picture_sha256"], Sha256("\xff\0\0\xff\xff\xff\xff\xff"s));
}

TEST_F(StitchProgram, SizesThatNoDataStandBehindHaveNoPicture)
{
    for (const std::uint32_t size : {0x7fffffffU, 0xffffffffU}) {
        const Json object = ObjectOf(
            {"analyse", "--as", "stitch", File(OldStitchFile(kGrayStitchType, size, size, "abc"))});
        EXPECT_EQ(object["width"], static_cast<std::int32_t>(size));
    }
}

TEST_F(StitchProgram, RendersAtOneToOneAndWhole)
{
    std::string pixels;
    for (int i = 0; i < 200 * 100; ++i)
        pixels += static_cast<char>(i / 200 + i % 200 / 2);
    const std::string file = File(OldStitchFile(kGrayStitchType, 200, 100, pixels));
    const QImage oneToOne = Rendered(file, {"--as", "stitch", "--size", "100x50"});
    ASSERT_EQ(oneToOne.size(), QSize(100, 50));
    // In the middle of the width and a third down: from column 50, row 33 - 25.
    EXPECT_EQ(qGray(oneToOne.pixel(10, 20)), 8 + 20 + 60 / 2);
    const QImage whole = Rendered(file, {"--as", "stitch", "--fit", "--size", "100x50"});
    EXPECT_NEAR(qGray(whole.pixel(80, 20)), 2 * 20 + 2 * 80 / 2, 2);
}

TEST_F(StitchProgram, ExportsTheFiguresOfColumns)
{
    const std::string file = File(OldStitchFile(kGrayStitchType, 2, 3, "\x0a\x14\x1e\x28\x32\x3d"));
    const std::string out = Text(folder.Path() / "out.csv");
    ASSERT_EQ(RunCli({"export", "--as", "stitch", file, "-o", out}).exitStatus, 0);
    QFile table(QString::fromStdString(out));
    ASSERT_TRUE(table.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = table.readAll().split('\n');
    ASSERT_EQ(lines.size(), 4);
    EXPECT_EQ(lines[0].trimmed(), "column,position_mm,value,min,max,mean");
    const QList<QByteArray> second = lines[2].trimmed().split(',');
    EXPECT_EQ(second[0], "1");
    EXPECT_NEAR(second[1].toDouble(), 25.4 / 600, 1e-9);
    EXPECT_EQ(second[3], "20");
    EXPECT_EQ(second[4], "61");
    EXPECT_NEAR(second[5].toDouble(), (20 + 40 + 61) / 3.0, 1e-9);
}

} // namespace
} // namespace vireo
