#include "scanner/ScannerChoice.h"

#include "platform/KnownFolders.h"
#include "platform/Log.h"
#include "platform/Path.h"
#include "platform/PrivateProfile.h"
#include "platform/Text.h"
#include "scanner/LibraryScanner.h"

#include <system_error>

namespace vireo {

namespace {

constexpr const char* kSection = "Scanner";
constexpr const char* kSimulated = "Simulated";
constexpr const char* kLibrary = "Library";
constexpr const char* kType = "SimulatedType";
constexpr const char* kMode = "SimulatedMode";
constexpr const char* kSeed = "SimulatedSeed";

} // namespace

std::filesystem::path ScannerSettingsFile()
{
    return ConfigFolder() / "Vireo.ini";
}

ScannerChoice ReadScannerChoice(const std::filesystem::path& settings)
{
    const PrivateProfile profile(settings);
    ScannerChoice choice;
    choice.isSimulated = profile.ReadInt(kSection, kSimulated, 0) != 0;
    choice.library =
        PathFromUtf8(Utf8FromWindows1252(profile.ReadString(kSection, kLibrary, "", 4096)));
    SimulatedSetup& simulated = choice.simulated;
    simulated.type = profile.ReadInt(kSection, kType, simulated.type);
    simulated.mode = profile.ReadInt(kSection, kMode, simulated.mode);
    simulated.seed = static_cast<std::uint32_t>(
        profile.ReadInt(kSection, kSeed, static_cast<int>(simulated.seed)));
    return choice;
}

void KeepSimulated(const std::filesystem::path& settings, bool isSimulated)
{
    std::error_code error;
    std::filesystem::create_directories(settings.parent_path(), error);
    if (PrivateProfile(settings).WriteString(kSection, kSimulated, isSimulated ? "1" : "0")
        != FileStatus::Ok)
        Log_Msg("The choice of the scanner cannot be kept");
}

std::unique_ptr<ScannerDevice> MakeScanner(const ScannerChoice& choice)
{
    if (choice.isSimulated)
        return std::make_unique<SimulatedScanner>(choice.simulated);
    if (choice.library.empty())
        return std::make_unique<LibraryScanner>();
    return std::make_unique<LibraryScanner>(std::vector{choice.library});
}

} // namespace vireo
