#include "scanner/LineAcquisition.h"

#include <system_error>
#include <utility>

namespace vireo {

namespace {

ScannerFailure FailureOf(const ScannerDevice& device, ScannerError error, const char* doing)
{
    ScannerFailure failure{error, ScannerError::Ok, doing};
    if (error == ScannerError::LibraryError) {
        // A library that fails without a reason must not look as if all were well.
        failure.libraryError = device.LastError();
        if (failure.libraryError == ScannerError::Ok)
            failure.libraryError = ScannerError::Unknown;
    }
    if (const std::string detail = device.ErrorDetail(); !detail.empty())
        failure.detail += ": " + detail;
    return failure;
}

} // namespace

ScannerFailure OpenDevice(std::unique_ptr<ScannerDevice> device, OpenScanner& opened)
{
    if (const ScannerError error = device->Open(); error != ScannerError::Ok)
        return FailureOf(*device, error, "Opening the scanner");
    ScannerError error = device->GetIdentity(opened.identity);
    if (error == ScannerError::Ok)
        error = opened.values.Read(*device, opened.identity);
    if (error != ScannerError::Ok) {
        ScannerFailure failure = FailureOf(*device, error, "Asking the scanner");
        device->Close();
        return failure;
    }
    opened.device = std::move(device);
    return {};
}

LineAcquisition::LineAcquisition(OpenScanner scanner)
    : m_identity(std::move(scanner.identity)),
      m_bSimulated(scanner.device->IsSimulated()),
      m_device(std::move(scanner.device)),
      m_values(scanner.values),
      m_changedValues(scanner.values)
{
    try {
        m_thread = std::thread([this] { Run(); });
    } catch (const std::system_error&) {
        m_failures.push_back({ScannerError::MemoryLow, ScannerError::Ok, "Starting a thread"});
    }
}

LineAcquisition::~LineAcquisition()
{
    {
        const std::lock_guard lock(m_mutex);
        m_bEnd = true;
    }
    m_wake.notify_one();
    if (m_thread.joinable())
        m_thread.join();
}

void LineAcquisition::Start()
{
    {
        const std::lock_guard lock(m_mutex);
        m_orders.runs = m_thread.joinable();
    }
    m_wake.notify_one();
}

void LineAcquisition::Stop()
{
    const std::lock_guard lock(m_mutex);
    m_orders.runs = false;
}

bool LineAcquisition::IsRunning() const
{
    const std::lock_guard lock(m_mutex);
    return m_orders.runs;
}

void LineAcquisition::SetAverage(int lines)
{
    const std::lock_guard lock(m_mutex);
    m_orders.average = lines;
}

void LineAcquisition::RestartHold()
{
    const std::lock_guard lock(m_mutex);
    m_orders.restartsHold = true;
}

void LineAcquisition::ChangeValue(ScannerSetting setting, SettingPlace place, int value)
{
    {
        const std::lock_guard lock(m_mutex);
        m_orders.changes.push_back({setting, place, value});
        ++m_pendingChanges;
    }
    m_wake.notify_one();
}

bool LineAcquisition::TakeNewest(AcquiredLine& line)
{
    const std::lock_guard lock(m_mutex);
    if (!std::exchange(m_bFresh, false))
        return false;
    std::swap(line, m_newest);
    return true;
}

bool LineAcquisition::TakeValues(ScannerValues& values)
{
    const std::lock_guard lock(m_mutex);
    if (!m_changedValues || m_pendingChanges > 0)
        return false;
    values = *std::exchange(m_changedValues, std::nullopt);
    return true;
}

std::optional<ScannerFailure> LineAcquisition::TakeFailure()
{
    const std::lock_guard lock(m_mutex);
    if (m_failures.empty())
        return std::nullopt;
    ScannerFailure failure = std::move(m_failures.front());
    m_failures.erase(m_failures.begin());
    return failure;
}

void LineAcquisition::Run()
{
    Orders orders;
    while (WaitForOrders(orders))
        Obey(orders);
    m_device->Close();
}

/// Waits until there is something to do and takes it; false when the thread is to end.
bool LineAcquisition::WaitForOrders(Orders& orders)
{
    std::unique_lock lock(m_mutex);
    m_wake.wait(lock, [this] { return m_bEnd || m_orders.runs || !m_orders.changes.empty(); });
    // A scanner that is lost is not opened anew only to be changed and closed.
    if (m_bEnd && (m_bLost || m_orders.changes.empty()))
        return false;
    orders = std::exchange(m_orders, {});
    m_orders.runs = orders.runs && !m_bEnd;
    orders.runs = m_orders.runs;
    return true;
}

void LineAcquisition::Obey(const Orders& orders)
{
    if (orders.average)
        m_average.SetLines(*orders.average);
    if (orders.restartsHold)
        m_hold.Restart();
    if (!m_bLost || Reopen())
        for (const Change& change : orders.changes)
            Apply(change);
    {
        const std::lock_guard lock(m_mutex);
        m_pendingChanges -= orders.changes.size();
    }
    if (m_bLost)
        return;
    if (orders.runs)
        TakeLine();
}

bool LineAcquisition::Reopen()
{
    m_device->Close();
    ScannerIdentity identity;
    ScannerError error = m_device->Open();
    if (error == ScannerError::Ok)
        error = m_device->GetIdentity(identity);
    if (error == ScannerError::Ok && identity != m_identity)
        error = ScannerError::OtherScanner;
    if (error == ScannerError::Ok)
        error = m_values.Read(*m_device, m_identity);
    if (error != ScannerError::Ok) {
        Fail(error, "Opening the scanner again", true);
        return false;
    }
    m_bLost = false;
    m_average.Restart();
    m_hold.Restart();
    m_rate.Restart();
    const std::lock_guard lock(m_mutex);
    m_changedValues = m_values;
    return true;
}

void LineAcquisition::Apply(const Change& change)
{
    const ScannerError set = m_device->SetValue(change.setting, change.place, change.value);
    if (set != ScannerError::Ok)
        Fail(set, "Setting a value", false);
    // The scanner is asked what it has made of it, also when it has refused.
    int value = 0;
    const ScannerError got = m_device->GetValue(change.setting, change.place, value);
    auto& setting = m_values.settings[static_cast<std::size_t>(change.setting)];
    if (got == ScannerError::Ok && setting)
        setting->values[static_cast<std::size_t>(change.place.camera)]
                       [static_cast<std::size_t>(change.place.plane)] = value;
    m_average.Restart();
    m_hold.Restart();
    const std::lock_guard lock(m_mutex);
    m_changedValues = m_values;
}

void LineAcquisition::TakeLine()
{
    PaperStatus paper = PaperStatus::None;
    ScannerError error = m_device->GetPaperStatus(paper);
    if (error == ScannerError::Ok)
        error = m_device->AcquireLine(m_raw);
    if (error != ScannerError::Ok) {
        Fail(error, "Taking a line", true);
        return;
    }
    if (std::exchange(m_paper, paper) != paper) {
        m_average.Restart();
        m_hold.Restart();
    }
    m_average.Add(m_raw, m_next.line);
    m_hold.Add(m_raw);
    m_rate.Count(std::chrono::steady_clock::now());
    ++m_lines;
    Publish();
}

void LineAcquisition::Publish()
{
    m_next.number = m_lines;
    m_next.averaged = m_average.Used();
    m_next.hold = m_hold;
    m_next.paper = m_paper;
    m_next.linesPerSecond = m_rate.PerSecond();
    const std::lock_guard lock(m_mutex);
    std::swap(m_next, m_newest);
    m_bFresh = true;
}

void LineAcquisition::Fail(ScannerError error, const char* doing, bool ends)
{
    ScannerFailure failure = FailureOf(*m_device, error, doing);
    m_bLost = m_bLost || ends;
    const std::lock_guard lock(m_mutex);
    m_failures.push_back(std::move(failure));
    if (ends)
        m_orders.runs = false;
}

} // namespace vireo
