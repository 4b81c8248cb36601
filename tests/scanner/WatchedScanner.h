#pragma once

#include "scanner/SimulatedScanner.h"

#include <atomic>
#include <utility>

namespace vireo {

/// What a test sees of its device from outside; shared with the acquisition's thread.
struct Watch {
    std::atomic<int> opens{0};
    std::atomic<int> closes{0};
    std::atomic<int> inCall{0};
    std::atomic<bool> overlapped{false};
    std::atomic<bool> fails{false}; ///< Every line does, for no reason that is told.
    std::atomic<int> openError{0};
};

/// A simulation that can be made to fail, and that notes who calls it when.
class WatchedScanner : public ScannerDevice {
public:
    WatchedScanner(Watch& watch, SimulatedSetup setup) : m_watch(watch), m_inner(std::move(setup))
    {
    }
    ScannerError Open() override
    {
        const Call call(m_watch);
        ++m_watch.opens;
        const auto error = static_cast<ScannerError>(m_watch.openError.load());
        return error == ScannerError::Ok ? m_inner.Open() : error;
    }
    void Close() override
    {
        const Call call(m_watch);
        ++m_watch.closes;
        m_inner.Close();
    }
    ScannerError GetIdentity(ScannerIdentity& identity) override
    {
        return m_inner.GetIdentity(identity);
    }
    ScannerError GetPaperStatus(PaperStatus& status) override
    {
        return m_inner.GetPaperStatus(status);
    }
    ScannerError AcquireLine(ScanLine& line) override
    {
        const Call call(m_watch);
        return m_watch.fails ? ScannerError::LibraryError : m_inner.AcquireLine(line);
    }
    ScannerError GetRange(ScannerSetting setting, SettingRange& range) override
    {
        return m_inner.GetRange(setting, range);
    }
    ScannerError GetValue(ScannerSetting setting, SettingPlace place, int& value) override
    {
        return m_inner.GetValue(setting, place, value);
    }
    ScannerError SetValue(ScannerSetting setting, SettingPlace place, int value) override
    {
        const Call call(m_watch);
        return m_inner.SetValue(setting, place, value);
    }
    bool IsSimulated() const override { return true; }

private:
    struct Call {
        explicit Call(Watch& watch) : watched(watch)
        {
            if (watched.inCall.exchange(1) != 0)
                watched.overlapped = true;
        }
        ~Call() { watched.inCall = 0; }
        Watch& watched;
    };
    Watch& m_watch;
    SimulatedScanner m_inner;
};

} // namespace vireo
