#pragma once

#include "scanner/LineRate.h"
#include "scanner/ScanLineAverage.h"
#include "scanner/ScannerDevice.h"
#include "scanner/ScannerValues.h"

#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace vireo {

/// A call to a scanner that went wrong.
struct ScannerFailure {
    ScannerError error = ScannerError::Ok;
    ScannerError libraryError = ScannerError::Ok; ///< What LibraryError stands for.
    std::string detail;                           ///< For the log.

    explicit operator bool() const { return error != ScannerError::Ok; }
};

/// A scanner that has been opened, and what it told.
struct OpenScanner {
    std::unique_ptr<ScannerDevice> device;
    ScannerIdentity identity;
    ScannerValues values;
};

/// Opens a device and asks for all that OpenScanner holds, which is only complete without a
/// failure. A device that does not answer is closed.
ScannerFailure OpenDevice(std::unique_ptr<ScannerDevice> device, OpenScanner& opened);

/// The newest line, with what was worked out from those before.
struct AcquiredLine {
    std::uint64_t number = 0; ///< Lines taken so far.
    ScanLine line;            ///< The average of the last lines.
    int averaged = 0;         ///< Of how many.
    ScanLineHold hold;        ///< Over all lines since the hold began.
    PaperStatus paper = PaperStatus::None;
    double linesPerSecond = 0.0;
};

/// Takes lines from a scanner on a thread of its own, which makes every call to the device, one
/// after the other. Whoever shows the lines takes the newest when it suits; lines that nobody takes
/// are counted in average and hold and dropped. No function here waits for the scanner but the
/// destructor, which waits for the line that is being taken.
///
/// The average and the hold begin anew when a sheet comes or goes, and when a value is changed.
class LineAcquisition {
public:
    /// Lines are taken from Start on.
    explicit LineAcquisition(OpenScanner scanner);
    LineAcquisition(const LineAcquisition&) = delete;
    LineAcquisition& operator=(const LineAcquisition&) = delete;
    /// Makes the changes that were asked for, stops and closes the scanner.
    ~LineAcquisition();

    /// Begins to take lines; a scanner that failed before is closed and opened anew.
    void Start();
    void Stop();
    /// Whether lines are being taken: false after Stop and after a failure that ended it.
    bool IsRunning() const;

    /// How many lines are averaged; 1 for each line as it is.
    void SetAverage(int lines);
    void RestartHold();
    /// Sets a value of the scanner before the next line. What came of it is in TakeValues, or a
    /// failure, which does not end anything.
    void ChangeValue(ScannerSetting setting, SettingPlace place, int value);

    /// Gives the newest line that has not been taken yet; `line` keeps its buffers' memory in use.
    bool TakeNewest(AcquiredLine& line);
    /// Gives the values when they have been changed or read anew since the last time; not before
    /// all changes that were asked for have been made.
    bool TakeValues(ScannerValues& values);
    /// Gives each failure once.
    std::optional<ScannerFailure> TakeFailure();

    const ScannerIdentity& Identity() const { return m_identity; }
    bool IsSimulated() const { return m_bSimulated; }

private:
    struct Change {
        ScannerSetting setting;
        SettingPlace place;
        int value;
    };
    /// What the thread is to do next, taken under the lock.
    struct Orders {
        std::vector<Change> changes;
        std::optional<int> average;
        bool restartsHold = false;
        bool runs = false;
    };

    void Run();
    bool WaitForOrders(Orders& orders);
    void Obey(const Orders& orders);
    bool Reopen();
    void Apply(const Change& change);
    void TakeLine();
    void Publish();
    void Fail(ScannerError error, const char* doing, bool ends);

    const ScannerIdentity m_identity;
    const bool m_bSimulated;

    // The thread's own.
    std::unique_ptr<ScannerDevice> m_device;
    ScannerValues m_values;
    bool m_bLost = false; ///< The device has failed and must be opened anew.
    ScanLineAverage m_average;
    LineRate m_rate;
    ScanLine m_raw;
    AcquiredLine m_next; ///< Is filled while another may be taken.
    ScanLineHold m_hold;
    PaperStatus m_paper = PaperStatus::None;
    std::uint64_t m_lines = 0;

    // Shared, under the lock.
    mutable std::mutex m_mutex;
    std::condition_variable m_wake;
    Orders m_orders;
    std::size_t m_pendingChanges = 0; ///< Asked for and not made yet.
    bool m_bEnd = false;
    bool m_bFresh = false;
    AcquiredLine m_newest;
    std::optional<ScannerValues> m_changedValues;
    std::vector<ScannerFailure> m_failures;

    std::thread m_thread; ///< The last member: all others are there before it starts.
};

} // namespace vireo
