#include "samples/OscilloscopeSamples.h"

#include "samples/LittleEndian.h"

namespace vireo {

namespace {

void WriteProgram(TestFileHeader& header, const OscilloscopeSetup& setup)
{
    header.WriteProgramName("Kestrel6");
    header.WriteProgramVersion("6.2.1");
    header.WriteProgramBuild("418");
    if (!setup.incomplete)
        header.WriteDate("2026-03-14");
    header.WriteTime(setup.time);
}

void WriteScanner(TestFileHeader& header, const OscilloscopeSetup& setup)
{
    header.WriteScannerName(setup.scannerName);
    header.WriteScannerID(setup.scannerID);
    header.WriteFirmwareRevision(7);
    header.WriteFirmwareBuild(1032);
    header.WriteGeneration(setup.generation);
    header.WriteScannerFamily(setup.scannerFamily);
    header.WriteResolution(setup.scan.dpi);
    header.WriteColorScanner(setup.colorScanner);
    header.WriteCorrected(setup.scan.corrected);
    header.WriteScannerWidth(setup.scannerWidth);
}

void WriteCameras(TestFileHeader& header, const OscilloscopeSetup& setup)
{
    if (setup.incomplete) {
        header.WriteText("CenterLines=5230 5228\n");
    } else {
        header.WriteCenterLines({5230, 5228, 5231});
        header.WriteMagnification({1002, 1000, 997});
    }
    const auto cameras = static_cast<int>(setup.scan.cameraPixels.size());
    header.WriteCameraCount(cameras);
    for (int camera = 0; camera < cameras; ++camera)
        header.WriteCameraPixels(camera, setup.scan.cameraPixels[static_cast<std::size_t>(camera)]);
    if (!setup.incomplete)
        header.WriteCameraUsed(TestFileHeader::kAllCameras);
    header.WriteColor(setup.color);
}

bool IsInterleaved(const OscilloscopeSetup& setup)
{
    return setup.color == TestFileHeader::kColorInterleaved;
}

void AppendLines(std::string& bytes, ScanModel& model, const OscilloscopeSetup& setup)
{
    const int planes = IsInterleaved(setup) ? 3 : 1;
    std::vector<std::uint8_t> line(static_cast<std::size_t>(planes * model.LineWidth()));
    for (int number = 0; number < setup.scan.lineCount; ++number) {
        if (IsInterleaved(setup)) {
            for (int plane = 0; plane < planes; ++plane)
                model.FillLine(number, plane, line.data() + plane, planes);
        } else {
            constexpr int kGreen = 1;
            model.FillLine(number, kGreen, line.data(), 1);
        }
        bytes.append(line.begin(), line.end());
    }
}

/// The modulation, in percent, of five line frequencies: falls with the frequency and towards the
/// ends of each camera.
void AppendModulationPlanes(std::string& bytes, const ScanSetup& scan)
{
    constexpr std::array<int, 5> kAtCentre{92, 84, 71, 55, 38};
    SampleRandom random(scan.seed + 1);
    for (const int atCentre : kAtCentre) {
        for (const int pixels : scan.cameraPixels) {
            for (int i = 0; i < pixels; ++i) {
                const int u = 200 * i / pixels - 100;
                const int fall = (100 - atCentre / 2) * u * u / 40000;
                bytes += static_cast<char>(atCentre - fall + random.Between(-1, 1));
            }
        }
    }
}

/// What follows the lines of an MTF file: five planes, three integers, and a 64-bit value and a
/// byte for each camera boundary (seven of them when there is a fifth camera).
void AppendMtfBlock(std::string& bytes, const ScanSetup& scan)
{
    AppendModulationPlanes(bytes, scan);
    for (const std::uint64_t value : {600U, 5U, 100U})
        AppendInteger(bytes, value, 4);
    const std::size_t boundaries = scan.cameraPixels.size() > 4 ? 7 : 3;
    std::uint64_t boundary = 0;
    for (std::size_t i = 0; i < boundaries; ++i) {
        boundary +=
            i < scan.cameraPixels.size() ? static_cast<std::uint64_t>(scan.cameraPixels[i]) : 0U;
        AppendInteger(bytes, boundary, 8);
    }
    bytes.append(boundaries, '\1');
}

SampleFile MakeFile(const OscilloscopeSetup& setup)
{
    ScanModel model(setup.scan);
    SampleFile file{setup.name, OscilloscopeHeader(setup).Text()};
    AppendLines(file.bytes, model, setup);
    if (setup.isMtf)
        AppendMtfBlock(file.bytes, setup.scan);
    return file;
}

const std::vector<int> kCamerasAt600{5412, 5388, 5396, 5404};
const std::vector<int> kCamerasAt300{2706, 2694, 2698, 2702};
const std::vector<int> kCamerasAt100{902, 898, 899, 901};
const std::vector<int> kFiveCameras{5052, 5034, 5040, 5028, 5046};

std::vector<OscilloscopeSetup> SingleFiles()
{
    std::vector<OscilloscopeSetup> setups(6);
    setups[0].name = "oscilloscope-color.con";
    setups[0].scan = {kCamerasAt600, 600, true, 1, 101};

    setups[1].name = "oscilloscope-gray.con";
    setups[1].scannerName = "Heron 36 Mono";
    setups[1].colorScanner = false;
    setups[1].color = TestFileHeader::kColorGray;
    setups[1].scan = {kCamerasAt600, 600, false, 1, 102};

    setups[2].name = "oscilloscope-lines.con";
    setups[2].scan = {kCamerasAt100, 100, true, 24, 103};

    setups[3].name = "mtf.con";
    setups[3].isMtf = true;
    setups[3].scan = {kCamerasAt300, 300, true, 1, 104};

    setups[4].name = "oscilloscope-generation-9.con";
    setups[4].scannerName = "Heron 42 Mk9";
    setups[4].scannerID = "H42-90033";
    setups[4].generation = 9;
    setups[4].scannerFamily = 9;
    setups[4].scannerWidth = 50400;
    setups[4].scan = {kFiveCameras, 600, false, 1, 105};

    setups[5].name = "oscilloscope-missing-items.con";
    setups[5].colorScanner = false;
    setups[5].color = 1;
    setups[5].incomplete = true;
    setups[5].scan = {kCamerasAt100, 100, false, 1, 106};
    return setups;
}

/// A folder as the packing of a test run leaves it: one file a resolution, adjusted and not.
std::vector<OscilloscopeSetup> FolderSet()
{
    std::vector<OscilloscopeSetup> setups;
    std::uint64_t seed = 201;
    for (const bool adjusted : {true, false}) {
        for (const bool color : {true, false}) {
            OscilloscopeSetup setup;
            setup.scan = color ? ScanSetup{kCamerasAt300, 300, adjusted, 1, seed}
                               : ScanSetup{kCamerasAt600, 600, adjusted, 1, seed};
            setup.color = color ? TestFileHeader::kColorInterleaved : TestFileHeader::kColorGray;
            setup.name = std::string("oscilloscope-set/Oscil_")
                + (adjusted ? "Adjusted_" : "Unadjusted_") + (color ? "Color_" : "Gray_")
                + std::to_string(setup.scan.dpi) + ".con";
            setup.time = "10:5" + std::to_string(seed % 10) + ":30";
            setups.push_back(setup);
            ++seed;
        }
    }
    return setups;
}

} // namespace

TestFileHeader OscilloscopeHeader(const OscilloscopeSetup& setup)
{
    TestFileHeader header;
    if (setup.isMtf) {
        header.WriteMtfTag(); // Unlike the other tags, without a line for the data offset.
        header.WriteText("DataPointer=0123456789\n");
    } else {
        header.WriteOscilloscopeTag();
    }
    WriteProgram(header, setup);
    WriteScanner(header, setup);
    WriteCameras(header, setup);
    header.WriteHeight(setup.scan.lineCount);
    header.FixUpDataOffset();
    return header;
}

std::vector<SampleFile> OscilloscopeSamples()
{
    std::vector<SampleFile> files;
    for (const auto& setups : {SingleFiles(), FolderSet()}) {
        for (const OscilloscopeSetup& setup : setups)
            files.push_back(MakeFile(setup));
    }
    return files;
}

} // namespace vireo
