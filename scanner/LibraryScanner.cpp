#include "scanner/LibraryScanner.h"

#include "platform/Path.h"
#include "scanner/VireoScanner.h"

#include <algorithm>
#include <utility>

namespace vireo {

std::vector<std::filesystem::path> ScannerLibraryCandidates()
{
#ifdef _WIN32
    return {"VireoScanner.dll"};
#else
    return {"libvireo-scanner.so", "VireoScanner.so"};
#endif
}

/// The functions of a library, with the types that the interface's header gives them.
struct LibraryScanner::Entries {
    decltype(&VireoScanner_InterfaceVersion) interfaceVersion = nullptr;
    decltype(&VireoScanner_Open) open = nullptr;
    decltype(&VireoScanner_Close) close = nullptr;
    decltype(&VireoScanner_GetIdentity) getIdentity = nullptr;
    decltype(&VireoScanner_GetPaperStatus) getPaperStatus = nullptr;
    decltype(&VireoScanner_AcquireLine) acquireLine = nullptr;
    decltype(&VireoScanner_GetRange) getRange = nullptr;
    decltype(&VireoScanner_GetStitch) getStitch = nullptr;
    decltype(&VireoScanner_SetStitch) setStitch = nullptr;
    decltype(&VireoScanner_GetGain) getGain = nullptr;
    decltype(&VireoScanner_SetGain) setGain = nullptr;
    decltype(&VireoScanner_GetOffset) getOffset = nullptr;
    decltype(&VireoScanner_SetOffset) setOffset = nullptr;
    decltype(&VireoScanner_GetCorrection) getCorrection = nullptr;
    decltype(&VireoScanner_SetCorrection) setCorrection = nullptr;
    decltype(&VireoScanner_LastError) lastError = nullptr;

