#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace vireo {

/// The log facade. One timestamped line a message is appended to the log file in a single write, so
/// that several running viewers never garble each other's lines. All functions may be called from
/// any thread. Text is 8-bit Windows-1252; line ends inside a message become blanks.
///
/// A log that has grown to kLargestLog gets ".old" before its extension, "Vireo.old.log", in place
/// of the one that had that name before, and a new one begins: neither grows without end, and what
/// happened last is always there.
///
/// Lines logged before log_Init are kept (the first 1,000) and written when it comes; a program
/// that never calls it writes no log.

/// In bytes: some 40,000 lines, the work of weeks.
inline constexpr std::uint64_t kLargestLog = std::uint64_t{4} << 20;

/// Opens "<programName><extension>" in `folder`, or in the user's state folder (created when
/// missing) when `folder` is not writable. Returns false when neither can be written; messages are
/// then dropped.
bool log_Init(
    std::string_view programName, std::string_view extension, const std::filesystem::path& folder);

/// Closes the log file; what is logged from now on is kept for the next log_Init.
void log_Close();

/// The file the log goes to; empty before log_Init and when it failed.
std::filesystem::path log_FilePath();

void Log_Msg(std::string_view message);

// The message, a blank where it does not end with one, and the value.
void Log_Msg_Int(std::string_view message, long long value);
void Log_Msg_Txt(std::string_view message, std::string_view value);
void Log_Msg_Double(std::string_view message, double value);
/// The value as 0x and eight hexadecimal digits.
void Log_Msg_Hex(std::string_view message, std::uint32_t value);
void Log_Msg_Char(std::string_view message, char value);

/// A flag by which a long operation is asked to stop; set from one thread, read from another.
class CCancel {
public:
    void Cancel() { m_bCancelled.store(true, std::memory_order_relaxed); }
    void Reset() { m_bCancelled.store(false, std::memory_order_relaxed); }
    bool IsCancelled() const { return m_bCancelled.load(std::memory_order_relaxed); }

private:
    std::atomic<bool> m_bCancelled{false};
};

/// A local date and time to the millisecond.
struct CDateTime {
    int m_iYear = 0;
    int m_iMonth = 0; ///< 1 to 12.
    int m_iDay = 0;   ///< 1 to 31.
    int m_iHour = 0;
    int m_iMinute = 0;
    int m_iSecond = 0;
    int m_iMillisecond = 0;

    static CDateTime Now();
    /// "2026-03-01 13:05:09.042"
    std::string Text() const;
};

} // namespace vireo
