#include "tests/TempFolder.h"
#include "tests/cli/ProgramRun.h"
#include "tests/cli/ScanFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <sstream>

namespace vireo {

namespace {

TEST(Export, WritesOneRowAPixel)
{
    ScanFile scan;
    scan.lines = 2;
    const TempFolder folder;
    const auto table = folder.Path() / "table.csv";
    const ProgramRun run = RunCli(
        {"export", Text(folder.Write("scan.con", scan.Bytes())), "-o", Text(table), "--line", "1"});
    EXPECT_EQ(run.exitStatus, 0) << run.error;
    EXPECT_EQ(run.output + run.error, "");

    const std::string text = TempFolder::Read(table);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 101);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\r'), 101);
    std::istringstream lines(text);
    std::string line;
    std::getline(lines, line);
    EXPECT_EQ(line, "pixel,position_mm,camera,red,green,blue\r");
    // 50880 / 1200 inch over 100 pixels.
    constexpr double kPitch = 50880.0 / 1200.0 * 25.4 / 100.0;
    for (int pixel = 0; pixel < 100; ++pixel) {
        std::getline(lines, line);
        std::istringstream fields(line);
        std::string number;
        std::string position;
        std::string rest;
        std::getline(fields, number, ',');
        std::getline(fields, position, ',');
        std::getline(fields, rest, '\r');
        EXPECT_EQ(number, std::to_string(pixel));
        EXPECT_NEAR(std::strtod(position.c_str(), nullptr), pixel * kPitch, 1e-9);
        std::string expected(1, pixel < 30 ? 'A' : pixel < 50 ? 'B' : 'C');
        for (int plane = 0; plane < 3; ++plane)
            expected += ',' + std::to_string(scan.Sample(plane, 1, pixel));
        EXPECT_EQ(rest, expected);
    }
}

TEST(Export, NamesTheOnePlaneOfAGrayFile)
{
    ScanFile scan;
    scan.isColor = false;
    scan.cameras = {1, 1};
    const TempFolder folder;
    const auto table = folder.Path() / "table.csv";
    EXPECT_EQ(RunCli({"export", Text(folder.Write("scan.con", scan.Bytes())), "-o", Text(table)})
                  .exitStatus,
        0);
    const std::string text = TempFolder::Read(table);
    EXPECT_EQ(text.substr(0, text.find('\r')), "pixel,position_mm,camera,gray");
    EXPECT_TRUE(text.ends_with(",B," + std::to_string(scan.Sample(1, 0, 1)) + "\r\n")) << text;
}

TEST(Export, LeavesUnknownFieldsEmpty)
{
    // No cameras, and a scan width of nothing.
    const TempFolder folder;
    const auto table = folder.Path() / "table.csv";
    RunCli({"export",
        Text(folder.Write("a.con",
            HeaderWith("[Oscilloscope]", "Color=Green\nScannerWidth(1/1200)=0\n") + "\x07")),
        "-o", Text(table)});
    EXPECT_EQ(TempFolder::Read(table), "pixel,position_mm,camera,green\r\n0,,,7\r\n");
}

TEST(Export, KeepsTheOldTableWhenItFails)
{
    const TempFolder folder;
    const auto table = folder.Write("table.csv", "old");
    const ProgramRun run = RunCli({"export", "--line", "7", "-o", Text(table),
        Text(folder.Write("scan.con", ScanFile().Bytes()))});
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(run.Errors().size(), 1U);
    EXPECT_EQ(TempFolder::Read(table), "old");
    EXPECT_EQ(RunCli({"export", "-o", Text(folder.Path() / "no" / "table.csv"),
                         Text(folder.Path() / "scan.con")})
                  .exitStatus,
        1);
    const std::filesystem::directory_iterator files(folder.Path());
    EXPECT_EQ(std::distance(begin(files), end(files)), 2) << "nothing half-written stays behind";
}

TEST(Export, RefusesKindsWithoutASeries)
{
    const TempFolder folder;
    const auto table = folder.Path() / "table.csv";
    const ProgramRun run = RunCli(
        {"export", Text(folder.Write("a.con", HeaderWith("[Kitbag]", ""))), "-o", Text(table)});
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(run.Errors().size(), 1U);
    EXPECT_FALSE(std::filesystem::exists(table));

    const std::string unknown = Text(folder.Write("a.bin", "nothing known"));
    EXPECT_EQ(RunCli({"export", unknown, "-o", Text(table)}).error,
        "vireo-cli: " + unknown + ": Unknown kind of file\n");
}

} // namespace

} // namespace vireo
