#include "viewers/controls/ProfileText.h"
#include "viewers/oscilloscope/OscilloscopeData.h"
#include "viewers/oscilloscope/OscilloscopeText.h"

#include <gtest/gtest.h>

namespace vireo {
namespace {

OscilloscopeData NamedData()
{
    OscilloscopeData data;
    data.m_ScannerName = "Scan 42";
    data.m_ScannerID = "A17";
    data.m_Date = "2026-03-01";
    data.m_Time = "13:05";
    return data;
}

TEST(OscilloscopeTextTest, PrintedValuesStandInOneColumn)
{
    const std::vector<std::string> expected{"Scanner Name:  Scan 42", "Scanner ID:    A17",
        "Date   :       2026-03-01", "Time:          13:05", "Color:         Blue"};
    EXPECT_EQ(PrintedHeaderLines(NamedData(), ShownColour::Blue), expected);
}

TEST(OscilloscopeTextTest, AScannerWithoutIdHasNoLineForIt)
{
    OscilloscopeData data = NamedData();
    data.m_ScannerID.clear();
    const auto lines = PrintedHeaderLines(data, ShownColour::Gray);
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[1], "Date   :       2026-03-01");
    EXPECT_EQ(lines[3], "Color:         Gray");
}

TEST(OscilloscopeTextTest, AMissingValueKeepsItsLine)
{
    // The printed header ends at the first empty line, so none may be.
    for (const std::string& line : PrintedHeaderLines(OscilloscopeData(), ShownColour::Green))
        EXPECT_GE(line.size(), 15u);
}

/// Three pixels of camera A and two of camera C; the blue plane is one sample short.
ProfileLine ColourLine()
{
    ProfileLine line;
    line.Of(Plane::Red).samples = {1, 2, 3, 4, 5};
    line.Of(Plane::Green).samples = {10, 20, 30, 40, 50};
    line.Of(Plane::Blue).samples = {255, 0, 9, 8};
    return line;
}

TEST(OscilloscopeTextTest, TheCursorNamesWhatIsKnownOnly)
{
    const ProfileLine line = ColourLine();
    CursorReading reading;
    reading.pixel = 4;
    reading.value = 50;
    EXPECT_EQ(PositionText(reading), "4 (50)");
    EXPECT_EQ(CursorText(reading, line, ShownColour::Green), "Pixel 4   Green 50");
    EXPECT_EQ(CursorText(reading, line, ShownColour::All), "Pixel 4   Red 5  Green 50");
    reading.positionMm = 0.1666;
    reading.camera = 2;
    EXPECT_EQ(
        CursorText(reading, line, ShownColour::Gray), "Pixel 4   0.17 mm   Camera C   Gray 50");
}

TEST(OscilloscopeTextTest, TheFocusOfACameraEndsAtItsBoundary)
{
    ProfileLine line;
    // Camera A is flat, B steps by 10 each pixel; the step between the two belongs to neither.
    line.Of(Plane::Green).samples = {9, 9, 9, 9, 9, 9, 9, 9, 9, 9};
    for (int i = 0; i < 12; ++i)
        line.Of(Plane::Green).samples.push_back(static_cast<std::uint8_t>(100 + 10 * i));
    ProfileCameras cameras;
    cameras.pixels = {10, 12, 3, 50};
    EXPECT_EQ(FocusText(line, cameras, ShownColour::Gray), "Focus   A 0.0   B 100.0");
    EXPECT_EQ(FocusText(line, cameras, ShownColour::Red), "Focus") << "there is no red plane";
}

} // namespace
} // namespace vireo
