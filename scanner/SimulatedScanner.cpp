#include "scanner/SimulatedScanner.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace vireo {

namespace {

struct SimulatedType {
    int type;
    int family;
    int cameras;
    int cameraPixels;
    int widthPer1200;
};

/// 600 dots per inch over 36.04, 40 and 50 inches.
constexpr SimulatedType kTypes[] = {
    {4, 5, 4, 5406, 43248},
    {5, 5, 4, 6000, 48000},
    {9, 9, 5, 6000, 60000},
};

ScannerIdentity IdentityOf(const SimulatedType& type, const SimulatedSetup& setup)
{
    ScannerIdentity identity;
    identity.name = setup.name;
    identity.id = "SIM" + std::to_string(setup.seed);
    identity.family = type.family;
    identity.generation = type.type;
    identity.isColour = (setup.mode & SimulatedMode::kColour) != 0;
    identity.cameras = type.cameras;
    std::fill_n(identity.cameraPixels.begin(), type.cameras, type.cameraPixels);
    identity.widthPer1200 = type.widthPer1200;
    return identity;
}

} // namespace

SimulatedScanner::SimulatedScanner(SimulatedSetup setup) : m_setup(std::move(setup)) { }

ScannerError SimulatedScanner::Open()
{
    if (m_signal)
        return ScannerError::Ok;
    const auto* const type = std::ranges::find(kTypes, m_setup.type, &SimulatedType::type);
    if (type == std::end(kTypes))
        return ScannerError::UnknownScanner;
    m_signal.emplace(
        IdentityOf(*type, m_setup), m_setup.seed, (m_setup.mode & SimulatedMode::kCorrects) != 0);
    m_lines = 0;
    m_nextLine = std::chrono::steady_clock::now();
    return ScannerError::Ok;
}

void SimulatedScanner::Close()
{
    m_signal.reset();
}

ScannerError SimulatedScanner::GetIdentity(ScannerIdentity& identity)
{
    if (!m_signal)
        return ScannerError::NotReady;
    identity = m_signal->Identity();
    return ScannerError::Ok;
}

bool SimulatedScanner::HasSheet() const
{
    if (!(m_setup.mode & SimulatedMode::kFeedsSheet) || m_setup.gapLines == 0)
        return true;
    return m_lines % (m_setup.sheetLines + m_setup.gapLines) < m_setup.sheetLines;
}

ScannerError SimulatedScanner::GetPaperStatus(PaperStatus& status)
{
    if (!m_signal)
        return ScannerError::NotReady;
    status = HasSheet() ? PaperStatus::Loaded : PaperStatus::None;
    return ScannerError::Ok;
}

/// Lines come at a steady rate; those that nobody has taken are not made up for.
void SimulatedScanner::WaitForLine()
{
    if (m_setup.linesPerSecond <= 0.0)
        return;
    using Clock = std::chrono::steady_clock;
    const auto period = std::chrono::duration_cast<Clock::duration>(
        std::chrono::duration<double>(1.0 / m_setup.linesPerSecond));
    std::this_thread::sleep_until(m_nextLine);
    m_nextLine = std::max(m_nextLine + period, Clock::now());
}

ScannerError SimulatedScanner::AcquireLine(ScanLine& line)
{
    if (!m_signal)
        return ScannerError::NotReady;
    WaitForLine();
    m_signal->Compute(m_lines, HasSheet(), line);
    ++m_lines;
    return ScannerError::Ok;
}

ScannerError SimulatedScanner::GetRange(ScannerSetting setting, SettingRange& range)
{
    if (!m_signal)
        return ScannerError::NotReady;
    constexpr SettingRange kRanges[kScannerSettings] = {
        {-SimulatedSignal::kStitchReach, SimulatedSignal::kStitchReach, true},
        {0, 255, true},
        {-128, 127, true},
        {0, 1, true},
    };
    range = kRanges[static_cast<std::size_t>(setting)];
    return ScannerError::Ok;
}

namespace {

/// The value at a place that is there.
int& ValueAt(SimulatedSignal::Settings& settings, ScannerSetting setting, SettingPlace place)
{
    const auto camera = static_cast<std::size_t>(place.camera);
    const auto plane = static_cast<std::size_t>(place.plane);
    switch (setting) {
    case ScannerSetting::Stitch:
        return settings.stitch[camera];
    case ScannerSetting::Gain:
        return settings.gain[camera][plane];
    case ScannerSetting::Offset:
        return settings.offset[camera][plane];
    case ScannerSetting::Correction:
        break;
    }
    return settings.correction;
}

} // namespace

ScannerError SimulatedScanner::GetValue(ScannerSetting setting, SettingPlace place, int& value)
{
    if (!m_signal)
        return ScannerError::NotReady;
    if (!HasPlace(setting, place, m_signal->Identity()))
        return ScannerError::NotSupported;
    SimulatedSignal::Settings settings = m_signal->CurrentSettings();
    value = ValueAt(settings, setting, place);
    return ScannerError::Ok;
}

ScannerError SimulatedScanner::SetValue(ScannerSetting setting, SettingPlace place, int value)
{
    SettingRange range;
    if (const ScannerError error = GetRange(setting, range); error != ScannerError::Ok)
        return error;
    if (!HasPlace(setting, place, m_signal->Identity()))
        return ScannerError::NotSupported;
    if (value < range.lowest || value > range.highest)
        return OutOfRange(setting);
    SimulatedSignal::Settings settings = m_signal->CurrentSettings();
    ValueAt(settings, setting, place) = value;
    m_signal->ChangeSettings(settings);
    return ScannerError::Ok;
}

} // namespace vireo
