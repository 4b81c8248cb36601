#include "samples/AdjustmentSamples.h"

#include "samples/LittleEndian.h"
#include "samples/SampleRandom.h"
#include "testfile/HeaderNames.h"
#include "testfile/TestFileHeader.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace vireo {

namespace {

constexpr int kPaper = 205;
constexpr int kInk = 40;

/// A header with its data offset still to be fixed up.
TestFileHeader BeginHeader(std::string_view tag)
{
    TestFileHeader header;
    header.WriteText(std::string(tag) + "\nDataPointer=0123456789\n");
    header.WriteProgramName("Kestrel6");
    header.WriteProgramVersion("6.2.1");
    header.WriteDate("2026-03-14");
    header.WriteTime("09:48:12");
    header.WriteScannerName("Heron 36");
    header.WriteScannerID("H36-00417");
    header.WriteGeneration(5);
    header.WriteScannerFamily(5);
    return header;
}

char Sample(int level, SampleRandom& random)
{
    const int noisy = level + 2 * random.Normal() / SampleRandom::kNormalDeviation;
    return static_cast<char>(static_cast<unsigned char>(std::clamp(noisy, 0, 255)));
}

/// The centre line of a target as the three sensor lines of one camera see it, each a little off.
SampleFile CenterProfile()
{
    constexpr int kPixels = 1'200;
    constexpr std::array<int, 3> kCentres{598, 601, 605};
    constexpr int kHalfLine = 4;
    TestFileHeader header = BeginHeader(tag::kAdjustCenterCcd);
    header.WriteResolution(600);
    header.WriteColorScanner(true);
    header.WriteCenterLines(kCentres);
    header.WriteSelectedCamera(1);
    header.WriteColor(TestFileHeader::kColorInterleaved);
    header.WriteHeight(1);
    header.WriteWidth(kPixels);
    header.WriteText("CenterLimit=6\n");
    header.FixUpDataOffset();
    SampleRandom random(601);
    std::string bytes = header.Text();
    for (int pixel = 0; pixel < kPixels; ++pixel)
        for (const int centre : kCentres) {
            const int off = std::max(std::abs(pixel - centre) - kHalfLine, 0);
            bytes += Sample(std::min(kInk + 40 * off, kPaper), random);
        }
    return {"adjust-center-ccd.con", bytes};
}

/// A small picture of a line that leans.
SampleFile CarriagePicture()
{
    constexpr int kWidth = 240;
    constexpr int kHeight = 120;
    TestFileHeader header = BeginHeader(tag::kMirrorCarriageAdjustment);
    header.WriteResolution(300);
    header.WriteColor(TestFileHeader::kColorGray);
    header.WriteHeight(kHeight);
    header.WriteWidth(kWidth);
    header.FixUpDataOffset();
    SampleRandom random(602);
    std::string bytes = header.Text();
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x) {
            const int line = kHeight / 2 + (x - kWidth / 2) / 40;
            bytes += Sample(std::abs(y - line) <= 2 ? kInk : kPaper, random);
        }
    return {"mirror-carriage-adjustment.con", bytes};
}

/// Data of a layout of their own: an offset and a quality for each camera.
SampleFile VerificationValues()
{
    TestFileHeader header = BeginHeader(tag::kVerticalCameraVerification);
    header.WriteResolution(600);
    header.WriteCameraCount(4);
    for (int camera = 0; camera < 4; ++camera)
        header.WriteCameraPixels(camera, 5'400);
    header.WriteText("VerticalLimit=2\n");
    header.FixUpDataOffset();
    std::string bytes = header.Text();
    for (const int value : {0, 98, 1, 97, -1, 99, 2, 91})
        AppendInteger(bytes, static_cast<std::uint32_t>(value), 4);
    return {"vertical-camera-verification.con", bytes};
}

} // namespace

std::vector<SampleFile> AdjustmentSamples()
{
    return {CenterProfile(), CarriagePicture(), VerificationValues()};
}

} // namespace vireo
