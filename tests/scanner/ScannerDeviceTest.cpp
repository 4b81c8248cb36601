#include "scanner/ScannerDevice.h"
#include "tests/scanner/TestScanners.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

namespace vireo {
namespace {

using Error = ScannerError;

struct DeviceCase {
    const char* name;
    std::function<std::unique_ptr<ScannerDevice>()> make;
    Error badGain; ///< Of a value outside the range.
};

/// What every scanner keeps to, wherever its lines come from.
class ScannerContract : public testing::TestWithParam<DeviceCase> {
protected:
    ScannerContract() { EXPECT_EQ(device->Open(), Error::Ok); }

    std::unique_ptr<ScannerDevice> device = GetParam().make();
    ScannerIdentity identity;
    ScanLine line;
    PaperStatus paper = PaperStatus::None;
    SettingRange range;
    int value = -1;
};

TEST_P(ScannerContract, EverythingNeedsAnOpenDevice)
{
    EXPECT_EQ(device->Open(), Error::Ok) << "open already";
    device->Close();
    device->Close();
    EXPECT_EQ(device->GetIdentity(identity), Error::NotReady);
    EXPECT_EQ(device->GetPaperStatus(paper), Error::NotReady);
    EXPECT_EQ(device->AcquireLine(line), Error::NotReady);
    EXPECT_EQ(device->GetRange(ScannerSetting::Gain, range), Error::NotReady);
    EXPECT_EQ(device->GetValue(ScannerSetting::Gain, {}, value), Error::NotReady);
    EXPECT_EQ(device->SetValue(ScannerSetting::Gain, {}, 128), Error::NotReady);
    EXPECT_EQ(device->Open(), Error::Ok);
    EXPECT_EQ(device->AcquireLine(line), Error::Ok);
}

TEST_P(ScannerContract, LinesAreAsTheIdentityTells)
{
    ASSERT_EQ(device->GetIdentity(identity), Error::Ok);
    EXPECT_EQ(identity.Check(), Error::Ok);
    EXPECT_FALSE(identity.name.empty());
    ASSERT_EQ(device->AcquireLine(line), Error::Ok);
    for (int plane = 0; plane < ScannerIdentity::kMostPlanes; ++plane)
        EXPECT_EQ(line.planes[static_cast<std::size_t>(plane)].size(),
            plane < identity.Planes() ? identity.LinePixels() : 0U);
    ASSERT_EQ(device->GetPaperStatus(paper), Error::Ok);
    EXPECT_EQ(paper, PaperStatus::Loaded);
}

TEST_P(ScannerContract, ValuesAreKeptWithinTheirRange)
{
    const SettingPlace last{1, 0};
    ASSERT_EQ(device->GetRange(ScannerSetting::Gain, range), Error::Ok);
    EXPECT_TRUE(range.canSet);
    for (const int wanted : {range.lowest, range.highest}) {
        EXPECT_EQ(device->SetValue(ScannerSetting::Gain, last, wanted), Error::Ok);
        EXPECT_EQ(device->GetValue(ScannerSetting::Gain, last, value), Error::Ok);
        EXPECT_EQ(value, wanted);
    }
    for (const int refused : {range.lowest - 1, range.highest + 1})
        EXPECT_EQ(device->SetValue(ScannerSetting::Gain, last, refused), GetParam().badGain);
    EXPECT_EQ(device->GetValue(ScannerSetting::Gain, last, value), Error::Ok);
    EXPECT_EQ(value, range.highest);
    EXPECT_EQ(device->SetValue(ScannerSetting::Stitch, {}, 1000), Error::StitchOutOfRange);
}

TEST_P(ScannerContract, PlacesThatAreNotThereAreNotSupported)
{
    ASSERT_EQ(device->GetIdentity(identity), Error::Ok);
    const std::pair<ScannerSetting, SettingPlace> places[] = {
        {ScannerSetting::Gain, {identity.cameras, 0}}, {ScannerSetting::Gain, {-1, 0}},
        {ScannerSetting::Gain, {0, identity.Planes()}}, {ScannerSetting::Gain, {0, -1}},
        {ScannerSetting::Stitch, {identity.cameras - 1, 0}}, {ScannerSetting::Stitch, {0, 1}},
        {ScannerSetting::Correction, {1, 0}}};
    for (const auto& [setting, place] : places) {
        EXPECT_EQ(device->GetValue(setting, place, value), Error::NotSupported);
        EXPECT_EQ(device->SetValue(setting, place, 0), Error::NotSupported);
    }
}

TEST_P(ScannerContract, GainAndStitchChangeTheSignal)
{
    ASSERT_EQ(device->GetIdentity(identity), Error::Ok);
    const auto boundary = static_cast<std::size_t>(identity.cameraPixels[0]);
    const auto mean = [&](std::size_t from, std::size_t count) {
        EXPECT_EQ(device->AcquireLine(line), Error::Ok);
        double sum = 0.0;
        for (std::size_t pixel = from; pixel < from + count; ++pixel)
            sum += line.planes[0][pixel];
        return sum / static_cast<double>(count);
    };
    EXPECT_EQ(device->SetValue(ScannerSetting::Stitch, {}, 0), Error::Ok);
    const double before = mean(boundary - 50, 50);
    const double right = mean(boundary, 10);
    EXPECT_EQ(device->SetValue(ScannerSetting::Gain, {}, 80), Error::Ok);
    EXPECT_LT(mean(boundary - 50, 50), before - 10.0) << "left of the boundary";
    EXPECT_NEAR(mean(boundary, 10), right, 2.0) << "right of it";
    EXPECT_EQ(device->SetValue(ScannerSetting::Stitch, {}, 10), Error::Ok);
    EXPECT_LT(mean(boundary, 10), right - 10.0) << "the step has moved";
}

INSTANTIATE_TEST_SUITE_P(Devices, ScannerContract,
    testing::Values(
        DeviceCase{"Simulated", [] { return std::make_unique<SimulatedScanner>(FastSimulation()); },
            Error::GainOutOfRange},
        DeviceCase{"Library", [] { return MakeTestLibraryScanner(); }, Error::GainOutOfRange}),
    [](const auto& device) { return device.param.name; });

TEST(LibraryScanner, RefusesWhatItCannotUse)
{
    struct Row {
        const char* library;
        Error error;
        const char* detail;
    };
    const Row rows[] = {
        {"None", Error::NoScanner, "No scanner library"},
        {"WithoutEntry", Error::NoScanner, "has no VireoScanner_LastError"},
        {"OtherVersion", Error::NoScanner, "another version"},
        {"NoWidth", Error::NoWidth, ""},
        {"HugeLine", Error::UnknownScanner, ""},
        {"NoPixels", Error::UnknownScanner, ""},
    };
    for (const Row& row : rows) {
        const auto device = MakeTestLibraryScanner(row.library);
        ScannerIdentity identity;
        EXPECT_EQ(device->Open(), row.error) << row.library;
        EXPECT_NE(device->ErrorDetail().find(row.detail), std::string::npos) << row.library;
        EXPECT_EQ(device->GetIdentity(identity), Error::NotReady) << row.library;
        EXPECT_EQ(device->LastError(), Error::Ok) << row.library;
    }
}

TEST(LibraryScanner, TakesTheFirstLibraryThatIsThere)
{
    LibraryScanner device({TestScannerLibrary("None"), TestScannerLibrary("Good")});
    ASSERT_EQ(device.Open(), Error::Ok);
    ScannerIdentity identity;
    ASSERT_EQ(device.GetIdentity(identity), Error::Ok);
    EXPECT_EQ(identity.name, std::string(64, 'N')) << "the library has not ended it";
    EXPECT_EQ(identity.family, 7);
    EXPECT_EQ(identity.Resolution(), 600) << "250 pixels on 500 of 1200";
    EXPECT_FALSE(device.IsSimulated());
}

TEST(LibraryScanner, PassesTheLibrarysErrorsOn)
{
    const auto device = MakeTestLibraryScanner();
    ASSERT_EQ(device->Open(), Error::Ok);
    SettingRange range;
    EXPECT_EQ(device->GetRange(ScannerSetting::Offset, range), Error::NotSupported);
    ScanLine line;
    for (int i = 0; i < 1000; ++i)
        ASSERT_EQ(device->AcquireLine(line), Error::Ok);
    EXPECT_EQ(device->AcquireLine(line), Error::LibraryError);
    EXPECT_EQ(static_cast<int>(device->LastError()), 850);

    const auto other = MakeTestLibraryScanner("BadStatus");
    ASSERT_EQ(other->Open(), Error::Ok);
    PaperStatus paper{};
    EXPECT_EQ(other->GetPaperStatus(paper), Error::UnknownStatus);
}

} // namespace
} // namespace vireo