    /// Finds all functions; gives the name of the first that is missing, or nothing.
    std::string FindIn(const SharedLibrary& library)
    {
        std::string missing;
        const auto find = [&](auto& entry, const char* name) {
            entry =
                reinterpret_cast<std::remove_reference_t<decltype(entry)>>(library.Symbol(name));
            if (!entry && missing.empty())
                missing = name;
        };
        find(interfaceVersion, "VireoScanner_InterfaceVersion");
        find(open, "VireoScanner_Open");
        find(close, "VireoScanner_Close");
        find(getIdentity, "VireoScanner_GetIdentity");
        find(getPaperStatus, "VireoScanner_GetPaperStatus");
        find(acquireLine, "VireoScanner_AcquireLine");
        find(getRange, "VireoScanner_GetRange");
        find(getStitch, "VireoScanner_GetStitch");
        find(setStitch, "VireoScanner_SetStitch");
        find(getGain, "VireoScanner_GetGain");
        find(setGain, "VireoScanner_SetGain");
        find(getOffset, "VireoScanner_GetOffset");
        find(setOffset, "VireoScanner_SetOffset");
        find(getCorrection, "VireoScanner_GetCorrection");
        find(setCorrection, "VireoScanner_SetCorrection");
        find(lastError, "VireoScanner_LastError");
        return missing;
    }
};

namespace {

ScannerError ErrorOf(unsigned int code)
{
    return static_cast<ScannerError>(code);
}

/// The text of a field of the library's, which need not have ended it.
template <std::size_t kBytes>
std::string TextOf(const char (&field)[kBytes])
{
    return {field, std::find(field, field + kBytes, '\0')};
}

ScannerIdentity IdentityOf(const VireoScannerIdentity& told)
{
    ScannerIdentity identity;
    identity.name = TextOf(told.name);
    identity.id = TextOf(told.id);
    identity.family = told.family;
    identity.generation = told.generation;
    identity.isColour = told.colour != 0;
    identity.cameras = told.cameras;
    std::copy(std::begin(told.camera_pixels), std::end(told.camera_pixels),
        identity.cameraPixels.begin());
    identity.widthPer1200 = told.width;
    return identity;
}

} // namespace

LibraryScanner::LibraryScanner(std::vector<std::filesystem::path> candidates)
    : m_candidates(std::move(candidates))
{
}

LibraryScanner::~LibraryScanner()
{
    LibraryScanner::Close();
}

ScannerError LibraryScanner::LoadLibrary()
{
    m_entries.reset(); // They are the old library's.
    const bool found = std::ranges::any_of(
        m_candidates, [this](const std::filesystem::path& name) { return m_library.Load(name); });
    if (!found) {
        m_detail = "No scanner library";
        for (const std::filesystem::path& name : m_candidates)
            m_detail.append(" ").append(Utf8FromPath(name));
        return ScannerError::NoScanner;
    }
    auto entries = std::make_unique<Entries>();
    const std::string missing = entries->FindIn(m_library);
    if (!missing.empty()) {
        m_detail = "The scanner library has no " + missing;
        return ScannerError::NoScanner;
    }
    if (entries->interfaceVersion() != VIREO_SCANNER_INTERFACE_VERSION) {
        m_detail = "The scanner library is made for another version of Vireo";
        return ScannerError::NoScanner;
    }
    m_entries = std::move(entries);
    return ScannerError::Ok;
}

ScannerError LibraryScanner::ReadIdentity()
{
    VireoScannerIdentity told{};
    const ScannerError error = ErrorOf(m_entries->getIdentity(&told));
    if (error != ScannerError::Ok)
        return error;
    m_identity = IdentityOf(told);
    return m_identity.Check();
}

ScannerError LibraryScanner::Open()
{
    if (m_bOpen)
        return ScannerError::Ok;
    m_detail.clear();
    if (const ScannerError error = LoadLibrary(); error != ScannerError::Ok)
        return error;
    if (const ScannerError error = ErrorOf(m_entries->open()); error != ScannerError::Ok)
        return error;
    m_bOpen = true;
    const ScannerError error = ReadIdentity();
    if (error != ScannerError::Ok)
        Close();
    return error;
}

void LibraryScanner::Close()
{
    if (std::exchange(m_bOpen, false))
        m_entries->close();
}

ScannerError LibraryScanner::GetIdentity(ScannerIdentity& identity)
{
    if (!m_bOpen)
        return ScannerError::NotReady;
    identity = m_identity;
    return ScannerError::Ok;
}

ScannerError LibraryScanner::GetPaperStatus(PaperStatus& status)
{
    if (!m_bOpen)
        return ScannerError::NotReady;
    int told = 0;
    const ScannerError error = ErrorOf(m_entries->getPaperStatus(&told));
    if (error != ScannerError::Ok)
        return error;
    if (told != 0 && told != 1)
        return ScannerError::UnknownStatus;
    status = told == 1 ? PaperStatus::Loaded : PaperStatus::None;
    return ScannerError::Ok;
}

ScannerError LibraryScanner::AcquireLine(ScanLine& line)
{
    if (!m_bOpen)
        return ScannerError::NotReady;
    const std::size_t pixels = m_identity.LinePixels();
    unsigned char* planes[VIREO_SCANNER_PLANES] = {};
    for (int plane = 0; plane < m_identity.Planes(); ++plane) {
        auto& samples = line.planes[static_cast<std::size_t>(plane)];
        samples.resize(pixels);
        planes[plane] = samples.data();
    }
    return ErrorOf(m_entries->acquireLine(planes, static_cast<unsigned int>(pixels)));
}

ScannerError LibraryScanner::GetRange(ScannerSetting setting, SettingRange& range)
{
    if (!m_bOpen)
        return ScannerError::NotReady;
    SettingRange told;
    int settable = 0;
    const ScannerError error = ErrorOf(
        m_entries->getRange(static_cast<int>(setting), &told.lowest, &told.highest, &settable));
    if (error != ScannerError::Ok)
        return error;
    if (told.lowest > told.highest)
        return ScannerError::NotSupported;
    told.canSet = settable != 0;
    range = told;
    return ScannerError::Ok;
}

ScannerError LibraryScanner::GetValue(ScannerSetting setting, SettingPlace place, int& value)
{
    if (!m_bOpen)
        return ScannerError::NotReady;
    if (!HasPlace(setting, place, m_identity))
        return ScannerError::NotSupported;
    switch (setting) {
    case ScannerSetting::Stitch:
        return ErrorOf(m_entries->getStitch(place.camera, &value));
    case ScannerSetting::Gain:
        return ErrorOf(m_entries->getGain(place.camera, place.plane, &value));
    case ScannerSetting::Offset:
        return ErrorOf(m_entries->getOffset(place.camera, place.plane, &value));
    case ScannerSetting::Correction:
        break;
    }
    return ErrorOf(m_entries->getCorrection(&value));
}

ScannerError LibraryScanner::SetValue(ScannerSetting setting, SettingPlace place, int value)
{
    if (!m_bOpen)
        return ScannerError::NotReady;
    if (!HasPlace(setting, place, m_identity))
        return ScannerError::NotSupported;
    switch (setting) {
    case ScannerSetting::Stitch:
        return ErrorOf(m_entries->setStitch(place.camera, value));
    case ScannerSetting::Gain:
        return ErrorOf(m_entries->setGain(place.camera, place.plane, value));
    case ScannerSetting::Offset:
        return ErrorOf(m_entries->setOffset(place.camera, place.plane, value));
    case ScannerSetting::Correction:
        break;
    }
    return ErrorOf(m_entries->setCorrection(value));
}

ScannerError LibraryScanner::LastError() const
{
    return m_entries ? ErrorOf(m_entries->lastError()) : ScannerError::Ok;
}

} // namespace vireo
