#include "scanner/ScannerChoice.h"
#include "tests/TempFolder.h"
#include "tests/scanner/TestScanners.h"

#include <gtest/gtest.h>

namespace vireo {
namespace {

TEST(ScannerChoice, IsReadFromTheSettings)
{
    const TempFolder folder;
    const auto settings = folder.Write("Vireo.ini",
        "[Folders]\nF20=x\n[Scanner]\nSimulated=1\nSimulatedType=9\nSimulatedMode=3\n"
        "SimulatedSeed=77\nLibrary=Kite.so\n");
    const ScannerChoice choice = ReadScannerChoice(settings);
    EXPECT_TRUE(choice.isSimulated);
    EXPECT_EQ(choice.simulated.type, 9);
    EXPECT_EQ(choice.simulated.mode, 3);
    EXPECT_EQ(choice.simulated.seed, 77U);
    EXPECT_EQ(choice.library, "Kite.so");
    EXPECT_TRUE(MakeScanner(choice)->IsSimulated());
}

TEST(ScannerChoice, WithoutSettingsTheLibraryIsMeant)
{
    const TempFolder folder;
    const auto settings = folder.Path() / "new" / "Vireo.ini";
    ScannerChoice choice = ReadScannerChoice(settings);
    EXPECT_FALSE(choice.isSimulated);
    EXPECT_EQ(choice.simulated.type, 4);
    EXPECT_EQ(choice.simulated.mode, 6);
    EXPECT_EQ(MakeScanner(choice)->Open(), ScannerError::NoScanner);
    KeepSimulated(settings, true);
    EXPECT_TRUE(ReadScannerChoice(settings).isSimulated);
    KeepSimulated(settings, false);
    EXPECT_FALSE(ReadScannerChoice(settings).isSimulated);
    choice.library = TestScannerLibrary("Good");
    EXPECT_EQ(MakeScanner(choice)->Open(), ScannerError::Ok);
}

} // namespace
} // namespace vireo
